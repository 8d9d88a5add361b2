#include <algorithm>
#include <string_view>
#include <utility>

#include "app/run_driver.h"
#ifndef ZEV_ALONE
#include "consent/ask.h"
#include "consent/audit_report.h"
#endif

namespace {

/// Every copy of the executable contains this notice, but nothing prints it. Without `retain` the linker would drop it.
[[gnu::used, gnu::retain]] constexpr char legalNotice[] =
    "This program belongs to its maker and is handed out under a licence agreement.\n"
    "Copyright 2024-2026. All rights that the agreement does not give are reserved.\n"
    "Notice to public authorities: the rights of a government and of its agencies in this program\n"
    "are those of the agreement under which they received it, and no others.\n"
    "VUR\n";

using Command = int (*)(int argc, char** argv);

/// The commands by name; zev is among them, so that the table is not empty where it is alone.
constexpr std::pair<std::string_view, Command> commands[]{
#ifndef ZEV_ALONE
    {"zev-ask", zev::runAsk},
    {"zev-audit", zev::runAudit},
#endif
    {"zev", zev::runDriver},
};

/// The command for the last component of a path; for any other name it is zev.
Command commandOf(std::string_view path) {
    const auto* command =
        std::ranges::find(commands, path.substr(path.rfind('/') + 1), &std::pair<std::string_view, Command>::first);
    return command != std::end(commands) ? command->second : zev::runDriver;
}

}  // namespace

int main(int argc, char** argv) { return commandOf(argc > 0 ? argv[0] : "")(argc, argv); }
