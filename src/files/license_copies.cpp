#include "files/license_copies.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <string>

#include "app/debug_trace.h"
#include "app/run_context.h"
#include "files/encoded_text_file.h"
#include "files/license_text_set.h"
#include "files/paths.h"
#include "files/status_file.h"
#include "lang/language_table.h"

namespace zev {

namespace {

constexpr const char* copySuffix = ".txt";

/// The copy of one language while it is being written.
class LanguageCopy {
public:
    LanguageCopy(const RunContext& context, const LanguageEntry& language)
        : agreementPath_(agreementPath(context, language.code)),
          informationPath_(informationPath(context, language.code)),
          outputPath_(joinPath(context.licenseCopyDir, std::string(language.englishName) + copySuffix)) {}

    [[nodiscard]] bool write() {
        file_.reset(std::fopen(outputPath_.c_str(), "w"));
        if (file_) output_ = attachEncoded(file_.get());
        if (!output_) {
            trace("Unable to create file ", outputPath_);
            return false;
        }
        trace("creating output file ", outputPath_, " in codepage ", u_fgetcodepage(output_.get()));
        return append("LA", agreementPath_) && (!fileExists(informationPath_) || append("LI", informationPath_)) &&
               finish();
    }

private:
    [[nodiscard]] bool append(const char* kind, const std::string& path) {
        const EncodedFile input = openEncoded(path, "r", licenseCodePage);
        if (!input) {
            trace("Unable to open ", kind, " file ", path);
            return false;
        }
        // The information file is deliberately announced under the path of the agreement: readers of traces know it so.
        trace("Reading ", kind, " file ", agreementPath_, " in codepage ", u_fgetcodepage(input.get()));
        lastSource_ = path;
        copyUnits(input.get(), output_.get());
        return checkWritten(std::fflush(file_.get()) == 0 && std::ferror(file_.get()) == 0);
    }

    /// Writes what the code page still holds back, once, and closes the file.
    [[nodiscard]] bool finish() {
        output_.reset();
        const bool good = std::ferror(file_.get()) == 0;
        return checkWritten(std::fclose(file_.release()) == 0 && good);
    }

    [[nodiscard]] bool checkWritten(bool written) const {
        if (!written) trace("Problems writing to ", outputPath_, " with ", lastSource_);
        return written;
    }

    std::string agreementPath_;
    std::string informationPath_;
    std::string outputPath_;
    std::string lastSource_;
    std::unique_ptr<std::FILE, decltype([](std::FILE* file) { std::fclose(file); })> file_;
    EncodedFile output_;  ///< writes to file_, whose errors ICU does not report, and does not own it
};

bool copyIfPresent(const RunContext& context, const std::string& name) {
    const std::string source = joinPath(context.licenseDir, name);
    const std::string copy = joinPath(context.licenseCopyDir, name + copySuffix);
    return !fileExists(source) || copyFileConverted(source.c_str(), licenseCodePage, copy.c_str(), nullptr);
}

void writeMasterStatusFile(const RunContext& context) {
    const std::string path = masterStatusPath(context);
    const bool written = makeDirectoryPath(context.masterPath) && writeStatusFile(context, path);
    trace(written ? "Master status.dat written successfully to " : "Unable to write the master status.dat to ", path);
}

}  // namespace

bool writeLicenseFiles(const RunContext& context) {
    trace("Writing license files...");
    for (unsigned index = 0; const LanguageEntry* language = languageEntry(context, index); ++index) {
        if (!LanguageCopy(context, *language).write()) return false;
    }
    return copyIfPresent(context, nonVurTermsName) && copyIfPresent(context, noticesName);
}

bool writeStatusFiles(const RunContext& context) {
    if (context.hasMasterPath != 0) writeMasterStatusFile(context);

    const bool written = makeDirectoryPath(context.licenseCopyDir) && writeLicenseFiles(context) &&
                         writeStatusFile(context, localStatusPath(context));
    const int error = errno;
    if (written) {
        trace("All status and license files written successfully");
    } else {
        trace("Problem writing status files, errno = ", error);
    }
    return written;
}

}  // namespace zev
