#include "support/sandbox.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

namespace zev::test {

std::string utf16(std::u16string_view text) {
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text) bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    return bytes;
}

Sandbox::Sandbox() {
    std::string name = (std::filesystem::temp_directory_path() / "zev_test_XXXXXX").string();
    root_ = mkdtemp(name.data());
    std::istringstream codes("cs de el en es fr it ja ko lt pl pt ru sl tr zh zh_TW");
    for (std::string code; codes >> code;) {
        const std::u16string wide(code.begin(), code.end());
        write("licenses/LA_" + code, utf16(wide + u" agreement\n"));
        write("licenses/LI_" + code, utf16(wide + u" information\n"));
    }
}

Sandbox::~Sandbox() { std::filesystem::remove_all(root_); }

std::string Sandbox::path(std::string_view name) const { return name.empty() ? root_ : root_ / name; }

Arguments Sandbox::arguments(const Arguments& more) const {
    Arguments all{"-l", path("licenses"), "-s", path("status")};
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

bool Sandbox::has(std::string_view name) const { return std::filesystem::exists(path(name)); }

std::string Sandbox::read(std::string_view name) const {
    std::ifstream file(path(name), std::ios::binary);
    if (!file) return "<no file>";
    return {std::istreambuf_iterator<char>(file), {}};
}

void Sandbox::write(std::string_view name, std::string_view bytes) const {
    std::filesystem::create_directories((root_ / name).parent_path());
    std::ofstream(path(name), std::ios::binary) << bytes;
}

void Sandbox::link(std::string_view name, const std::string& target) const {
    write(name, "");
    remove(name);
    std::filesystem::create_symlink(target, path(name));
}

}  // namespace zev::test
