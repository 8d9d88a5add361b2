#pragma once

#include <unicode/ustdio.h>

#include <cstdio>
#include <memory>
#include <span>
#include <string>

namespace zev {

struct RunContext;

struct CloseEncodedFile {
    void operator()(UFILE* file) const { u_fclose(file); }
};
using EncodedFile = std::unique_ptr<UFILE, CloseEncodedFile>;

/// The code page of every licence text: a byte order mark selects the order, without one it is big-endian.
inline constexpr const char* licenseCodePage = "UTF-16";

/// Opens a file of text to be read in a code page, named as ICU names its converters. Null when the file cannot be
/// opened or the code page is unknown.
[[nodiscard]] EncodedFile openEncoded(const std::string& path, const char* codePage);

/// Writes text in a code page, by default that of the process, to `file`, which the result does not own and must not
/// outlive. Its end hands `file` what the code page still holds back. Null when the code page is unknown.
[[nodiscard]] EncodedFile attachEncoded(std::FILE* file, const char* codePage = nullptr);

/// Counts the UTF-16 code units of a text. A U+FFFF ends a text like the end of its file, here and in all that follows.
/// False, and `count` left alone, when the file cannot be opened. A text that cannot be read to its end is counted as
/// far as it can; reading it will fail.
[[nodiscard]] bool countFileChars(const std::string& path, const std::string& codePage, std::size_t& count);

/// Reads a licence text into `buffer`. Returns its length in code units, 0 also when the file cannot be opened; of a
/// text that is longer than the buffer or cannot be read to its end, the buffer's size + 1. Deliberately takes the
/// context, which it does not need: its callers hand one to every step that reads or records for a run.
[[nodiscard]] std::size_t readLicenseFile(const RunContext& context, const std::string& path,
                                          std::span<char16_t> buffer);

/// Copies what is left of `input` to `output`, as if unit by unit, or until the file below `output` reports an error,
/// which ICU itself never does. False when the file below `input` could not be read to its end.
[[nodiscard]] bool copyUnits(UFILE* input, UFILE* output);

/// Copies a file from one code page into another; null stands for the code page of the process. True when both files
/// could be opened and the input be read to its end: a write error on the way is deliberately not noticed. When only
/// the input cannot be opened, an empty output remains.
[[nodiscard]] bool copyFileConverted(const char* inputPath, const char* inputCodePage, const char* outputPath,
                                     const char* outputCodePage);

}  // namespace zev
