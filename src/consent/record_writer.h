#pragma once

#include <string>

#include "app/run_context.h"
#include "consent/record.h"

namespace zev {

class Terms;

/// Writes the files of the terms into the scratch directory, which is the working directory. On failure errno has the
/// cause.
[[nodiscard]] bool writeTerms(const Terms& terms);

/// The context of a run on these files, in the language of `language` if it is supported, otherwise in that of the
/// locale of the process.
[[nodiscard]] RunContext contextOf(const std::string& language, int languageSet);

/// Makes the record: copies of the terms in UTF-8 as zev makes them, the acceptance and the sums. On failure returns
/// the cause, on success an empty text.
[[nodiscard]] std::string writeRecord(const Fields& fields, const Terms& terms, int languageSet);

}  // namespace zev
