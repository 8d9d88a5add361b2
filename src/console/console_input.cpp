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
    // The echo is out before anything else happens: whatever writes to the same place comes behind it.
    if (runOptions.echoInput) std::cout << inputMark << buffer.data() << std::endl;
    trace(inputMark, buffer.data());
    if (dialog.commandLog.is_open()) dialog.commandLog << buffer.data() << std::endl;
}

}  // namespace zev
