#include "console/console_input.h"

#include <iostream>

#include "app/debug_trace.h"
#include "app/run_options.h"
#include "console/license_dialog.h"

namespace zev {

namespace {

constexpr const char* inputMark = "[INPUT] ==> ";

}  // namespace

void readInput(LicenseDialog& dialog, std::span<char> buffer) {
    std::cout.flush();
    std::cin.getline(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    // The three records go out one by one, in this order, which shows where they share a file.
    trace(inputMark, buffer.data());
    if (runOptions.echoInput) std::cout << inputMark << buffer.data() << std::endl;
    if (dialog.commandLog.is_open()) dialog.commandLog << buffer.data() << std::endl;
}

}  // namespace zev
