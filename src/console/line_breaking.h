#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zev {

struct LicenseDialog;

/// Display lines in order, each with an appended line feed.
class TextLines {
public:
    /// Makes room for `units` code units of lines. Like `append`, throws std::bad_alloc if memory runs short.
    void reserve(std::size_t units) { units_.reserve(units); }

    void append(std::u16string_view line) {
        units_.append(line).push_back(u'\n');
        ends_.push_back(units_.size());
    }

    [[nodiscard]] std::size_t size() const { return ends_.size(); }

    /// A line with its line feed; it is followed by the next one. Holds until the next `append`.
    [[nodiscard]] std::u16string_view operator[](std::size_t index) const {
        const std::size_t begin = index > 0 ? ends_[index - 1] : 0;
        return std::u16string_view(units_).substr(begin, ends_[index] - begin);
    }

    friend bool operator==(const TextLines&, const TextLines&) = default;

private:
    std::u16string units_;           ///< of all lines, one after the other
    std::vector<std::size_t> ends_;  ///< where each line ends in `units_`
};

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
/// or past the end of the text; if the next piece is too wide too, an empty line follows and the text starts over from
/// that break. All that is deliberate.
///
/// Takes time in proportion to text and result. Null on failure and for an empty text; the trace has the cause.
[[nodiscard]] std::unique_ptr<TextLines> breakText(const LicenseDialog& dialog, const icu::UnicodeString& text,
                                                   int32_t width);

}  // namespace zev
