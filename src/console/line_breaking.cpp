#include "console/line_breaking.h"

#include <unicode/brkiter.h>
#include <unicode/utext.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <string_view>

#include "app/debug_trace.h"
#include "app/run_context.h"
#include "app/run_options.h"
#include "console/license_dialog.h"
#include "console/settled_breaks.h"
#include "lang/environment_locale.h"

namespace zev {

namespace {

constexpr char16_t newline = u'\n';

template <class... Pieces>
void traceBreaking(const Pieces&... pieces) {
    if (runOptions.breakTextTrace) writeTraceLine(pieces...);
}

bool hasDoubleWidth(const icu::Locale& locale) {
    const std::string_view language = locale.getLanguage();
    for (const icu::Locale* wide : {&icu::Locale::getKorean(), &icu::Locale::getJapanese(), &icu::Locale::getChinese(),
                                    &icu::Locale::getTaiwan()}) {
        if (language == wide->getLanguage()) return true;
    }
    return false;
}

/// Whether a locale asks for a style of breaking of its own, as "ja@lw=phrase" does.
bool hasKeywords(const icu::Locale& locale) { return std::strchr(locale.getName(), '@') != nullptr; }

int32_t columnsOf(char16_t unit, bool doubleWidth) { return doubleWidth && unit >= 128 ? 2 : 1; }

std::unique_ptr<icu::BreakIterator> createLineIterator(const icu::Locale& locale) {
    UErrorCode status;
    // ICU refuses some locales with long names; then the rules are those of the language alone.
    for (const icu::Locale& candidate : {locale, icu::Locale(locale.getLanguage())}) {
        status = U_ZERO_ERROR;
        std::unique_ptr<icu::BreakIterator> iterator(icu::BreakIterator::createLineInstance(candidate, status));
        if (U_SUCCESS(status) && iterator) return iterator;
    }
    trace("Unable to create a BreakIterator");
    trace("UErrorCode = ", static_cast<int>(status));
    return nullptr;
}

/// The breaks of a text as the iterator finds them, one after the other.
class Breaks {
public:
    static constexpr int32_t done = icu::BreakIterator::DONE;

    Breaks(icu::BreakIterator& iterator, std::u16string_view text) : iterator_(iterator), text_(text) {}

    /// The first break after `begin`. The text starts there or has a settled break there, so what stands before it has
    /// no effect.
    int32_t following(int32_t begin) {
        begin_ = begin;
        const std::u16string_view rest = text_.substr(static_cast<std::size_t>(begin));
        UText input = UTEXT_INITIALIZER;
        UErrorCode status = U_ZERO_ERROR;
        utext_openUChars(&input, rest.data(), static_cast<int64_t>(rest.size()), &status);
        iterator_.setText(&input, status);
        utext_close(&input);
        return next();
    }

