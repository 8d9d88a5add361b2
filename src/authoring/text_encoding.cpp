#include "authoring/text_encoding.h"

#include <unicode/localpointer.h>
#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "authoring/finding.h"
#include "console/code_page_loss.h"

namespace zev {

namespace {

using namespace std::string_view_literals;

constexpr auto utf8Mark = "\xEF\xBB\xBF"sv;
constexpr auto bigEndianMark = "\xFE\xFF"sv;
constexpr auto littleEndianMark = "\xFF\xFE"sv;
constexpr auto utf32LittleEndianMark = "\xFF\xFE\0\0"sv;
constexpr auto utf32BigEndianMark = "\0\0\xFE\xFF"sv;

enum class Order { bigEndian, littleEndian };

icu::UnicodeString decodeUtf16(std::string_view bytes, Order order) {
    const auto units = static_cast<int32_t>(bytes.size() / 2);
    icu::UnicodeString text;
    char16_t* next = text.getBuffer(units);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<uint8_t>(bytes[i]), second = static_cast<uint8_t>(bytes[i + 1]);
        *next++ = static_cast<char16_t>(order == Order::bigEndian ? first << 8 | second : second << 8 | first);
    }
    text.releaseBuffer(units);
    return text;
}

DecodedText utf16(std::string_view bytes, Order order, Encoding encoding = Encoding::utf16) {
    return {encoding, decodeUtf16(bytes, order), bytes.size() % 2 != 0};
}

auto occurrences(std::string_view bytes, char byte) { return std::ranges::count(bytes, byte); }

auto occurrences(const icu::UnicodeString& text, std::u16string_view units) {
    const std::u16string_view all(text.getBuffer(), static_cast<std::size_t>(text.length()));
    return std::ranges::count_if(all, [units](char16_t unit) { return units.find(unit) != units.npos; });
}

/// Whether zero bytes are at least half as many as blanks and line feeds, each of which has one in UTF-16. Only a few
/// texts in UTF-16 have fewer: East Asian ones with many quotation marks. No text in another encoding has so many.
bool hasZeroBytes(std::string_view bytes) {
    const auto zeros = occurrences(bytes, '\0');
    return zeros > 0 && 2 * zeros >= occurrences(bytes, ' ') + occurrences(bytes, '\n');
}

/// Whether every four bytes are a character, in one of the two orders. In UTF-16 they are two, and hardly any value of
/// both together is one.
bool isUtf32(std::string_view bytes) {
    const auto isCharacter = [&](std::size_t begin, Order order) {
        uint32_t value = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            const std::size_t at = order == Order::bigEndian ? begin + i : begin + 3 - i;
            value = value << 8 | static_cast<uint8_t>(bytes[at]);
        }
        return value <= UCHAR_MAX_VALUE && u_isdefined(static_cast<UChar32>(value));
    };
    const auto isIn = [&](Order order) {
        std::size_t begin = 0;
        while (begin < bytes.size() && isCharacter(begin, order)) begin += 4;
        return begin == bytes.size();
    };
    return !bytes.empty() && bytes.size() % 4 == 0 && (isIn(Order::bigEndian) || isIn(Order::littleEndian));
}

bool makesSense(const icu::UnicodeString& text, const LanguageProfile* language) {
    return language != nullptr ? scriptFit(*language, text) == ScriptFit::most : occurrences(text, u"\n") > 0;
}

constexpr const char* westernPage = "windows-1252";

/// The bytes of a line in a code page; nothing if it has none for a character.
std::string encodeLine(UConverter* codePage, const icu::UnicodeString& line) {
    std::string bytes(static_cast<std::size_t>(line.length()), '\0');
    UErrorCode status = U_ZERO_ERROR;
    ucnv_fromUChars(codePage, bytes.data(), line.length(), line.getBuffer(), line.length(), &status);
    return U_SUCCESS(status) ? bytes : "";
}

/// Whether a code page of Western Europe or of the language has all characters. The bytes E9 A0 BB, which end a
/// quotation in French, are a Chinese character in UTF-8, and no French text has it.
bool isWritableIn(const LanguageProfile* language, const icu::UnicodeString& text) {
    const auto holds = [&](const char* codePage) { return lossIn(codePage, text).count() == 0; };
    return holds(westernPage) || (language != nullptr && std::ranges::any_of(language->codePages, holds));
}

