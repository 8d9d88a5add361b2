#include "files/directory_listing.h"

#include <algorithm>
#include <filesystem>

namespace zev {

bool listDirectory(const std::string& directory, std::vector<std::string>& names, std::string& problem) {
    namespace fs = std::filesystem;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error)) {
        names.push_back(entry->path().filename());
    }
    if (error) problem = directory + ": " + error.message();
    std::ranges::sort(names);
    return !error;
}

}  // namespace zev
