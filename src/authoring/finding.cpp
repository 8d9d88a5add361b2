#include "authoring/finding.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <tuple>

namespace zev {

std::size_t countOf(const Findings& findings, Severity severity) {
    return static_cast<std::size_t>(std::ranges::count(findings, severity, &Finding::severity));
}

std::string listFindings(const Findings& findings) {
    struct Shared {
        Finding first;
        std::string files;
    };
    std::vector<Shared> lines;
    for (const Finding& finding : findings) {
        const auto sameAs = [&](const Shared& line) {
            const auto key = [](const Finding& f) { return std::tie(f.line, f.severity, f.message); };
            return key(line.first) == key(finding);
        };
        const auto found = std::ranges::find_if(lines, sameAs);
        if (found == lines.end()) {
            lines.push_back({finding, printable(finding.file)});
        } else {
            found->files += " " + printable(finding.file);
        }
    }
    std::string list;
    for (const auto& [finding, files] : lines) {
        list += files;
        if (finding.line > 0) list += ":" + std::to_string(finding.line);
        list += finding.severity == Severity::error ? ": error: " : ": warning: ";
        list += finding.message + "\n";
    }
    return list;
}

std::string summaryOf(const Findings& findings) {
    if (findings.empty()) return "no findings";
    return counted(countOf(findings, Severity::error), "error") + ", " +
           counted(countOf(findings, Severity::warning), "warning");
}

std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string printable(const std::string& text) {
    icu::UnicodeString shown = icu::UnicodeString::fromUTF8(text);
    for (int32_t i = 0; i < shown.length(); ++i) {
        if (u_iscntrl(shown[i]) || u_charType(shown[i]) == U_FORMAT_CHAR) shown.setCharAt(i, u'\uFFFD');
    }
    std::string bytes;
    return shown.toUTF8String(bytes);
}

}  // namespace zev
