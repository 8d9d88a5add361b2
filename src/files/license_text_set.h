#pragma once

#include <unicode/unistr.h>

#include <string>

namespace zev {

struct RunContext;

/// The files that serve all languages: the terms of other parties and the notices. Both are optional.
inline constexpr const char* nonVurTermsName = "non_vur_license";
inline constexpr const char* noticesName = "notices";

/// The names of one language's licence agreement and licence information, and their paths.
[[nodiscard]] std::string agreementName(const std::string& code);
[[nodiscard]] std::string informationName(const std::string& code);
[[nodiscard]] std::string agreementPath(const RunContext& context, const std::string& code);
[[nodiscard]] std::string informationPath(const RunContext& context, const std::string& code);

/// Loads the agreement of the displayed language, followed by the information if that file exists, into `text`. A
/// U+0000 ends the text. On failure `text` is left alone and the trace has the cause.
[[nodiscard]] bool readLicenseText(const RunContext& context, icu::UnicodeString& text);

/// Loads the other parties' terms in the same way.
[[nodiscard]] bool readNonVurText(const RunContext& context, icu::UnicodeString& text);

[[nodiscard]] bool nonVurTermsExist(const std::string& directory);

/// Whether agreement and information of the language exist. When tracing, a missing file is named on standard output.
[[nodiscard]] bool checkLanguageFiles(const RunContext& context, const std::string& code);

/// Whether every language of the active set is complete; if not, standard output says so. The information files, which
/// loading and copying can do without, are required here on purpose: this guards what was installed.
[[nodiscard]] bool checkAllLicenseFiles(const RunContext& context);

}  // namespace zev
