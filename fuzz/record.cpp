// Compares the judgement of a record with the rules of records, whatever its files hold and are. A report of it must
// have one line for each row, and only printable characters. Input: a byte each for the damaged part, the damage, and
// whether the sums are right; the acceptance after its three required lines, the name of a copy, and the log, each
// ended by a NUL; SHA256SUMS.

#include <fcntl.h>
#include <sys/stat.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <sstream>

#include "consent/audit_report.h"
#include "consent/legibility.h"
#include "consent/record.h"
#include "consent/store.h"
#include "files/directory_at.h"
#include "files/license_fingerprint.h"
#include "support.h"
#include "support/session.h"

namespace zev::fuzz {
namespace {

namespace fs = std::filesystem;

const std::string terms(64, 'a');
const std::string product = "state/rocket/", directory = product + terms;

enum class Damage { none, missing, link, pipe, writable, large };
enum Part { acceptanceFile, sumsFile, copies, copy, whole };

struct Planted {
    Part part;
    Damage damage;
    bool hasRightSums;
    std::string acceptance, copyName, log, sums;
};

Planted readPlanted(Input input) {
    Planted planted{Part(input.byte() % 5), Damage(input.byte() % 6), input.byte() % 2 == 0, {}, {}, {}, {}};
    planted.acceptance = "product=rocket\nterms=" + terms + "\naccepted=2026-11-22T16:09:52Z\n" + input.upTo('\0');
    if (planted.acceptance.find('%') != std::string::npos)
        planted.acceptance.erase(0, planted.acceptance.find('%') + 1);
    planted.copyName = input.upTo('\0').substr(0, 200);
    std::ranges::replace(planted.copyName, '/', '_');
    if (planted.copyName.find_first_not_of('.') == std::string::npos) planted.copyName = "English.txt";
    planted.log = input.upTo('\0');
    planted.sums = input.rest();
    if (planted.hasRightSums) {
        planted.sums = sha256(planted.acceptance) + "  acceptance\n" + sha256(planted.log) + "  license/" +
                       planted.copyName + "\n";
    }
    return planted;
}

bool isSecond(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c >= '1' && c <= '9'; }, '0');
    return text == "0000-00-00T00:00:00Z";
}

/// An acceptance by the rule: each line has a name and a value, no name occurs twice, and three fields are required.
std::optional<Fields> secondOpinion(const std::string& bytes) {
    Fields fields;
    std::istringstream lines(bytes);
    for (std::string line; std::getline(lines, line);) {
        const auto equals = line.find('=');
        if (equals == std::string::npos || fields.contains(line.substr(0, equals))) return std::nullopt;
        fields[line.substr(0, equals)] = line.substr(equals + 1);
    }
    const bool hasTerms = fields["terms"].size() == 64 && std::ranges::all_of(fields["terms"], [](char c) {
                              return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
                          });
    if (fields["product"].empty() || !hasTerms || !isSecond(fields["accepted"])) return std::nullopt;
    return fields;
}

RecordState expectedState(const Planted& planted) {
    const bool isFile = planted.part != whole && planted.part != copies;
    const bool isDamaged = planted.damage != Damage::none && (isFile || planted.damage != Damage::large);
    if (isDamaged && planted.damage == Damage::missing && planted.part == whole) return RecordState::absent;
    auto fields = secondOpinion(planted.acceptance);
    if (!fields || (*fields)["product"] != "rocket" || (*fields)["terms"] != terms) return RecordState::incomplete;
    const bool lacksCopy = planted.damage == Damage::missing && planted.part == copy;
    if (isDamaged && !lacksCopy) return RecordState::incomplete;
    return planted.hasRightSums && !lacksCopy ? RecordState::whole : RecordState::changed;
}

void damage(const test::Sandbox& sandbox, const Planted& planted) {
    static const std::map<Part, std::string> names{
        {acceptanceFile, "/acceptance"}, {sumsFile, "/SHA256SUMS"}, {copies, "/license"}, {copy, ""}, {whole, ""}};
    const std::string name =
        directory + (planted.part == copy ? "/license/" + planted.copyName : names.at(planted.part));
    const std::string path = sandbox.path(name);
    constexpr std::uintmax_t tooLarge[]{(64 << 10) + 1, (256 << 20) + 1};
    switch (planted.damage) {
        case Damage::none: return;
        case Damage::missing: return sandbox.remove(name);
        case Damage::link:
            fs::rename(path, sandbox.path("elsewhere"));
            return fs::create_symlink(sandbox.path("elsewhere"), path);
        case Damage::pipe: sandbox.remove(name); return require(mkfifo(path.c_str(), 0644) == 0, "a pipe can be made");
        case Damage::writable: return fs::permissions(path, fs::perms::others_write, fs::perm_options::add);
        case Damage::large:
            if (fs::is_regular_file(path)) fs::resize_file(path, tooLarge[planted.part == copy]);
    }
}

