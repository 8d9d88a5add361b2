#pragma once

#include <span>
#include <string>
#include <string_view>

namespace zev {

/// The SHA-256 of bytes, FIPS 180-4, as 64 hexadecimal digits in lower case.
[[nodiscard]] std::string sha256(std::string_view bytes);

struct FileSum {
    std::string name;
    std::string sum;  ///< as sha256 gives it
};

/// The lines that sha256sum writes for files whose names need no escapes.
[[nodiscard]] std::string sumLines(std::span<const FileSum> files);

}  // namespace zev
