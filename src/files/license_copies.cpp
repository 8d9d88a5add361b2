#include "files/license_copies.h"

#include <cerrno>
#include <string>

#include "app/debug_trace.h"
#include "app/run_context.h"
#include "files/encoded_text_file.h"
#include "files/license_text_set.h"
#include "files/output_file.h"
#include "files/paths.h"
#include "files/status_file.h"
#include "lang/language_table.h"

namespace zev {

namespace {

/// The copy of one language while it is being written.
class LanguageCopy {
public:
    LanguageCopy(const RunContext& context, const LanguageEntry& language)
        : agreementPath_(agreementPath(context, language.code)),
          informationPath_(informationPath(context, language.code)),
          outputPath_(joinPath(context.licenseCopyDir, std::string(language.englishName) + copySuffix)),
          file_(outputPath_) {}

    [[nodiscard]] bool write() {
        if (file_.stream() != nullptr) output_ = attachEncoded(file_.stream());
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
        const EncodedFile input = openEncoded(path, licenseCodePage);
        if (!input) {
            trace("Unable to open ", kind, " file ", path);
            return false;
        }
        // Deliberately the path of the agreement for the information file too: installers look for it in the trace.
        trace("Reading ", kind, " file ", agreementPath_, " in codepage ", u_fgetcodepage(input.get()));
        lastSource_ = path;
        if (!copyUnits(input.get(), output_.get())) {
            trace("Error reading ", kind, " file");
            return false;
        }
        return checkWritten(file_.flush());
    }

    /// Writes what the code page still holds back, once, and closes the file.
    [[nodiscard]] bool finish() {
        output_.reset();
        return checkWritten(file_.close());
    }

    [[nodiscard]] bool checkWritten(bool written) const {
        if (!written) trace("Problems writing to ", outputPath_, " with ", lastSource_);
        return written;
    }

    std::string agreementPath_;
    std::string informationPath_;
    std::string outputPath_;
    std::string lastSource_;
    ReplacedFile file_;
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
