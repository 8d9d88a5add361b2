// Lists what zev can get out of ICU's data: a line for each code page, each of its names and each way to break lines,
// with a digest of what came out. Linked once with the data that are shipped and once with all of them, it must print
// the same.
#include <unicode/brkiter.h>
#include <unicode/putil.h>
#include <unicode/ucnv.h>
#include <unicode/udata.h>
#include <unicode/uloc.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

class Digest {
public:
    void add(int64_t value) { value_ = (value_ ^ static_cast<uint64_t>(value)) * 0x100000001b3; }
    [[nodiscard]] unsigned long long value() const { return value_; }

private:
    uint64_t value_ = 0xcbf29ce484222325;
};

/// Characters of the first three planes into the code page, and every third pair of bytes out of it.
Digest conversions(UConverter* converter) {
    Digest digest;
    std::array<char, 64> bytes;
    for (UChar32 character = 1; character < 0x30000; character += character < 0x3000 ? 1 : 7) {
        if (U_IS_SURROGATE(character)) continue;
        const icu::UnicodeString text(character);
        UErrorCode status = U_ZERO_ERROR;
        const int32_t size =
            ucnv_fromUChars(converter, bytes.data(), bytes.size(), text.getBuffer(), text.length(), &status);
        digest.add(status);
        for (int32_t i = 0; i < size; ++i) digest.add(bytes[static_cast<std::size_t>(i)]);
    }
    std::array<UChar, 64> units;
    for (int pair = 0; pair < 0x10000; pair += 3) {
        const char source[] = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
        UErrorCode status = U_ZERO_ERROR;
        const int32_t size = ucnv_toUChars(converter, units.data(), units.size(), source, sizeof source, &status);
        digest.add(status);
        for (int32_t i = 0; i < size; ++i) digest.add(units[static_cast<std::size_t>(i)]);
    }
    return digest;
}

void listCodePages() {
    for (int32_t i = 0; i < ucnv_countAvailable(); ++i) {
        UErrorCode status = U_ZERO_ERROR;
        const char* name = ucnv_getAvailableName(i);
        const icu::LocalUConverterPointer converter(ucnv_open(name, &status));
        std::printf("code page %s: %s, %llx\n", name, u_errorName(status), conversions(converter.getAlias()).value());
        for (uint16_t n = 0; n < ucnv_countAliases(name, &status); ++n) {
            UErrorCode opened = U_ZERO_ERROR;
            const char* alias = ucnv_getAlias(name, n, &status);
            const icu::LocalUConverterPointer other(ucnv_open(alias, &opened));
            std::printf("name %s: %s, %s\n", alias, ucnv_getName(other.getAlias(), &opened), u_errorName(opened));
        }
    }
}

// Latin, Greek and Cyrillic, Thai, Lao, Burmese, Khmer, punctuation, Japanese, Chinese, Korean, forms, pictures.
constexpr UChar32 ranges[][2]{{0x20, 0x17f},    {0x370, 0x52f},   {0xe01, 0xe4e},   {0xe81, 0xecd},
                              {0x1000, 0x109f}, {0x1780, 0x17d3}, {0x2000, 0x206f}, {0x3000, 0x30ff},
                              {0x4e00, 0x9fff}, {0xac00, 0xd7a3}, {0xf900, 0xffef}, {0x1f300, 0x1f9ff}};

/// Characters of one range after another, in an order without rule, so that dictionaries find words by chance.
icu::UnicodeString charactersOfAllRanges() {
    icu::UnicodeString text;
    uint32_t random = 1;
    for (const auto& [first, last] : ranges) {
        for (int i = 0; i < 250; ++i) {
            random = random * 1664525 + 1013904223;
            text.append(first + static_cast<UChar32>((random >> 8) % static_cast<uint32_t>(last - first + 1)));
        }
        text.append(u' ');
    }
    return text;
}

icu::UnicodeString contentsOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return icu::UnicodeString::fromUTF8(std::string(std::istreambuf_iterator<char>(file), {}));
}

void listLineBreaks(const std::string& locale, const icu::UnicodeString& text) {
    std::array<char, 256> canonical{};
    UErrorCode status = U_ZERO_ERROR;
    uloc_canonicalize(locale.c_str(), canonical.data(), canonical.size(), &status);
    const std::unique_ptr<icu::BreakIterator> lines(
        icu::BreakIterator::createLineInstance(icu::Locale(canonical.data()), status));
    Digest digest;
    int breaks = 0;
    if (U_SUCCESS(status)) {
        lines->setText(text);
        for (int32_t at = lines->first(); at != icu::BreakIterator::DONE; at = lines->next(), ++breaks) digest.add(at);
    }
    std::printf("lines %s = %s: %s, %d, %llx\n", locale.c_str(), canonical.data(), u_errorName(status), breaks,
                digest.value());
}

std::vector<std::string> words(const char* text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

const auto locales = words(
    "cs de el en es fr it ja ko lt pl pt ru sl tr zh zh_TW cs_CZ de_AT de_CH el_GR en_US en_US_POSIX en_GB es_MX fr_CA "
    "it_CH ja_JP ko_KR lt_LT pl_PL pt_BR pt_PT ru_RU sl_SI tr_TR zh_CN zh_HK zh_SG zh_Hans zh_Hant_TW th_TH lo_LA "
    "km_KH my_MM fi_FI sv_SE nb_NO ar_EG he_IL hi_IN vi_VN sr_RS__LATIN ca de__euro xx_YY root");

const auto keywords = words(
    "@lb=loose @lb=normal @lb=strict @lb=none @lw=normal @lw=breakall @lw=keepall @lw=phrase @lw=none @LB=LOOSE "
    "@lb=loose;lw=phrase @lb=normal;lw=phrase @lb=strict;lw=phrase @lb=loose;lw=breakall @lb=normal;lw=keepall "
    "@lb=strict;lw=breakall @ss=standard @timezone=Europe/Paris @calendar=japanese;lb=strict @collation=phonebook "
    "@rg=uszzzz;lb=loose -u-ca-gregory-lb-loose -u-tz-deber-lw-phrase");

}  // namespace

/// The arguments are files of text.
int main(int count, char** files) {
    UErrorCode status = U_ZERO_ERROR;
    u_setDataDirectory("");
    u_setTimeZoneFilesDirectory("", &status);
    udata_setFileAccess(UDATA_NO_FILES, &status);

    icu::UnicodeString text = charactersOfAllRanges();
    text.append(u"ข้อตกลงนี้อยู่ระหว่างคุณกับผู้ผลิตโปรแกรม ຂໍ້ຕົກລົງນີ້ແມ່ນລະຫວ່າງທ່ານກັບຜູ້ຜະລິດ "
                u"កិច្ចព្រមព្រៀងនេះគឺរវាងអ្នកនិងអ្នកផលិតកម្មវិធី ဤသဘောတူညီချက်သည်သင်နှင့်ထုတ်လုပ်သူအကြားဖြစ်သည် "
                u"本契約はお客様と製作者との間で締結されます。");
    for (int i = 1; i < count; ++i) text.append(contentsOf(files[i]));

    listLineBreaks("", text);
    for (const std::string& locale : locales) {
        listLineBreaks(locale, text);
        for (const std::string& more : keywords) listLineBreaks(locale + more, text);
    }
    listCodePages();
    return 0;
}
