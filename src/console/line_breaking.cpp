#include "console/line_breaking.h"

#include <unicode/brkiter.h>

#include <algorithm>
#include <new>
#include <string_view>

#include "app/debug_trace.h"
#include "app/run_context.h"
#include "app/run_options.h"
#include "console/license_dialog.h"
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

/// The width of candidates that begin and end ever further on, measured by what their ends have moved over.
class CandidateWidth {
public:
    CandidateWidth(const LicenseDialog& dialog, const icu::UnicodeString& text) : dialog_(dialog), text_(text) {}

    int64_t columns(int32_t begin, int32_t end) {
        if (end <= begin) return 0;
        move(begin_, begin);
        move(end_, end);
        return end_.columns - begin_.columns;
    }

private:
    struct Position {
        int32_t index = 0;
        int64_t columns = 0;  ///< from the start of the text
    };

    void move(Position& position, int32_t index) const {
        const auto [from, to] = std::minmax({position.index, index});
        const int32_t passed = displayWidth(dialog_, text_.tempSubStringBetween(from, to));
        position.columns += index < position.index ? -passed : passed;
        position.index = index;
    }

    const LicenseDialog& dialog_;
    const icu::UnicodeString& text_;
    Position begin_;
    Position end_;
};

/// Finds line feeds in ranges that begin and end ever further on, without looking at a code unit twice.
class NewlineSearch {
public:
    explicit NewlineSearch(const icu::UnicodeString& text) : text_(text) {}

    /// The position of the first line feed in [begin, end), or a negative number.
    int32_t find(int32_t begin, int32_t end) {
        // A cut that ran past a break lets the next line begin before the last one did: search anew from there.
        if (begin < begin_) cleared_ = begin;
        begin_ = begin;
        cleared_ = std::max(cleared_, begin);
        const int32_t found = text_.indexOf(newline, cleared_, end - cleared_);
        if (found < 0) cleared_ = std::max(cleared_, end);
        return found;
    }

private:
    const icu::UnicodeString& text_;
    int32_t begin_ = 0;
    int32_t cleared_ = 0;  ///< no line feed from begin_ to here
};

std::unique_ptr<icu::BreakIterator> createLineIterator(const icu::Locale& locale) {
    UErrorCode status;
    // ICU refuses some locales whose name is longer than it expects; their language has rules all the same.
    for (const icu::Locale& candidate : {locale, icu::Locale(locale.getLanguage())}) {
        status = U_ZERO_ERROR;
        std::unique_ptr<icu::BreakIterator> iterator(icu::BreakIterator::createLineInstance(candidate, status));
        if (U_SUCCESS(status) && iterator) return iterator;
    }
    trace("Unable to create a BreakIterator");
    trace("UErrorCode = ", static_cast<int>(status));
    return nullptr;
}

/// An empty result with room for the lines of the text; null when memory is short.
std::unique_ptr<TextLines> createLines(const icu::UnicodeString& text) {
    try {
        auto lines = std::make_unique<TextLines>();
        lines->reserve(static_cast<std::size_t>(text.length()));
        return lines;
    } catch (const std::bad_alloc&) {
        trace("Unable to allocate result in breakText");
        return nullptr;
    }
}

/// Appends `text` from `begin` to `end`, both pinned to the text and an end before the begin taken for none. `block`
/// numbers the three places that make lines, for the trace. False when memory is short.
bool addLine(TextLines& lines, const icu::UnicodeString& text, int32_t begin, int32_t end, int block) {
    const std::u16string_view units(text.getBuffer(), static_cast<std::size_t>(text.length()));
    const auto from = std::min(static_cast<std::size_t>(begin), units.size());
    const std::u16string_view line = units.substr(from, static_cast<std::size_t>(std::max(end - begin, 0)));
    traceBreaking("Got string ", block, ": '", InCodePage{line}, "'");
    try {
        lines.append(line);
        return true;
    } catch (const std::bad_alloc&) {
        trace("Unable to allocate a new UnicodeString in breakText block ", block);
        return false;
    }
}

}  // namespace

int32_t displayWidth(const LicenseDialog& dialog, const icu::UnicodeString& text) {
    if (!hasDoubleWidth(dialog.context.locale)) return text.length();
    const char16_t* units = text.getBuffer();
    const auto wide = std::count_if(units, units + text.length(), [](char16_t unit) { return unit >= 128; });
    return text.length() + static_cast<int32_t>(wide);
}

std::unique_ptr<TextLines> breakText(const LicenseDialog& dialog, const icu::UnicodeString& text, int32_t width) {
    // Deliberately the dialogue's locale: after a switch that was refused it is not the context's, which widths follow.
    const auto iterator = createLineIterator(*dialog.currentLocale);
    if (!iterator) return nullptr;
    iterator->setText(text);
    int32_t start = iterator->first();
    int32_t end = start;
    int32_t nextPos = iterator->next();

    auto lines = createLines(text);
    if (!lines) return nullptr;
    CandidateWidth candidate(dialog, text);
    NewlineSearch newlines(text);
    while (end != icu::BreakIterator::DONE) {
        traceBreaking("-------------------");
        traceBreaking("start   : ", start);
        traceBreaking("end     : ", end);
        traceBreaking("nextPos : ", nextPos);

        if (const int32_t newlineAt = newlines.find(start, end); newlineAt >= 0) {
            if (!addLine(*lines, text, start, newlineAt, 1)) return nullptr;
            start = end = newlineAt + 1;
        } else if (candidate.columns(start, nextPos) < width) {
            end = nextPos;
            nextPos = iterator->next();
        } else {
            if (start == end) end = start + width;
            if (!addLine(*lines, text, start, end, 2)) return nullptr;
            start = end;
        }
    }
    if (text.length() > start && !addLine(*lines, text, start, text.length(), 3)) return nullptr;

    if (lines->size() == 0) {
        trace("Function breakText ended up with a vector of size ", lines->size());
        return nullptr;
    }
    return lines;
}

}  // namespace zev
