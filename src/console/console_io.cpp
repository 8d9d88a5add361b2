#include "console/console_io.h"

#include <iostream>

#include "app/debug_trace.h"
#include "app/run_options.h"
#include "console/license_dialog.h"
#include "lang/environment_locale.h"

namespace zev {

namespace {

constexpr const char* inputMark = "[INPUT] ==> ";

}  // namespace

void writeLines(const TextLines& lines) { writePage(lines, {0, lines.size(), 0}); }

void writeEmptyLines(std::size_t count) {
    while (count-- > 0) std::cout << '\n';
}

void writePage(const TextLines& lines, const Page& page) {
    for (std::size_t index = page.begin; index < page.end; ++index) std::cout << InCodePage{lines[index]};
    writeEmptyLines(page.emptyLines);
}

void readInput(LicenseDialog& dialog, std::span<char> buffer) {
    std::cout.flush();
    std::cin.getline(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    // Each record is flushed before the next: if they share a file, installers rely on this order.
    trace(inputMark, buffer.data());
    if (runOptions.echoInput) std::cout << inputMark << buffer.data() << std::endl;
    if (dialog.commandLog.is_open()) dialog.commandLog << buffer.data() << std::endl;
}

}  // namespace zev
