#include "authoring/double_encoding.h"

#include <unicode/localpointer.h>
#include <unicode/ucnv.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

#include "authoring/text_encoding.h"

namespace zev {

namespace {

bool isUtf8In(UConverter* codePage, const icu::UnicodeString& line) {
    std::string bytes(static_cast<std::size_t>(line.length()), '\0');
    UErrorCode status = U_ZERO_ERROR;
    ucnv_fromUChars(codePage, bytes.data(), line.length(), line.getBuffer(), line.length(), &status);
    constexpr auto isTrail = [](char byte) { return U8_IS_TRAIL(byte); };
    icu::UnicodeString decoded;
    // One such pair can be meant, as at the end of "CAFÉ®".
    return U_SUCCESS(status) && std::ranges::count_if(bytes, isTrail) > 1 && decodeUtf8(bytes, decoded) == bytes.size();
}

DoubleEncoding findIn(const icu::UnicodeString& text, const char* codePage) {
    DoubleEncoding found{codePage};
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUConverterPointer converter(ucnv_open(codePage, &status));
    ucnv_setFromUCallBack(converter.getAlias(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    std::size_t line = 1;
    for (int32_t begin = 0, end; U_SUCCESS(status) && begin < text.length(); begin = end + 1, ++line) {
        end = text.indexOf(u'\n', begin);
        if (end < 0) end = text.length();
        if (!isUtf8In(converter.getAlias(), text.tempSubStringBetween(begin, end))) continue;
        if (found.lines++ == 0) found.firstLine = line;
    }
    return found;
}

}  // namespace

DoubleEncoding findDoubleEncoding(const icu::UnicodeString& text, const LanguageProfile* language) {
    DoubleEncoding most = findIn(text, "windows-1252");
    for (const char* codePage : language != nullptr ? language->codePages : std::span<const char* const>{}) {
        if (!std::string_view(codePage).starts_with("windows-")) continue;
        const DoubleEncoding found = findIn(text, codePage);
        if (found.lines >= most.lines) most = found;
    }
    return most;
}

}  // namespace zev
