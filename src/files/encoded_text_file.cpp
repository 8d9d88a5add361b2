#include "files/encoded_text_file.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>

#include "app/debug_trace.h"
#include "files/output_file.h"
#include "lang/environment_locale.h"

namespace zev {

namespace {

/// Hands the units of `file` up to the end of its text to `consume`, block by block, until `consume` returns false.
/// False if the file could not be read to its end: ICU takes an error for the end, so the FILE is checked.
template <class Consume>
[[nodiscard]] bool forEachBlock(UFILE* file, Consume consume) {
    std::array<char16_t, 4096> block;
    for (;;) {
        const auto size = u_file_read(block.data(), static_cast<int32_t>(block.size()), file);
        const auto units = std::span<const char16_t>(block).first(static_cast<std::size_t>(size));
        const auto textSize = std::ranges::find(units, char16_t{U_EOF}) - units.begin();
        const bool goOn = consume(units.first(static_cast<std::size_t>(textSize)));
        if (!goOn || textSize < static_cast<std::ptrdiff_t>(block.size())) break;
    }
    return std::ferror(u_fgetfile(file)) == 0;
}

/// Whether the bytes of a text depend on the pieces in which it is converted: these converters look back and ahead
/// within one call.
bool dependsOnCalls(const UConverter* converter) {
    const UConverterType type = ucnv_getType(converter);
    return type == UCNV_SCSU || type == UCNV_ISCII || (type >= UCNV_LMBCS_1 && type <= UCNV_LMBCS_LAST);
}

const char* orDefault(const char* name) { return name != nullptr ? name : codePageName(); }

}  // namespace

EncodedFile openEncoded(const std::string& path, const char* codePage) {
    return EncodedFile(u_fopen(path.c_str(), "r", nullptr, codePage));
}

EncodedFile attachEncoded(std::FILE* file, const char* codePage) {
    return EncodedFile(u_finit(file, nullptr, orDefault(codePage)));
}

bool countFileChars(const std::string& path, const std::string& codePage, std::size_t& count) {
    const EncodedFile file = openEncoded(path, codePage.c_str());
    if (!file) {
        trace("Unable to open file ", path);
        return false;
    }
    std::size_t units = 0;
    static_cast<void>(forEachBlock(file.get(), [&](std::span<const char16_t> block) {
        units += block.size();
        return true;
    }));
    trace("Number of characters in ", path, " is ", units);
    count = units;
    return true;
}

std::size_t readLicenseFile(const RunContext&, const std::string& path, std::span<char16_t> buffer) {
    const EncodedFile file = openEncoded(path, licenseCodePage);
    if (!file) {
        trace("Unable to open license file ", path);
        return 0;
    }
    std::size_t stored = 0;
    bool fits = true;
    const bool complete = forEachBlock(file.get(), [&](std::span<const char16_t> block) {
        fits = block.size() <= buffer.size() - stored;
        if (!fits) return false;
        std::ranges::copy(block, buffer.begin() + static_cast<std::ptrdiff_t>(stored));
        stored += block.size();
        return true;
    });
    return complete && fits ? stored : buffer.size() + 1;
}

bool copyUnits(UFILE* input, UFILE* output) {
    const bool unitByUnit = dependsOnCalls(u_fgetConverter(output));
    return forEachBlock(input, [&](std::span<const char16_t> block) {
        const std::size_t step = unitByUnit ? 1 : block.size();
        for (; !block.empty(); block = block.subspan(step)) {
            u_file_write(block.data(), static_cast<int32_t>(step), output);
        }
        return std::ferror(u_fgetfile(output)) == 0;
    });
}

bool copyFileConverted(const char* inputPath, const char* inputCodePage, const char* outputPath,
                       const char* outputCodePage) {
    const ReplacedFile file(outputPath);
    const EncodedFile output = file.stream() != nullptr ? attachEncoded(file.stream(), outputCodePage) : nullptr;
    if (!output) {
        trace("Unable to open output file ", outputPath, " in codepage ", orDefault(outputCodePage));
        return false;
    }
    const EncodedFile input = openEncoded(inputPath, orDefault(inputCodePage));
    if (!input) {
        trace("Unable to open input file ", inputPath, " in codepage ", orDefault(inputCodePage));
        return false;
    }
    trace("input file ", inputPath, " is in codepage ", u_fgetcodepage(input.get()));
    trace("output file ", outputPath, " is in codepage ", u_fgetcodepage(output.get()));
    if (copyUnits(input.get(), output.get())) return true;
    trace("Error reading ", inputPath);
    return false;
}

}  // namespace zev
