#pragma once

#include <unicode/brkiter.h>

#include <memory>

#include "console/license_dialog.h"
#include "console/line_breaking.h"

namespace zev {

/// What breakText does, in the plainest form: everything is measured and searched anew at every step. The tests and the
/// fuzz targets compare the two. The result for an empty text is empty.
inline TextLines breakPlainly(const LicenseDialog& dialog, const icu::UnicodeString& text, int32_t width) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> iterator(
        icu::BreakIterator::createLineInstance(*dialog.currentLocale, status));
    iterator->setText(text);
    TextLines lines;
    int32_t start = iterator->first(), end = start, nextPos = iterator->next();
    const auto add = [&](int32_t to) {
        const icu::UnicodeString line(text, start, to - start);
        lines.append({line.getBuffer(), static_cast<std::size_t>(line.length())});
    };
    while (end != icu::BreakIterator::DONE) {
        const icu::UnicodeString candidate(text, start, nextPos - start);
        if (const int32_t newline = text.indexOf(u'\n', start, end - start); newline >= 0) {
            add(newline);
            start = end = newline + 1;
        } else if (displayWidth(dialog, candidate) < width) {
            end = nextPos;
            nextPos = iterator->next();
        } else {
            if (start == end) end = start + width;
            add(end);
            start = end;
        }
    }
    if (iterator->last() > start) add(iterator->last());
    return lines;
}

}  // namespace zev
