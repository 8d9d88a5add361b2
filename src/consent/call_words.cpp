#include "consent/call_words.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "consent/legibility.h"
#include "files/paths.h"
#include "lang/environment_locale.h"

namespace zev {

namespace fs = std::filesystem;

std::string absolutePath(const std::string& path) {
    std::error_code error;
    if (path.starts_with('/')) return path;
    const fs::path here = fs::current_path(error);
    return error ? "" : joinPath(here, path);
}

std::string shellWord(const std::string& text) {
    const auto isPlain = [](unsigned char c) {
        return std::isalnum(c) != 0 ||
               std::string_view("/._+-:@%=,").find(static_cast<char>(c)) != std::string_view::npos;
    };
    if (!text.empty() && std::ranges::all_of(text, isPlain)) return text;
    const std::string shown = printableText(text);
    const bool isHidden = shown != text;
    std::string word = "'";
    for (const char c : shown) {
        if (c == '\'') {
            word += "'\\''";
        } else if (c == '?' && isHidden) {
            word += "'?'";
        } else {
            word += c;
        }
    }
    return word + "'";
}

std::string pathOfCommand(const char* calledAs) {
    const std::string name = calledAs;
    if (name.find('/') != std::string::npos) return absolutePath(name);
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    const fs::path beside = executable.parent_path() / name;
    return !error && fs::exists(beside, error) ? beside.string() : name;
}

void adoptTerminalLocale() {
    constexpr const char* utf8 = ".UTF-8";
    const std::string value = environmentLocale();
    const std::string language = value.substr(0, value.find_first_of(".@"));
    const auto dot = value.find('.');
    const bool hasCodeSet = dot != std::string::npos && dot + 1 < value.size() && value[dot + 1] != '@';
    std::string bare = value;
    std::ranges::transform(bare, bare.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (hasCodeSet || bare == "utf-8" || bare == "utf8") return adoptLocale(value);
    adoptLocale((language.empty() ? "C" : language) + utf8);
}

std::string whyNobody() {
    const auto valueOf = [](const char* variable) {
        const char* value = std::getenv(variable);
        return std::string(value != nullptr ? value : "");
    };
    if (valueOf("DEBIAN_FRONTEND") == "noninteractive") return "DEBIAN_FRONTEND is noninteractive";
    const std::string builder = valueOf("CI");
    return builder.empty() || builder == "false" || builder == "0" ? "" : "CI is set";
}

}  // namespace zev
