#include "files/sha256.h"

#include <sha2.h>
#include <sys/types.h>

#include <array>
#include <cstdint>

namespace zev {

std::string sha256(std::string_view bytes) {
    SHA2_CTX context;
    SHA256Init(&context);
    SHA256Update(&context, reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    std::array<uint8_t, SHA256_DIGEST_LENGTH> digest;
    SHA256Final(digest.data(), &context);

    std::string digits;
    for (const uint8_t byte : digest) digits += {"0123456789abcdef"[byte >> 4], "0123456789abcdef"[byte & 0xF]};
    return digits;
}

std::string sumLines(std::span<const FileSum> files) {
    std::string lines;
    for (const auto& [name, sum] : files) lines += sum + "  " + name + "\n";
    return lines;
}

}  // namespace zev
