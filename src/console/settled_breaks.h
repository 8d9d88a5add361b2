#pragma once

#include <cstdint>
#include <string_view>

namespace zev {

/// The last break of a text behind `begin` and not behind `reach`, if the code units between it and `reach` settle it
/// by themselves: if, by their line-breaking classes, they part or hold together in any context and any language.
///
///     The quick brown fox      reach behind "fo": letters hold together, and before them a blank between words parts
///
/// `begin` where only a break iterator can tell, and where `reach` is the end of the text without a line feed.
[[nodiscard]] int32_t settledBreak(std::u16string_view text, int32_t begin, int32_t reach);

}  // namespace zev
