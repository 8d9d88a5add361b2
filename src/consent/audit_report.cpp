#include "consent/audit_report.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>

#include "app/start_process.h"
#include "consent/command_lines.h"
#include "consent/legibility.h"
#include "consent/person.h"
#include "console/terminal_columns.h"

namespace zev {

namespace {

using Cells = std::vector<std::string>;

/// All fields of the acceptance, and what the audit adds.
Cells columnNames() {
    Cells names(acceptanceFields.begin(), acceptanceFields.end());
    names.insert(names.end(), {"state", "path"});
    return names;
}

/// A field in printable characters; empty if it is not known.
std::string valueOf(const AuditRow& row, const std::string& name) {
    if (name == "state") return row.state;
    if (name == "path") return printableText(row.path);
    const auto field = row.fields.find(name);
    return field == row.fields.end() || field->second == "-" ? "" : printableText(field->second);
}

std::string orDash(const std::string& value) { return value.empty() ? "-" : value; }

void writeTsv(std::ostream& out, const std::vector<AuditRow>& rows) {
    const Cells names = columnNames();
    for (const std::string& name : names) out << name << (&name == &names.back() ? '\n' : '\t');
    for (const AuditRow& row : rows) {
        for (const std::string& name : names) {
            out << orDash(valueOf(row, name)) << (&name == &names.back() ? '\n' : '\t');
        }
    }
}

void writeJson(std::ostream& out, const std::vector<AuditRow>& rows) {
    auto list = nlohmann::ordered_json::array();
    for (const AuditRow& row : rows) {
        nlohmann::ordered_json object;
        for (const std::string& name : columnNames()) {
            const std::string value = valueOf(row, name);
            object[name] = value.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(value);
        }
        list.push_back(std::move(object));
    }
    constexpr int indent = 2;
    out << list.dump(indent) << '\n';
}

void writeTable(std::ostream& out, const std::vector<AuditRow>& rows) {
    constexpr std::size_t shownDigits = 16, gap = 2;
    const Cells names{"product", "version", "terms", "accepted", "who", "host", "mode", "language", "state"};
    std::vector<Cells> table{names};
    for (const AuditRow& row : rows) {
        Cells& cells = table.emplace_back();
        for (const std::string& name : names) cells.push_back(orDash(valueOf(row, name)));
        cells[2] = cells[2].substr(0, shownDigits);
        if (row.state != auditOk) cells.back() += "  " + printableText(row.path);
    }
    const auto widthOf = [](const std::string& cell) {
        return static_cast<std::size_t>(terminalColumns(icu::UnicodeString::fromUTF8(cell)));
    };
    std::vector<std::size_t> widths(names.size());
    for (const Cells& cells : table) {
        for (std::size_t i = 0; i < cells.size(); ++i) widths[i] = std::max(widths[i], widthOf(cells[i]));
    }
    for (const Cells& cells : table) {
        for (std::size_t i = 0; i + 1 < cells.size(); ++i) {
            out << cells[i] << std::string(widths[i] - widthOf(cells[i]) + gap, ' ');
        }
        out << cells.back() << '\n';
    }
}

}  // namespace

void writeReport(std::ostream& out, AuditCall::Form form, const std::vector<AuditRow>& rows) {
    switch (form) {
        case AuditCall::Form::table: return writeTable(out, rows);
        case AuditCall::Form::tsv: return writeTsv(out, rows);
        case AuditCall::Form::json: return writeJson(out, rows);
    }
}

int runAudit(int argc, char** argv) {
    startProcess();
    int status = audit_status::wrongCall;
    auto call = readAuditCall(argc, argv, status);
    if (!call) return status;
    const auto fail = [](const std::string& problem) {
        std::cerr << "zev-audit: " << printableText(problem) << std::endl;
        return audit_status::wrongCall;
    };
    if (call->showsVersion) {
        std::cout << "zev-audit of zev " << runOptions.version.substr(1) << '\n';
        return audit_status::clean;
    }
    if (call->states.empty()) call->states = {defaultStateDirectory()};
    if (call->states.front().empty()) return fail("HOME names no directory; name a state directory.");
    std::vector<AuditRow> rows;
    if (std::string problem; !audit(*call, rows, problem)) return fail(problem);
    writeReport(std::cout, call->form, rows);
    if (!std::cout.flush()) return fail("standard output cannot be written.");
    const bool isClean = std::ranges::all_of(rows, [](const AuditRow& row) { return row.state == auditOk; });
    return isClean ? audit_status::clean : audit_status::findings;
}

}  // namespace zev
