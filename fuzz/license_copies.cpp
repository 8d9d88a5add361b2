// Compares a copy with what ICU converts one code unit at a time, in several code pages. Nothing of an earlier copy may
// be left. Input: a byte for the code page, then the file.

#include <unicode/ucnv.h>

#include <array>

#include "files/encoded_text_file.h"
#include "lang/environment_locale.h"
#include "support.h"

namespace zev::fuzz {
namespace {

std::string encodedUnitByUnit(const icu::UnicodeString& text, const char* codePage) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUConverterPointer converter(ucnv_open(codePage, &status));
    require(U_SUCCESS(status), "ICU opens the code pages that it lists");
    std::string bytes;
    const auto append = [&](const char16_t* source, const char16_t* sourceEnd, bool isLast) {
        std::array<char, 64> chunk;
        do {
            status = U_ZERO_ERROR;
            char* target = chunk.data();
            ucnv_fromUnicode(converter.getAlias(), &target, chunk.data() + chunk.size(), &source, sourceEnd, nullptr,
                             isLast, &status);
            bytes.append(chunk.data(), target);
        } while (status == U_BUFFER_OVERFLOW_ERROR);
    };
    const char16_t* const units = text.getBuffer();
    for (int32_t i = 0; i < text.length(); ++i) append(units + i, units + i + 1, false);
    append(units + text.length(), units + text.length(), true);
    return bytes;
}

void checkCopy(Input input) {
    static const MemoryFile source, copy;
    adoptEnvironmentLocale();
    const char* codePage = ucnv_getAvailableName(input.byte() % ucnv_countAvailable());
    source.write(input.rest());
    require(copyFileConverted(source.path().c_str(), licenseCodePage, copy.path().c_str(), codePage), "can be copied");
    requireEqual(copy.read(), encodedUnitByUnit(decoded(input.rest()), codePage), codePage);
}

}  // namespace
}  // namespace zev::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    zev::fuzz::checkCopy({data, size});
    return 0;
}
