#include "files/license_text_set.h"

#include <iostream>
#include <limits>
#include <span>
#include <utility>
#include <vector>

#include "app/debug_trace.h"
#include "app/run_context.h"
#include "files/encoded_text_file.h"
#include "files/paths.h"
#include "lang/language_table.h"
#include "lang/resource.h"

namespace zev {

namespace {

constexpr const char* agreementPrefix = "LA";
constexpr const char* informationPrefix = "LI";
constexpr const char* prefixSeparator = "_";

struct Source {
    std::string path;
    const char* readError;  ///< the trace line if the file does not hold what was counted
    std::size_t count = 0;  ///< code units
};

/// Joins the sources into `text`. Each file is read twice, to count and to store, so that the buffer is allocated once
/// and exactly.
bool load(const RunContext& context, std::span<Source> sources, const char* sizeMessage, icu::UnicodeString& text) {
    std::size_t total = 0;
    for (Source& source : sources) {
        if (!countFileChars(source.path, licenseCodePage, source.count)) return false;
        total += source.count;
    }
    trace(sizeMessage, total);
    if (total >= std::numeric_limits<int32_t>::max()) {
        trace("License text is too long");
        return false;
    }

    icu::UnicodeString loaded;
    char16_t* next = loaded.getBuffer(static_cast<int32_t>(total + 1));
    if (next == nullptr) {
        trace("Unable to allocate licenseBuffer");
        return false;
    }
    for (const Source& source : sources) {
        if (readLicenseFile(context, source.path, {next, source.count}) != source.count) {
            trace(source.readError);
            return false;
        }
        next += source.count;
    }
    *next = 0;
    loaded.releaseBuffer();  // up to the first U+0000

    text = std::move(loaded);
    return true;
}

bool checkFile(const std::string& path) {
    if (fileExists(path)) return true;
    if (isTracing()) std::cout << "Error: Missing license file " << path << std::endl;
    return false;
}

}  // namespace

std::string agreementName(const std::string& code) { return agreementPrefix + (prefixSeparator + code); }

std::string informationName(const std::string& code) { return informationPrefix + (prefixSeparator + code); }

std::string agreementPath(const RunContext& context, const std::string& code) {
    return joinPath(context.licenseDir, agreementName(code));
}

std::string informationPath(const RunContext& context, const std::string& code) {
    return joinPath(context.licenseDir, informationName(code));
}

bool readLicenseText(const RunContext& context, icu::UnicodeString& text) {
    const std::string code = context.resource->getLanguageCode();
    std::vector<Source> sources{{agreementPath(context, code), "Error reading LA file"}};
    if (!fileExists(sources.front().path)) {
        trace("The LA file does not exist at ", sources.front().path);
        return false;
    }
    Source information{informationPath(context, code), "Error reading LI file"};
    if (fileExists(information.path)) sources.push_back(std::move(information));
    return load(context, sources, "Total license text size is ", text);
}

bool readNonVurText(const RunContext& context, icu::UnicodeString& text) {
    Source terms{joinPath(context.licenseDir, nonVurTermsName), "Error reading non-VUR file"};
    return load(context, {&terms, 1}, "Total non-VUR license text size is ", text);
}

bool nonVurTermsExist(const std::string& directory) { return fileExists(joinPath(directory, nonVurTermsName)); }

bool checkLanguageFiles(const RunContext& context, const std::string& code) {
    const bool hasAgreement = checkFile(agreementPath(context, code));
    const bool hasInformation = checkFile(informationPath(context, code));
    return hasAgreement && hasInformation;
}

bool checkAllLicenseFiles(const RunContext& context) {
    bool complete = true;
    for (unsigned index = 0; const LanguageEntry* language = languageEntry(context, index); ++index) {
        if (!checkLanguageFiles(context, language->code)) complete = false;
    }
    if (!complete) std::cout << "Error: License agreement file missing. Aborted." << std::endl;
    return complete;
}

}  // namespace zev
