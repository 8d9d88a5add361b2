#include "consent/terms.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "app/run_options.h"
#include "files/directory_at.h"
#include "files/encoded_text_file.h"
#include "files/license_copies.h"
#include "files/license_fingerprint.h"
#include "files/license_text_set.h"
#include "files/paths.h"
#include "files/regular_file.h"
#include "lang/language_table.h"

namespace zev {

namespace {

constexpr const char* english = "en";

icu::UnicodeString decoded(const std::string& bytes) {
    return {bytes.data(), static_cast<int32_t>(bytes.size()), licenseCodePage};
}

/// Whether a character ends the text early, on the screen or in the copy as well.
bool hidesItsRest(const icu::UnicodeString& text) { return text.indexOf(u'\0') >= 0 || text.indexOf(u'\uFFFF') >= 0; }

std::string inUtf8(const icu::UnicodeString& text) {
    std::string bytes;
    return text.toUTF8String(bytes);
}

}  // namespace

Terms Terms::read(const std::string& directory, int languageSet, std::string& problem) {
    Terms terms;
    if (!Descriptor(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)).isOpen()) {
        problem = "the licence directory " + directory + " cannot be read: " + std::strerror(errno);
        return terms;
    }
    std::vector<FileSum> sums;
    std::string missing;
    const auto needed = licenseFileNames(languageSet);
    for (const std::string& name : licenseFileNames(defaultLanguageSet)) {
        FileContent content = readRegularFile(joinPath(directory, name));
        if (content.problem == missingFile) {
            const bool isOptional = name == nonVurTermsName || name == noticesName;
            if (!isOptional && std::ranges::count(needed, name) > 0) missing += " " + name;
            continue;
        }
        if (!content.good()) {
            problem = joinPath(directory, name) + ": " + content.problem;
            return terms;
        }
        if (hidesItsRest(decoded(content.bytes))) {
            problem = joinPath(directory, name) + ": it has a U+0000 or a U+FFFF, which hides the rest of the text";
            return terms;
        }
        sums.push_back({name, sha256(content.bytes)});
        terms.files_.push_back({name, std::move(content.bytes)});
    }
    if (!missing.empty()) problem = "the licence files in " + directory + " are incomplete; missing:" + missing;
    terms.fingerprint_ = licenseFingerprint(sums);
    return terms;
}

std::string Terms::languageOfText(const std::string& code) const {
    const icu::UnicodeString text = decoded(bytesOf(agreementName(code)));
    if (decoded(bytesOf(agreementName(english))) == text) return english;
    for (const LanguageEntry& earlier : languagesOfSet(defaultLanguageSet)) {
        if (earlier.code == code || decoded(bytesOf(agreementName(earlier.code))) == text) return earlier.code;
    }
    return code;
}

icu::UnicodeString Terms::text(const std::string& code) const {
    return decoded(bytesOf(agreementName(code))) + decoded(bytesOf(informationName(code)));
}

std::string Terms::textInUtf8(const std::string& code) const { return inUtf8(text(code)); }

std::string Terms::fileInUtf8(const std::string& name) const { return inUtf8(decoded(bytesOf(name))); }

std::map<std::string, std::string> Terms::sumsOfCopies(int languageSet) const {
    std::map<std::string, std::string> sums;
    for (const LanguageEntry& language : languagesOfSet(languageSet)) {
        sums[std::string(language.englishName) + copySuffix] = sha256(textInUtf8(language.code));
    }
    for (const char* name : {nonVurTermsName, noticesName}) {
        const bool isThere = std::ranges::find(files_, name, &TermsFile::name) != files_.end();
        if (isThere) sums[std::string(name) + copySuffix] = sha256(fileInUtf8(name));
    }
    return sums;
}

const std::string& Terms::bytesOf(const std::string& name) const {
    static const std::string none;
    const auto file = std::ranges::find(files_, name, &TermsFile::name);
    return file != files_.end() ? file->bytes : none;
}

}  // namespace zev
