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

/// Opens a file of text to be read in a code page, named as ICU names its converters. Null if the file cannot be
/// opened or the code page is unknown.
[[nodiscard]] EncodedFile openEncoded(const std::string& path, const char* codePage);

/// Writes text in a code page, by default that of the process, to `file`, which the result does not own and must not
/// outlive. When it is closed, it writes what the converter still holds back. Null if the code page is unknown.
[[nodiscard]] EncodedFile attachEncoded(std::FILE* file, const char* codePage = nullptr);

/// Counts the UTF-16 code units of a text. A U+FFFF ends a text like the end of its file, here and in all that follows.
/// False, and `count` is left alone, if the file cannot be opened. A text that cannot be read to its end is counted up
/// to the error; reading it will fail.
[[nodiscard]] bool countFileChars(const std::string& path, const std::string& codePage, std::size_t& count);

/// Reads a licence text into `buffer`. Returns its length in code units, or 0 if the file cannot be opened, or the
/// buffer's size + 1 if the text is longer than the buffer or cannot be read to its end. Deliberately takes the
/// context, which it does not need: its callers hand one to every step that reads or records for a run.
[[nodiscard]] std::size_t readLicenseFile(const RunContext& context, const std::string& path,
                                          std::span<char16_t> buffer);

/// Copies the rest of `input` to `output`, with the same result as one code unit at a time, or until the C stream of
/// `output` reports an error, which ICU itself never does. False if the C stream of `input` could not be read to its
/// end.
[[nodiscard]] bool copyUnits(UFILE* input, UFILE* output);

/// Copies a file from one code page into another; null stands for the code page of the process. True if both files
/// could be opened and the input could be read to its end: a write error is deliberately not noticed. If only the input
/// cannot be opened, an empty output remains.
[[nodiscard]] bool copyFileConverted(const char* inputPath, const char* inputCodePage, const char* outputPath,
                                     const char* outputCodePage);

}  // namespace zev
