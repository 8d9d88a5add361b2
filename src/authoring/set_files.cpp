#include "authoring/set_files.h"

#include "files/license_text_set.h"

namespace zev {

std::vector<SetFile> filesOfSet(int languageSet) {
    std::vector<SetFile> files;
    for (const auto& [code, englishName] : languagesOfSet(languageSet)) {
        const LanguageProfile* language = &profileOf(code);
        files.push_back({agreementName(code), TextKind::agreement, language});
        files.push_back({informationName(code), TextKind::information, language});
    }
    files.push_back({nonVurTermsName, TextKind::otherPartiesTerms, nullptr});
    files.push_back({noticesName, TextKind::notices, nullptr});
    return files;
}

}  // namespace zev
