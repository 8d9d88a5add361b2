#include "console/printing.h"

#include <unicode/unistr.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

#include "app/debug_trace.h"
#include "app/run_context.h"
#include "console/license_dialog.h"
#include "console/line_breaking.h"
#include "files/encoded_text_file.h"
#include "files/license_text_set.h"
#include "files/output_file.h"
#include "lang/resource.h"

namespace zev {

namespace {

constexpr int32_t printWidth = 60;

bool readDocument(const RunContext& context, icu::UnicodeString& text) {
    if (!readLicenseText(context, text)) {
        trace("Error getting license text");
        return false;
    }
    if (!nonVurTermsExist(context.licenseDir)) return true;
    icu::UnicodeString terms;
    if (!readNonVurText(context, terms)) {
        trace("Error getting non-VUR license text");
        return false;
    }
    text.append(u'\n').append(terms);
    return true;
}

/// If the text cannot be laid out, an empty file remains.
bool writeDocument(const LicenseDialog& dialog, icu::UnicodeString& text, const std::string& path) {
    const File document = createPrivateFile(path);
    const EncodedFile file = document ? attachEncoded(document.get()) : nullptr;
    if (!file) {
        trace("Unable to create file ", path);
        return false;
    }
    trace("creating temp file ", path, " in codepage ", u_fgetcodepage(file.get()));
    const auto lines = breakText(dialog, text, printWidth);
    if (!lines) {
        trace("Failed breakText for license text");
        return false;
    }
    int32_t written = 0;
    for (std::size_t index = 0; index < lines->size(); ++index) {
        const std::u16string_view line = (*lines)[index];
        written += u_file_write(line.data(), static_cast<int32_t>(line.size()), file.get());
    }
    trace("Wrote ", written, " characters to temp file");
    return true;
}

/// Runs a print command on the document. When tracing, its own messages reach the terminal.
bool runPrintCommand(const std::string& command, const std::string& path) {
    const char* redirection = isTracing() ? "" : " >/dev/null 2>&1";
    std::cout.flush();
    const int status = std::system((command + " " + path + redirection).c_str());
    if (status == 0) return true;
    trace("Got ", command, " return code : ", status);
    return false;
}

}  // namespace

bool printLicense(const LicenseDialog& dialog) {
    trace("Doing print LA");
    icu::UnicodeString text;
    if (!readDocument(dialog.context, text)) return false;

    const std::string path =
        "/tmp/zevdoc_" + std::to_string(getpid()) + "_" + dialog.context.resource->getLanguageCode() + ".text";
    if (!writeDocument(dialog, text, path)) return false;
    if (runPrintCommand("lp", path) || runPrintCommand("lpr", path)) return true;
    std::remove(path.c_str());
    return false;
}

}  // namespace zev
