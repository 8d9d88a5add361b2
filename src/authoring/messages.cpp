#include "authoring/messages.h"

#include <iostream>

#include "authoring/commands.h"
#include "authoring/finding.h"

namespace zev {

std::string nameOfDirectory(std::string directory) {
    while (directory.size() > 1 && directory.ends_with('/')) directory.pop_back();
    return printable(directory);
}

int cannotWork(const std::string& reason) {
    std::cerr << "zev-licenses: " << printable(reason) << std::endl;
    return authoring_status::cannotWork;
}

}  // namespace zev
