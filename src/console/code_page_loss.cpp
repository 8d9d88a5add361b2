#include "console/code_page_loss.h"

#include <unicode/localpointer.h>
#include <unicode/uchar.h>
#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>
#include <vector>

namespace zev {

namespace {

icu::LocalUConverterPointer openConverter(const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    return icu::LocalUConverterPointer(ucnv_open(name.c_str(), &status));
}

/// ICU calls this for each character that the code page lacks, unpaired surrogates included. It counts the character
/// and writes nothing in its place.
void U_CALLCONV countLost(const void* loss, UConverterFromUnicodeArgs*, const char16_t*, int32_t, UChar32 character,
                          UConverterCallbackReason reason, UErrorCode* status) {
    if (reason > UCNV_IRREGULAR) return;  // not a character, but a reset or the end
    ++static_cast<CodePageLoss*>(const_cast<void*>(loss))->characters[character];
    *status = U_ZERO_ERROR;
}

std::string shown(UChar32 character) {
    if (u_isgraph(character) && U_IS_UNICODE_CHAR(character) && u_charType(character) != U_NON_SPACING_MARK) {
        std::string bytes;
        return icu::UnicodeString(character).toUTF8String(bytes);
    }
    return codePointName(character);
}

}  // namespace

std::string codePointName(UChar32 character) {
    std::array<char, 16> name;
    std::snprintf(name.data(), name.size(), "U+%04X", static_cast<unsigned>(character));
    return name.data();
}

std::size_t CodePageLoss::count() const {
    std::size_t sum = 0;
    for (const auto& [character, count] : characters) sum += count;
    return sum;
}

std::string CodePageLoss::list() const {
    constexpr std::size_t most = 40;
    std::vector<std::pair<UChar32, std::size_t>> sorted(characters.begin(), characters.end());
    std::ranges::stable_sort(sorted, std::ranges::greater{}, [](const auto& entry) { return entry.second; });
    std::string list;
    for (const auto& [character, count] : std::span(sorted).first(std::min(most, sorted.size()))) {
        list += (list.empty() ? "" : " ") + shown(character);
    }
    return sorted.size() > most ? list + " and " + std::to_string(sorted.size() - most) + " more" : list;
}

bool isCodePage(const std::string& name) { return openConverter(name).isValid(); }

CodePageLoss lossIn(const std::string& codePage, const icu::UnicodeString& text) {
    CodePageLoss loss;
    const auto converter = openConverter(codePage);
    UErrorCode status = U_ZERO_ERROR;
    if (converter.isValid()) {
        ucnv_setFromUCallBack(converter.getAlias(), countLost, &loss, nullptr, nullptr, &status);
    }
    const char16_t* source = text.getBuffer();
    const char16_t* const end = source + text.length();
    std::array<char, 4096> bytes;
    while (converter.isValid() && source < end) {
        char* target = bytes.data();
        status = U_ZERO_ERROR;
        ucnv_fromUnicode(converter.getAlias(), &target, bytes.data() + bytes.size(), &source, end, nullptr, true,
                         &status);
        if (U_FAILURE(status) && status != U_BUFFER_OVERFLOW_ERROR) break;
    }
    return loss;
}

}  // namespace zev
