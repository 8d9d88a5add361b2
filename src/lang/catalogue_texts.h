#pragma once

#include <array>
#include <cstddef>
#include <iterator>

namespace zev {

/// The NUL-terminated stored bytes of one slot. It has no default, so that a catalogue with a missing slot does not
/// compile.
class StoredText {
public:
    constexpr StoredText(const char* bytes) : bytes_(bytes) {}
    constexpr operator const char*() const { return bytes_; }

private:
    const char* bytes_;
};

/// The texts of one catalogue: one member for each slot of Resource, in slot order.
struct CatalogueTexts {
    StoredText getLanguageCode;
    StoredText NUMERIC1_KEY;
    StoredText TITLE_KEY;
    StoredText INSTRUCTIONS_KEY;
    StoredText ACCEPT_KEY;
    StoredText DECLINE_KEY;
    StoredText PRINT_KEY;
    StoredText YES_KEY;
    StoredText NO_KEY;
    StoredText DECLINED_KEY;
    StoredText CONFIRMDECLINE_KEY;
    StoredText CLILANGMENU_KEY;
    StoredText CLILANGMSG_KEY;
    StoredText CLITITLE_KEY;
    StoredText CLIINTROMSG_KEY;
    StoredText CLICONTMSG_KEY;
    StoredText CLICFMMSG_KEY;
    StoredText CLIACCMSG_KEY;
    StoredText NUMERIC2_KEY;
    StoredText NUMERIC3_KEY;
    StoredText PRINTERRMSG_KEY;
    StoredText LANGNAME_KEY;
    StoredText NONVURTERMS_KEY;
};

/// A text as the translator reads and writes it.
template <std::size_t Size>
struct Text {
    char16_t units[Size];

    consteval Text(const char16_t (&literal)[Size]) {
        for (std::size_t i = 0; i < Size; ++i) units[i] = literal[i];
    }
};

/// The stored form of `text`: ASCII, each other code unit and the backslash as backslash-u and four hexadecimal digits.
template <Text text>
consteval auto toEscapes() {
    constexpr auto isPlain = [](char16_t unit) { return unit < 0x80 && unit != u'\\'; };
    constexpr auto size = [=] {
        std::size_t bytes = 0;
        for (const char16_t unit : text.units) bytes += isPlain(unit) ? 1 : 6;
        return bytes;
    }();

    std::array<char, size> stored{};
    auto* next = stored.begin();
    for (const char16_t unit : text.units) {
        if (isPlain(unit)) {
            *next++ = static_cast<char>(unit);
            continue;
        }
        *next++ = '\\';
        *next++ = 'u';
        for (int shift = 12; shift >= 0; shift -= 4) *next++ = "0123456789ABCDEF"[(unit >> shift) & 0xF];
    }
    return stored;
}

/// The stored form of `text` as ISO 8859-1; a character that has no such byte does not compile.
template <Text text>
consteval auto toLatin1() {
    std::array<char, std::size(text.units)> stored{};
    auto* next = stored.begin();
    for (const char16_t unit : text.units) {
        if (unit > 0xFF) throw "not an ISO 8859-1 character";
        *next++ = static_cast<char>(static_cast<unsigned char>(unit));
    }
    return stored;
}

template <Text text>
inline constexpr auto escapedBytes = toEscapes<text>();
template <Text text>
inline constexpr auto latin1Bytes = toLatin1<text>();

/// What a catalogue writes for a slot: the NUL-terminated stored bytes of the text.
template <Text text>
inline constexpr const char* escaped = escapedBytes<text>.data();
template <Text text>
inline constexpr const char* latin1 = latin1Bytes<text>.data();

}  // namespace zev
