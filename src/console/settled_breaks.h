#pragma once

#include <cstdint>
#include <string_view>

namespace zev {

/// The last break of a text after `begin` and up to `reach`, if the code units between it and `reach` alone decide it:
/// by their line-breaking classes, they part or hold together in any context and any language.
///
///     The quick brown fox      reach after "fo": letters hold together, and before them a blank between words parts
///
/// `begin` if only a break iterator can tell, and if `reach` is the end of a text that has no line feed there.
[[nodiscard]] int32_t settledBreak(std::u16string_view text, int32_t begin, int32_t reach);

}  // namespace zev