bool isShown(UChar32 character) {
    constexpr uint32_t hidden = U_GC_C_MASK | U_GC_ZL_MASK | U_GC_ZP_MASK;
    return (U_GET_GC_MASK(character) & hidden) == 0;
}

void checkPrintable(const std::string& bytes) {
    const std::string shown = printableText(bytes);
    const auto text = icu::UnicodeString::fromUTF8(bytes), result = icu::UnicodeString::fromUTF8(shown);
    require(text.countChar32() == result.countChar32(), "a character is shown for each");
    for (int32_t i = 0, j = 0; i < text.length(); i = text.moveIndex32(i, 1), j = result.moveIndex32(j, 1)) {
        const UChar32 character = text.char32At(i);
        const bool isKept = isShown(character) && character != 0xFFFD;
        require(result.char32At(j) == (isKept ? character : UChar32{U'?'}),
                "what is printable is shown, and all else as ?");
    }
}

/// A report of the record, in all its forms.
void checkReport(const test::Sandbox& sandbox, const Planted& planted) {
    AuditCall call;
    call.states = {sandbox.path("state")};
    std::vector<AuditRow> rows;
    std::string problem;
    require(audit(call, rows, problem), "what is in a record does not stop an audit");
    const RecordState state = expectedState(planted);
    require((rows.front().state == auditOk) == (state == RecordState::whole), "the audit says the same");
    std::istringstream log(planted.log);
    std::size_t versions = 0;
    for (std::string line; state == RecordState::whole && std::getline(log, line);) {
        versions += std::ranges::count(line, '\t') >= 2 && isSecond(line.substr(0, line.find('\t'))) ? 1U : 0U;
    }
    require(rows.size() == 1 + versions, "a row for the record, and one for each version of its log");
    for (const auto form : {AuditCall::Form::table, AuditCall::Form::tsv, AuditCall::Form::json}) {
        std::ostringstream out;
        writeReport(out, form, rows);
        const auto text = icu::UnicodeString::fromUTF8(out.str());
        for (int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
            const UChar32 c = text.char32At(i);
            require(isShown(c) || c == U'\n' || (c == U'\t' && form == AuditCall::Form::tsv), "a report is printable");
        }
        if (form == AuditCall::Form::json) continue;
        require(std::ranges::count(out.str(), '\n') == std::ssize(rows) + 1, "a report has a line for each row");
    }
}

void checkRecord(Input input) {
    static const test::Sandbox sandbox;
    const Planted planted = readPlanted(input);
    const auto fields = parseAcceptance(planted.acceptance);
    require(fields == secondOpinion(planted.acceptance), "an acceptance is read by the rule");
    if (fields) {
        Fields known;
        for (const char* name : acceptanceFields) {
            if (fields->contains(name)) known[name] = fields->at(name);
        }
        require(parseAcceptance(formatAcceptance(*fields)) == known, "what is written is read again");
    }
    for (const std::string* text : {&planted.acceptance, &planted.log}) checkPrintable(*text);

    sandbox.write(directory + "/acceptance", planted.acceptance);
    sandbox.write(directory + "/SHA256SUMS", planted.sums);
    sandbox.write(directory + "/license/" + planted.copyName, planted.log);
    sandbox.write(product + terms + logSuffix, planted.log);
    damage(sandbox, planted);
    const Descriptor parent = openDirectoryAt(AT_FDCWD, sandbox.path(product));
    struct stat state {};
    require(fstat(parent.get(), &state) == 0, "a directory that is open has a status");
    const Record judged = judgeRecord(parent.get(), "rocket", terms, Owners::ofState(state));
    require(judged.state == expectedState(planted), "a record is judged by the rules");
    if (judged.state != RecordState::absent) checkReport(sandbox, planted);
    sandbox.remove("state");
    sandbox.remove("elsewhere");
}

}  // namespace
}  // namespace zev::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    zev::fuzz::checkRecord({data, size});
    return 0;
}
