#pragma once

#include <string>

#include "app/run_context.h"
#include "consent/record.h"

namespace zev {

class Terms;

/// Lays the files of the terms into the scratch directory, which is the working directory. On failure errno has the
/// cause.
[[nodiscard]] bool writeTerms(const Terms& terms);

/// The context of a run on them, in the language of the locale of the process or in that of `language`, if there is
/// such.
[[nodiscard]] RunContext contextOf(const std::string& language, int languageSet);

/// Makes the record: copies of the terms in UTF-8 as zev makes them, the acceptance and the sums. Returns why that
/// could not be done, or nothing.
[[nodiscard]] std::string writeRecord(const Fields& fields, const Terms& terms, int languageSet);

}  // namespace zev
