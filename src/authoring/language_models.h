#pragma once

#include <span>
#include <string_view>

namespace zev {

/// What a text in one language is compared with: its frequent letter groups, in the format of libexttextcat.
struct LanguageModel {
    const char* code;
    std::string_view letterGroups;
};

/// Those of the languages in Latin script, as they came with libexttextcat when this was built.
[[nodiscard]] std::span<const LanguageModel> languageModels();

}  // namespace zev
