#include "authoring/set_files.h"

#include "app/run_context.h"
#include "files/license_text_set.h"
#include "lang/resource.h"

namespace zev {

std::vector<LanguageEntry> languagesOfSet(int languageSet) {
    RunContext context;
    context.languageSet = languageSet;
    std::vector<LanguageEntry> languages;
    for (unsigned index = 0; const LanguageEntry* language = languageEntry(context, index); ++index) {
        languages.push_back(*language);
    }
    return languages;
}

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
