#include "authoring/finding.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string_view>
#include <tuple>
#include <utility>

namespace zev {

namespace {

std::size_t countAccepted(const Findings& findings) {
    return static_cast<std::size_t>(std::ranges::count(findings, true, &Finding::isAccepted));
}

bool isMetBy(const Finding& finding, const Acceptance& acceptance) {
    return finding.kind == acceptance.kind && (acceptance.file.empty() || finding.file.name == acceptance.file);
}

/// Like a compiler, zev-licenses names itself in a finding about no file.
std::string shownPath(const Finding& finding) {
    return finding.file.path.empty() ? "zev-licenses" : printable(finding.file.path);
}

std::string_view directoryOf(std::string_view path) { return path.substr(0, path.rfind('/') + 1); }

/// The path in a line that begins with the path of `first`: the directory is there already if it is the same.
std::string pathAfter(const Finding& first, Finding finding) {
    const std::string_view directory = directoryOf(first.file.path);
    if (directory == directoryOf(finding.file.path)) finding.file.path.erase(0, directory.size());
    return shownPath(finding);
}

std::string describe(const Finding& finding) {
    const char* level = finding.isAccepted                    ? ": accepted: "
                        : finding.severity == Severity::error ? ": error: "
                                                              : ": warning: ";
    return level + finding.message + " [" + finding.kind + "]";
}

nlohmann::ordered_json jsonOf(const Finding& finding) {
    nlohmann::ordered_json row{{"file", finding.file.name}, {"path", finding.file.path}};
    if (finding.position.line > 0) row["line"] = finding.position.line;
    if (finding.position.column > 0) row["column"] = finding.position.column;
    row["severity"] = finding.severity == Severity::error ? "error" : "warning";
    row["kind"] = finding.kind;
    row["message"] = finding.message;
    row["accepted"] = finding.isAccepted;
    return row;
}

}  // namespace

Position positionAt(const icu::UnicodeString& text, int32_t offset) {
    const char16_t* const units = text.getBuffer();
    const auto before = static_cast<std::size_t>(std::count(units, units + offset, u'\n'));
    const int32_t lineBegin = offset == 0 ? 0 : text.lastIndexOf(u'\n', 0, offset) + 1;
    return {1 + before, 1 + static_cast<std::size_t>(text.countChar32(lineBegin, offset - lineBegin))};
}

int32_t lineEnd(const icu::UnicodeString& text, int32_t begin) {
    const int32_t end = text.indexOf(u'\n', begin);
    return end < 0 ? text.length() : end;
}

void append(Findings& findings, Findings more) { std::ranges::move(more, std::back_inserter(findings)); }

std::optional<Acceptance> parseAcceptance(const std::string& text) {
    const std::size_t colon = text.find(':');
    Acceptance acceptance{text.substr(0, colon), colon == text.npos ? "" : text.substr(colon + 1)};
    const bool isWhole = !acceptance.kind.empty() && (colon == text.npos || !acceptance.file.empty());
    return isWhole ? std::optional(std::move(acceptance)) : std::nullopt;
}

void acceptFindings(Findings& findings, const std::vector<Acceptance>& acceptances) {
    Findings unmet;
    for (const Acceptance& acceptance : acceptances) {
        bool meetsWarning = false, meetsError = false;
        for (Finding& finding : findings) {
            if (!isMetBy(finding, acceptance)) continue;
            const bool isWarning = finding.severity == Severity::warning;
            finding.isAccepted = finding.isAccepted || isWarning;
            (isWarning ? meetsWarning : meetsError) = true;
        }
        if (meetsWarning) continue;
        const std::string option =
            "--accept " + acceptance.kind + (acceptance.file.empty() ? "" : ":" + acceptance.file);
        const char* why = meetsError ? " meets errors only, and errors cannot be accepted" : " meets no finding";
        unmet.push_back({{}, {}, Severity::warning, "acceptance", printable(option) + why});
    }
    append(findings, std::move(unmet));
}

std::size_t countOf(const Findings& findings, Severity severity) {
    return static_cast<std::size_t>(std::ranges::count_if(
        findings, [severity](const Finding& f) { return f.severity == severity && !f.isAccepted; }));
}

bool areFatal(const Findings& findings, bool isStrict) {
    return countOf(findings, Severity::error) + (isStrict ? countOf(findings, Severity::warning) : 0) > 0;
}

std::string listFindings(const Findings& findings) {
    struct Line {
        Finding first;
        std::string paths;
    };
    std::vector<Line> lines;
    for (const Finding& finding : findings) {
        const auto shares = [&](const Line& line) {
            const auto key = [](const Finding& f) { return std::tie(f.position, f.severity, f.message, f.isAccepted); };
            return finding.position == Position{} && key(line.first) == key(finding);
        };
        const auto found = std::ranges::find_if(lines, shares);
        if (found == lines.end()) {
            lines.push_back({finding, shownPath(finding)});
        } else {
            found->paths += " " + pathAfter(found->first, finding);
        }
    }
    std::string list;
    for (const auto& [finding, paths] : lines) {
        list += paths;
        for (const std::size_t number : {finding.position.line, finding.position.column}) {
            if (number > 0) list += ":" + std::to_string(number);
        }
        list += describe(finding) + "\n";
    }
    return list;
}

std::string summaryOf(const Findings& findings) {
    if (findings.empty()) return "no findings";
    const std::size_t accepted = countAccepted(findings);
    return counted(countOf(findings, Severity::error), "error") + ", " +
           counted(countOf(findings, Severity::warning), "warning") +
           (accepted > 0 ? ", " + std::to_string(accepted) + " accepted" : "");
}

nlohmann::ordered_json jsonOf(const Findings& findings) {
    nlohmann::ordered_json report{{"errors", countOf(findings, Severity::error)},
                                  {"warnings", countOf(findings, Severity::warning)},
                                  {"accepted", countAccepted(findings)},
                                  {"findings", nlohmann::ordered_json::array()}};
    for (const Finding& finding : findings) report["findings"].push_back(jsonOf(finding));
    return report;
}

std::string textOf(const nlohmann::ordered_json& report) {
    constexpr int indent = 2;
    return report.dump(indent, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string countedName(const std::string& name, std::size_t count) {
    return count > 1 ? name + " (x" + std::to_string(count) + ")" : name;
}

std::string utf8Of(const icu::UnicodeString& text) {
    std::string bytes;
    return text.toUTF8String(bytes);
}

std::string printable(const std::string& text) {
    icu::UnicodeString shown = icu::UnicodeString::fromUTF8(text);
    for (int32_t i = 0; i < shown.length(); ++i) {
        if (u_iscntrl(shown[i]) || u_charType(shown[i]) == U_FORMAT_CHAR) shown.setCharAt(i, u'\uFFFD');
    }
    return utf8Of(shown);
}

}  // namespace zev