bool isUtf8In(UConverter* codePage, const icu::UnicodeString& line, const LanguageProfile* language) {
    const std::string bytes = encodeLine(codePage, line);
    constexpr auto isTrail = [](char byte) { return U8_IS_TRAIL(byte); };
    icu::UnicodeString decoded;
    // A line with one such pair can be right, such as "CAFÉ®".
    return std::ranges::count_if(bytes, isTrail) > 1 && decodeUtf8(bytes, decoded) == bytes.size() &&
           isWritableIn(language, decoded);
}

DoubleEncoding findDoubleEncodingBy(const char* codePage, const icu::UnicodeString& text,
                                    const LanguageProfile* language) {
    DoubleEncoding found{codePage};
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUConverterPointer converter(ucnv_open(codePage, &status));
    ucnv_setFromUCallBack(converter.getAlias(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    for (int32_t begin = 0, end; U_SUCCESS(status) && begin < text.length(); begin = end + 1) {
        end = lineEnd(text, begin);
        if (!isUtf8In(converter.getAlias(), text.tempSubStringBetween(begin, end), language)) continue;
        if (found.lines++ == 0) found.first = begin;
    }
    return found;
}

}  // namespace

std::size_t decodeUtf8(std::string_view bytes, icu::UnicodeString& text) {
    const std::size_t skipped = bytes.starts_with(utf8Mark) ? utf8Mark.size() : 0;
    bytes.remove_prefix(skipped);
    const auto length = static_cast<int32_t>(bytes.size());
    text.remove();
    char16_t* units = text.getBuffer(length);
    int32_t next = 0, read = 0;
    while (read < length) {
        int32_t after = read;
        UChar32 character;
        U8_NEXT(reinterpret_cast<const uint8_t*>(bytes.data()), after, length, character);
        if (character < 0) break;
        U16_APPEND_UNSAFE(units, next, character);
        read = after;
    }
    text.releaseBuffer(next);
    return skipped + static_cast<std::size_t>(read);
}

DecodedText decodeText(std::string_view bytes, const LanguageProfile* language) {
    if (bytes.starts_with(utf32BigEndianMark) || bytes.starts_with(utf32LittleEndianMark)) return {Encoding::utf32, {}};
    if (bytes.starts_with(bigEndianMark)) return utf16(bytes.substr(bigEndianMark.size()), Order::bigEndian);
    if (bytes.starts_with(littleEndianMark)) return utf16(bytes.substr(littleEndianMark.size()), Order::littleEndian);

    DecodedText asUtf8{Encoding::utf8, {}};
    const bool isUtf8 = decodeUtf8(bytes, asUtf8.text) == bytes.size();
    if (isUtf8 && (bytes.starts_with(utf8Mark) || !hasZeroBytes(bytes))) return asUtf8;

    if (isUtf32(bytes)) return {Encoding::utf32, {}};
    // In UTF-16 a line feed has a zero byte. The script alone does not tell: pairs of bytes in a Korean code page are
    // Korean letters of UTF-16 as well.
    if (occurrences(bytes, '\0') == 0 && occurrences(bytes, '\n') > 0) return {Encoding::codePage, {}};
    DecodedText bigEndian = utf16(bytes, Order::bigEndian);
    DecodedText littleEndian = utf16(bytes, Order::littleEndian, Encoding::utf16LittleEndian);
    if (!hasZeroBytes(bytes) && !makesSense(bigEndian.text, language) && !makesSense(littleEndian.text, language)) {
        return {Encoding::codePage, {}};
    }
    constexpr auto blanks = u" \n";
    return occurrences(littleEndian.text, blanks) > occurrences(bigEndian.text, blanks) ? littleEndian : bigEndian;
}

std::string encodeUtf16(const icu::UnicodeString& text) {
    std::string bytes(bigEndianMark);
    for (int32_t i = 0; i < text.length(); ++i) {
        bytes += {static_cast<char>(text[i] >> 8), static_cast<char>(text[i] & 0xFF)};
    }
    return bytes;
}

DoubleEncoding findDoubleEncoding(const icu::UnicodeString& text, const LanguageProfile* language) {
    DoubleEncoding most = findDoubleEncodingBy(westernPage, text, language);
    for (const char* codePage : language != nullptr ? language->codePages : std::span<const char* const>{}) {
        if (!std::string_view(codePage).starts_with("windows-")) continue;
        const DoubleEncoding found = findDoubleEncodingBy(codePage, text, language);
        if (found.lines >= most.lines) most = found;
    }
    return most;
}

}  // namespace zev
