// Lists what zev can get from ICU's data: one line for each code page, each of its names and each way to break lines,
// with a digest of the results. It is linked once with the data that are shipped and once with all data, and must print
// the same.
#include <unicode/brkiter.h>
#include <unicode/putil.h>
#include <unicode/ucnv.h>
#include <unicode/udata.h>
#include <unicode/uloc.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "lang/languages.h"

namespace {

std::size_t digest(const std::string& text) { return std::hash<std::string>()(text); }

/// The characters of the first three planes converted to the code page, and every third pair of bytes converted from
/// it.
std::string conversions(UConverter* converter) {
    icu::UnicodeString characters;
    for (UChar32 character = 1; character < 0x30000; character += character < 0x3000 ? 1 : 7) {
        if (!U_IS_SURROGATE(character)) characters.append(character);
    }
    std::string pairs, result(1 << 20, '\0');
    for (int pair = 0; pair < 0x10000; pair += 3) pairs += {static_cast<char>(pair >> 8), static_cast<char>(pair)};
    UErrorCode status = U_ZERO_ERROR;
    const auto size = characters.extract(result.data(), static_cast<int32_t>(result.size()), converter, status);
    result.resize(static_cast<std::size_t>(size));
    icu::UnicodeString(pairs.data(), static_cast<int32_t>(pairs.size()), converter, status).toUTF8String(result);
    return result + u_errorName(status);
}

void listCodePages() {
    for (int32_t i = 0; i < ucnv_countAvailable(); ++i) {
        UErrorCode status = U_ZERO_ERROR;
        const char* name = ucnv_getAvailableName(i);
        const icu::LocalUConverterPointer converter(ucnv_open(name, &status));
        std::printf("code page %s: %s, %zx\n", name, u_errorName(status), digest(conversions(converter.getAlias())));
        for (uint16_t n = 0; n < ucnv_countAliases(name, &status); ++n) {
            UErrorCode opened = U_ZERO_ERROR;
            const char* alias = ucnv_getAlias(name, n, &status);
            const icu::LocalUConverterPointer other(ucnv_open(alias, &opened));
            std::printf("name %s: %s, %s\n", alias, ucnv_getName(other.getAlias(), &opened), u_errorName(opened));
        }
    }
}

void listLineBreaks(const std::string& locale, const icu::UnicodeString& text) {
    std::array<char, 256> canonical{};
    UErrorCode status = U_ZERO_ERROR;
    uloc_canonicalize(locale.c_str(), canonical.data(), canonical.size(), &status);
    const std::unique_ptr<icu::BreakIterator> lines(
        icu::BreakIterator::createLineInstance(icu::Locale(canonical.data()), status));
    std::string breaks;
    if (U_SUCCESS(status)) {
        lines->setText(text);
        while (lines->next() != icu::BreakIterator::DONE) breaks += std::to_string(lines->current()) + " ";
    }
    std::printf("lines %s = %s: %s, %zx\n", locale.c_str(), canonical.data(), u_errorName(status), digest(breaks));
}

#define CODE(code, ...) #code " "
constexpr const char* locales = ZEV_LANGUAGES(CODE)  //
    "cs_CZ de_AT de_CH el_GR en_US en_US_POSIX en_GB es_MX fr_CA it_CH ja_JP ko_KR lt_LT pl_PL pt_BR pt_PT ru_RU sl_SI "
    "tr_TR zh_CN zh_HK zh_SG zh_Hans zh_Hant_TW th_TH lo_LA km_KH my_MM fi_FI sv_SE nb_NO ar_EG he_IL hi_IN vi_VN "
    "sr_RS__LATIN ca de__euro xx_YY root";
constexpr const char* keywords =
    "@lb=loose @lb=normal @lb=strict @lb=none @lw=normal @lw=breakall @lw=keepall @lw=phrase @lw=none @LB=LOOSE "
    "@lb=loose;lw=phrase @lb=normal;lw=phrase @lb=strict;lw=phrase @lb=loose;lw=breakall @lb=normal;lw=keepall "
    "@lb=strict;lw=breakall @ss=standard @timezone=Europe/Paris @calendar=japanese;lb=strict @collation=phonebook "
    "@rg=uszzzz;lb=loose -u-ca-gregory-lb-loose -u-tz-deber-lw-phrase";

std::vector<std::string> words(const char* text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

}  // namespace

/// The arguments are files of text.
int main(int count, char** files) {
    UErrorCode status = U_ZERO_ERROR;
    u_setDataDirectory("");
    u_setTimeZoneFilesDirectory("", &status);
    udata_setFileAccess(UDATA_NO_FILES, &status);

    // A sentence for each dictionary, and text that strict and loose rules break differently.
    icu::UnicodeString text(
        u"ข้อตกลงนี้อยู่ระหว่างคุณกับผู้ผลิตโปรแกรม ຂໍ້ຕົກລົງນີ້ແມ່ນລະຫວ່າງທ່ານກັບຜູ້ຜະລິດ "
        u"កិច្ចព្រមព្រៀងនេះគឺរវាងអ្នកនិងអ្នកផលិតកម្មវិធី ဤသဘောတူညီချက်သည်သင်နှင့်ထုတ်လုပ်သူအကြားဖြစ်သည် "
        u"本契約はお客様と製作者との間で締結されます。いいえ、ァーㇰ゛々〜・？！—…“”‥％￥€℃１２３ー字ー。한국어");
    for (int i = 1; i < count; ++i) {
        std::ifstream file(files[i], std::ios::binary);
        text.append(icu::UnicodeString::fromUTF8(std::string(std::istreambuf_iterator<char>(file), {})));
    }
    listLineBreaks("", text);
    for (const std::string& locale : words(locales)) {
        listLineBreaks(locale, text);
        for (const std::string& keyword : words(keywords)) listLineBreaks(locale + keyword, text);
    }
    listCodePages();
    return 0;
}
