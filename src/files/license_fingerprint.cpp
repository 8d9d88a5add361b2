#include "files/license_fingerprint.h"

#include "files/license_text_set.h"
#include "lang/language_table.h"

namespace zev {

std::vector<std::string> licenseFileNames(int languageSet) {
    std::vector<std::string> names;
    for (const LanguageEntry& language : languagesOfSet(languageSet)) names.push_back(agreementName(language.code));
    for (const LanguageEntry& language : languagesOfSet(languageSet)) names.push_back(informationName(language.code));
    names.insert(names.end(), {nonVurTermsName, noticesName});
    return names;
}

std::string licenseFingerprint(std::span<const FileSum> files) { return sha256(sumLines(files)); }

}  // namespace zev
