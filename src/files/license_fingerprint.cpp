#include "files/license_fingerprint.h"

#include <array>
#include <cstdint>

#include "files/license_text_set.h"
#include "lang/language_table.h"

namespace zev {

void Sha256::add(std::string_view bytes) {
    SHA256Update(&context_, reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
}

std::string Sha256::digits() {
    std::array<uint8_t, SHA256_DIGEST_LENGTH> digest;
    SHA256Final(digest.data(), &context_);
    std::string digits;
    for (const uint8_t byte : digest) digits += {"0123456789abcdef"[byte >> 4], "0123456789abcdef"[byte & 0xF]};
    return digits;
}

std::string sha256(std::string_view bytes) {
    Sha256 sum;
    sum.add(bytes);
    return sum.digits();
}

std::string sumLines(std::span<const FileSum> files) {
    std::string lines;
    for (const auto& [name, sum] : files) lines += sum + "  " + name + "\n";
    return lines;
}

std::vector<std::string> licenseFileNames(int languageSet) {
    std::vector<std::string> names;
    for (const LanguageEntry& language : languagesOfSet(languageSet)) names.push_back(agreementName(language.code));
    for (const LanguageEntry& language : languagesOfSet(languageSet)) names.push_back(informationName(language.code));
    names.insert(names.end(), {nonVurTermsName, noticesName});
    return names;
}

std::string licenseFingerprint(std::span<const FileSum> files) { return sha256(sumLines(files)); }

}  // namespace zev
