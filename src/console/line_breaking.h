#pragma once

#include <unicode/unistr.h>

#include <cstdint>
#include <memory>

#include "console/text_lines.h"

namespace zev {

struct LicenseDialog;

/// The width of a text in columns. In Japanese, Korean and Chinese every code unit beyond ASCII takes two columns (a
/// surrogate pair thus four); elsewhere every code unit takes one.
[[nodiscard]] int32_t displayWidth(const LicenseDialog& dialog, const icu::UnicodeString& text);

/// Cuts a text into lines narrower than `width` columns, at the break opportunities of Unicode Standard Annex #14 as
/// ICU has them for the dialogue's current locale, and at the line feeds of the text:
///
///     The |quick |brown-|fox.\n|Done    permitted breaks
///
///     The quick                         at width 12: trailing blanks stay and count, and
///     brown-fox.                        a line holds at most 11 columns with its line feed
///     Done
///
/// A piece between two breaks that alone is too wide is cut after exactly `width` code units, whatever stands there,
/// even inside a surrogate pair. In the double-width languages such a cut may run past the next break, past a line feed
/// or past the end of the text; where the next piece is too wide as well, an empty line follows and the text starts
/// over from that break. All that is deliberate.
///
/// Takes time in proportion to text and result. Null on failure, an empty text included; the trace has the cause.
[[nodiscard]] std::unique_ptr<TextLines> breakText(const LicenseDialog& dialog, const icu::UnicodeString& text,
                                                   int32_t width);

}  // namespace zev
