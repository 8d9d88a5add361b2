#include "consent/legibility.h"

#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

#include <array>
#include <sstream>

#include "console/code_page_loss.h"
#include "lang/environment_locale.h"

namespace zev {

namespace {

constexpr int32_t mostCharacters = 200;

bool isPrintable(UChar32 character) {
    constexpr uint32_t separators = U_GC_ZL_MASK | U_GC_ZP_MASK;
    return u_isprint(character) && (U_GET_GC_MASK(character) & separators) == 0;
}

/// Fails if the bytes are not text in the code page of the process.
bool decode(const std::string& bytes, icu::UnicodeString& text) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUConverterPointer converter(ucnv_open(codePageName(), &status));
    ucnv_setToUCallBack(converter.getAlias(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    text = icu::UnicodeString(bytes.data(), static_cast<int32_t>(bytes.size()), converter.getAlias(), status);
    return U_SUCCESS(status);
}

}  // namespace

bool writesAscii() {
    constexpr std::u16string_view marks = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789 .,\"\n";
    std::ostringstream written;
    written << InCodePage{marks};
    return written.str() == std::string(marks.begin(), marks.end());
}

bool readsCatalogues() { return fromCodePage("\\u0041").unescape() == u"A"; }

std::string inCodePage(const std::string& utf8) {
    const icu::UnicodeString text = icu::UnicodeString::fromUTF8(utf8);
    std::ostringstream written;
    written << InCodePage{{text.getBuffer(), static_cast<std::size_t>(text.length())}};
    return written.str();
}

bool isLegible(const icu::UnicodeString& text) {
    constexpr std::size_t hundred = 100;
    std::size_t letters = 0, lost = 0;
    for (int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) letters += u_isalpha(text.char32At(i)) ? 1U : 0U;
    for (const auto& [character, count] : lossIn(codePageName(), text).characters) {
        if (u_isalpha(character)) lost += count;
    }
    return lost * hundred <= letters;
}

bool toRecordText(const std::string& bytes, std::string& utf8) {
    icu::UnicodeString text;
    if (!decode(bytes, text) || text.isEmpty() || text.countChar32() > mostCharacters) return false;
    for (int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        if (!isPrintable(text.char32At(i))) return false;
    }
    if (u_isUWhiteSpace(text.char32At(0)) || u_isUWhiteSpace(text[text.length() - 1])) return false;
    utf8.clear();
    text.toUTF8String(utf8);
    return true;
}

std::string printableText(const std::string& utf8) {
    const icu::UnicodeString text = icu::UnicodeString::fromUTF8(utf8);
    icu::UnicodeString shown;
    for (int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        const UChar32 character = text.char32At(i);
        const bool isReplaced = character == 0xFFFD || !isPrintable(character);
        shown.append(isReplaced ? UChar32{U'?'} : character);
    }
    std::string bytes;
    return shown.toUTF8String(bytes);
}

}  // namespace zev