    int32_t next() {
        const int32_t position = iterator_.next();
        return position == done ? done : begin_ + position;
    }

private:
    icu::BreakIterator& iterator_;
    std::u16string_view text_;
    int32_t begin_ = 0;  ///< of the part of the text that the iterator sees
};

/// An empty result with room for the lines of the text; null if memory runs short.
std::unique_ptr<TextLines> createLines(std::u16string_view text) {
    try {
        auto lines = std::make_unique<TextLines>();
        lines->reserve(text.size());
        return lines;
    } catch (const std::bad_alloc&) {
        trace("Unable to allocate result in breakText");
        return nullptr;
    }
}

/// Appends `text` from `begin` to `end`. Both are limited to the text; if the end is before the begin, the line is
/// empty. `block` numbers the three places that make lines, for the trace. False if memory runs short.
bool addLine(TextLines& lines, std::u16string_view text, int32_t begin, int32_t end, int block) {
    const auto from = std::min(static_cast<std::size_t>(begin), text.size());
    const std::u16string_view line = text.substr(from, static_cast<std::size_t>(std::max(end - begin, 0)));
    traceBreaking("Got string ", block, ": '", InCodePage{line}, "'");
    try {
        lines.append(line);
        return true;
    } catch (const std::bad_alloc&) {
        trace("Unable to allocate a new UnicodeString in breakText block ", block);
        return false;
    }
}

/// The furthest end of a line from `begin` that is narrower than `width`; a line feed ends the line.
int32_t reachOf(std::u16string_view text, int32_t begin, int32_t width, bool doubleWidth) {
    const auto length = static_cast<int32_t>(text.size());
    int32_t end = begin;
    for (int32_t columns = 0; end < length; ++end) {
        const char16_t unit = text[static_cast<std::size_t>(end)];
        columns += columnsOf(unit, doubleWidth);
        if (columns >= width) break;
        if (unit == newline) return end + 1;
    }
    return end;
}

/// There is always a break after a line feed, so a line feed can only be the last code unit of a line.
bool endsInNewline(std::u16string_view text, int32_t begin, int32_t end) {
    return end > begin && text[static_cast<std::size_t>(end) - 1] == newline;
}

}  // namespace

int32_t displayWidth(const LicenseDialog& dialog, const icu::UnicodeString& text) {
    const bool doubleWidth = hasDoubleWidth(dialog.context.locale);
    int32_t columns = 0;
    for (int32_t index = 0; index < text.length(); ++index) columns += columnsOf(text[index], doubleWidth);
    return columns;
}

std::unique_ptr<TextLines> breakText(const LicenseDialog& dialog, const icu::UnicodeString& text, int32_t width) {
    // Deliberately the dialogue's locale: after a refused switch it differs from the context's, which decides widths.
    const icu::Locale& locale = *dialog.currentLocale;
    const auto iterator = createLineIterator(locale);
    if (!iterator) return nullptr;
    const std::u16string_view units(text.getBuffer(), static_cast<std::size_t>(text.length()));
    auto lines = createLines(units);
    if (!lines) return nullptr;

    const bool doubleWidth = hasDoubleWidth(dialog.context.locale);
    // If breaking is traced, every step is taken.
    const bool maySkip = !runOptions.breakTextTrace && !hasKeywords(locale);
    Breaks breaks(*iterator, units);
    int32_t start = 0;
    int32_t end = start;
    int32_t nextPos = breaks.following(start);
    int32_t reach = 0;
    // Adds the lines from `start` on that end at a settled break. They need no iterator, which continues after them.
    const auto addSettledLines = [&] {
        const int32_t first = start;
        for (;;) {
            reach = reachOf(units, start, width, doubleWidth);
            if (!maySkip || nextPos > reach) break;
            end = settledBreak(units, start, reach);
            if (end == start) break;
            const bool hard = endsInNewline(units, start, end);
            if (!addLine(*lines, units, start, hard ? end - 1 : end, hard ? 1 : 2)) return false;
            start = end;
        }
        if (start > first) nextPos = breaks.following(start);
        return true;
    };

    if (!addSettledLines()) return nullptr;
    while (end != Breaks::done) {
        traceBreaking("-------------------");
        traceBreaking("start   : ", start);
        traceBreaking("end     : ", end);
        traceBreaking("nextPos : ", nextPos);

        if (endsInNewline(units, start, end)) {
            if (!addLine(*lines, units, start, end - 1, 1)) return nullptr;
        } else if (nextPos <= reach) {
            end = nextPos;
            nextPos = breaks.next();
            continue;
        } else {
            if (start == end) end = start + width;
            if (!addLine(*lines, units, start, end, 2)) return nullptr;
        }
        start = end;
        if (!addSettledLines()) return nullptr;
    }
    if (text.length() > start && !addLine(*lines, units, start, text.length(), 3)) return nullptr;

    if (lines->size() == 0) {
        trace("Function breakText ended up with a vector of size ", lines->size());
        return nullptr;
    }
    return lines;
}

}  // namespace zev
