#include "console/non_vur_pager.h"

#include <array>
#include <iostream>

#include "app/debug_trace.h"
#include "console/console_io.h"
#include "console/license_dialog.h"
#include "console/line_breaking.h"
#include "console/screens.h"
#include "files/license_text_set.h"

namespace zev {

bool showNonVurTerms(LicenseDialog& dialog) {
    icu::UnicodeString text;
    if (!readNonVurText(dialog.context, text)) {
        trace("Error getting non-VUR license text");
        return false;
    }
    const auto lines = breakText(dialog, text, dialog.size.width);
    if (!lines) {
        trace("Failed breakText for non-VUR license text");
        return false;
    }

    std::array<char, answerSize> answer;
    Page page;
    do {
        page = pageOfTerms(*lines, page.end, dialog.size.height);
        writePage(*lines, page);
        writeEmptyLines(2);
        std::cout << morePrompt << '\n';
        readInput(dialog, answer);
    } while (answer[0] != 'q' && answer[0] != 'Q');
    return true;
}

}  // namespace zev
