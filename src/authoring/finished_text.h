#pragma once

#include <unicode/unistr.h>

#include <string>

#include "authoring/set_files.h"

namespace zev {

/// The bytes of a text as it stands in a set: UTF-16, big-endian with a mark, without carriage returns, which zev takes
/// for characters like any other (one that is not part of a line end becomes a line feed); the agreement ends with a
/// line feed, and the information begins with one. Nothing else changes.
[[nodiscard]] std::string finishedText(icu::UnicodeString text, TextKind kind);

/// Why a directory may not be replaced by a set: it holds something that `finishedText` would not have written. Nothing
/// when it may, or is not there.
[[nodiscard]] std::string whyNotReplaceable(const std::string& directory);

}  // namespace zev
