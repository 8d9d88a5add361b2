#include "authoring/set_checks.h"

#include <algorithm>
#include <map>
#include <vector>

#include "app/exit_code.h"
#include "authoring/set_files.h"
#include "authoring/shown_language.h"
#include "authoring/text_checks.h"
#include "authoring/text_encoding.h"
#include "files/directory_at.h"
#include "files/license_text_set.h"

namespace zev {

namespace {

const char* encodingError(Encoding encoding) {
    switch (encoding) {
        case Encoding::utf16: break;
        case Encoding::utf16LittleEndian:
            return "UTF-16 in little-endian order without a byte order mark; zev shows it as Chinese characters. "
                   "Put the bytes FF FE before it";
        case Encoding::utf8:
            return "UTF-8, not UTF-16; zev shows it as Chinese characters. Convert it with: zev-licenses build";
        case Encoding::utf32: return "UTF-32, not UTF-16. Convert it to UTF-8, then with: zev-licenses build";
        case Encoding::codePage:
            return "an 8-bit code page, not UTF-16; zev shows it as Chinese characters. "
                   "Convert it to UTF-8, then with: zev-licenses build";
    }
    return nullptr;
}

class SetCheck {
public:
    SetCheck(const std::string& directory, const CheckOptions& options) : directory_(directory), options_(options) {}

    Findings run(const std::vector<std::string>& names) {
        for (const SetFile& file : filesOfSet(options_.languageSet)) readFile(file);
        append(findings_, checkTexts(texts_, options_.standIn));
        for (const auto& [code, englishName] : languagesOfSet(options_.languageSet)) checkLayout(code);
        std::ranges::stable_sort(findings_, {},
                                 [this](const Finding& finding) { return order_.at(finding.file.name); });
        for (const std::string& name : names) {
            if (!order_.contains(name))
                addFinding(name, Severity::warning, "name", "zev never reads a file of this name");
        }
        return std::move(findings_);
    }

private:
    [[nodiscard]] std::string pathOf(const std::string& name) const { return pathIn(directory_, name); }

    void addFinding(const std::string& name, Severity severity, const char* kind, const std::string& message,
                    Position position = {}) {
        findings_.push_back({{pathOf(name), name}, position, severity, kind, message});
    }

    void readFile(const SetFile& file) {
        order_.emplace(file.name, order_.size());
        const FileContent content = readTextFile(pathOf(file.name));
        if (!content.good()) {
            const bool isMissing = content.problem == missingFile;
            if (isMissing && file.language == nullptr) return;
            addFinding(file.name, Severity::error, isMissing ? "missing" : "unreadable", content.problem);
            return;
        }
        const DecodedText decoded = decodeText(content.bytes, file.language);
        if (const char* error = encodingError(decoded.encoding); error != nullptr && !content.bytes.empty()) {
            addFinding(file.name, Severity::error, "encoding", error);
        }
        if (decoded.oddByte) {
            addFinding(file.name, Severity::error, "odd-byte", "odd number of bytes; the last one is half a character");
        }
        const bool isDecoded = decoded.encoding != Encoding::codePage && decoded.encoding != Encoding::utf32;
        if (isDecoded) texts_.push_back({file, pathOf(file.name), decoded.text});
    }

    void checkLayout(const std::string& code) {
        ShownLanguage language(directory_, options_.languageSet, code);
        if (!language.load()) return;  // the files have findings that say why
        if (language.layOut({})) return;
        addFinding(agreementName(code), Severity::error, "layout",
                   "cannot be laid out; zev ends with exit status " + std::to_string(exit_code::noLayout));
    }

    const std::string& directory_;
    const CheckOptions& options_;
    Findings findings_;
    std::vector<SetText> texts_;
    std::map<std::string, std::size_t> order_;  ///< of the files of the set
};

}  // namespace

bool checkSet(const std::string& directory, const CheckOptions& options, Findings& findings, std::string& problem) {
    std::vector<std::string> names;
    if (!listDirectory(directory, names, problem)) return false;
    findings = SetCheck(directory, options).run(names);
    return true;
}

}  // namespace zev
