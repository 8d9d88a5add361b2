#include "consent/audit.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <optional>
#include <sstream>

#include "consent/person.h"
#include "consent/store.h"
#include "consent/terms.h"
#include "files/directory_at.h"
#include "files/license_copies.h"
#include "files/paths.h"

namespace zev {

namespace {

constexpr const char* auditIncomplete = "INCOMPLETE";
constexpr const char* statusName = "status.dat";

/// The copies that zev makes of a licence directory, in UTF-8.
struct Copies {
    std::string fingerprint;
    std::map<std::string, std::string> sums;  ///< by the name of the copy
};

/// The audit of one state directory.
class StateAudit {
public:
    StateAudit(const AuditCall& call, const std::optional<Copies>& copies, std::string path)
        : call_(call), copies_(copies), path_(std::move(path)), state_(openDirectory(path_)) {}

    std::vector<AuditRow> rows() {
        struct stat status {};
        std::vector<std::string> names;
        if (!state_.isOpen() && errno == ENOENT) return {notAccepted()};
        if (!state_.isOpen() || fstat(state_.get(), &status) != 0 || !listAt(state_.get(), names)) {
            return {{{}, auditIncomplete, path_}};
        }
        // A master directory has records of any member of its group. One to which everyone can write is none.
        const bool isGroups = (status.st_mode & (S_IWGRP | S_IWOTH)) == S_IWGRP;
        owners_ = isGroups ? Owners::anyOne() : Owners::ofState(status);
        for (const std::string& name : names) {
            if (call_.product.empty() || name == call_.product) addProduct(name);
        }
        if (call_.product.empty()) {
            addBare(state_.get(), copiesName, joinPath(path_, copiesName));
            addBare(state_.get(), ".", path_);
        }
        if (!hasExpected()) rows_.push_back(notAccepted());
        return std::move(rows_);
    }

private:
    static Descriptor openDirectory(const std::string& path) {
        return Descriptor(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }

    [[nodiscard]] AuditRow notAccepted() const {
        AuditRow row{{}, "NOT ACCEPTED", path_};
        if (!call_.product.empty()) row.fields["product"] = call_.product;
        if (!call_.expected.empty()) row.fields["terms"] = call_.expected;
        return row;
    }

    [[nodiscard]] bool hasExpected() const {
        if (call_.expected.empty()) return !rows_.empty();
        return std::ranges::any_of(rows_, [&](const AuditRow& row) {
            return row.state == auditOk && row.fields.at("terms").starts_with(call_.expected);
        });
    }

    /// Without -p, only directories count as products: no files, no links, and no scratch directory.
    void addProduct(const std::string& name) {
        std::vector<std::string> entries;
        if (name.starts_with('.')) return;
        struct stat status {};
        const bool isKnown = fstatat(state_.get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
        if (!isKnown && errno == ENOENT) return;
        if (isKnown && !S_ISDIR(status.st_mode) && call_.product.empty()) return;
        std::string ignored;
        Owners owners = *owners_;
        const Descriptor product = openOwnedDirectory(state_.get(), name, owners, ignored);
        if (!product.isOpen() || !listAt(product.get(), entries)) {
            rows_.push_back({{{"product", name}}, auditIncomplete, joinPath(path_, name)});
            return;
        }
        for (const std::string& entry : entries) {
            if (isFingerprint(entry)) addRecord(product.get(), name, entry);
        }
    }

    void addRecord(int product, const std::string& name, const std::string& fingerprint) {
        const std::string path = joinPath(joinPath(path_, name), fingerprint);
        Record record = judgeRecord(product, name, fingerprint, *owners_);
        if (record.fields.empty()) record.fields = {{"product", name}, {"terms", fingerprint}};
        const bool isWhole = record.state == RecordState::whole;
        const bool hasOtherCopies =
            isWhole && copies_ && copies_->fingerprint == fingerprint && !hasCopies(product, fingerprint);
        std::string state = isWhole ? auditOk : auditIncomplete;
        if (record.state == RecordState::changed || hasOtherCopies) state = "COPIES CHANGED";
        rows_.push_back({record.fields, state, path});
        if (record.state == RecordState::whole) addVersions(product, rows_.back());
    }

    /// Adds the later versions that came with these terms, for which nobody was asked again.
    void addVersions(int product, const AuditRow& record) {
        std::string lines, ignored;
        Owners owners = *owners_;
        const std::string name = record.fields.at("terms") + logSuffix;
        AuditRow row = record;
        row.fields["mode"] = "log";
        if (faccessat(product, name.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT) return;
        if (!readOwned(product, name, mostOfLog, owners, lines, ignored)) {
            row.state = auditIncomplete;
            row.path += logSuffix;
            rows_.push_back(row);
            return;
        }
        std::istringstream log(lines);
        for (std::string line; std::getline(log, line);) {
            const auto first = line.find('\t'), second = line.find('\t', first + 1);
            const std::string time = line.substr(0, first);
            if (second == std::string::npos || !isTime(time)) continue;
            row.fields["accepted"] = time;
            row.fields["version"] = line.substr(first + 1, second - first - 1);
            row.fields["who"] = line.substr(second + 1);
            rows_.push_back(row);
        }
    }

    /// Whether the copies in a directory are those that zev makes of the licence directory.
    [[nodiscard]] bool areCopies(const Descriptor& directory) const {
        std::vector<std::string> names;
        std::map<std::string, std::string> sums;
        if (!directory.isOpen() || !listAt(directory.get(), names)) return false;
        for (const std::string& name : names) {
            std::string ignored;
            Owners owners = *owners_;
            if (!name.ends_with(copySuffix)) continue;
            if (!hashOwned(directory.get(), name, owners, sums[name], ignored)) return false;
        }
        return sums == copies_->sums;
    }

    [[nodiscard]] bool hasCopies(int product, const std::string& fingerprint) const {
        return areCopies(openDirectoryAt(openDirectoryAt(product, fingerprint).get(), copiesName));
    }

    /// A status file of zev proves that somebody accepted some text, but not who, which text or when: its date is that
    /// of the last run.
    void addBare(int parent, const std::string& name, const std::string& path) {
        std::string bytes, ignored;
        Owners owners = *owners_;
        const Descriptor directory = openDirectoryAt(parent, name);
        if (!directory.isOpen() && (errno == ENOENT || errno == ENOTDIR || errno == ELOOP)) return;
        if (faccessat(directory.get(), statusName, F_OK, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT) return;
        if (!readOwned(directory.get(), statusName, mostOfLines, owners, bytes, ignored)) {
            rows_.push_back({{}, auditIncomplete, joinPath(path, statusName)});
            return;
        }
        std::istringstream status(bytes);
        std::string line, date;
        while (std::getline(status, line) && (line.empty() || line.front() == '#')) {
            if (date.empty() && !line.empty()) date = line.substr(1);
        }
        if (line != "Status=9") return;
        AuditRow row{{{"accepted", date}}, "no record", path};
        if (copies_ && areCopies(directory)) row.fields["terms"] = copies_->fingerprint;
        rows_.push_back(std::move(row));
    }

    const AuditCall& call_;
    const std::optional<Copies>& copies_;
    std::string path_;
    Descriptor state_;
    std::optional<Owners> owners_;
    std::vector<AuditRow> rows_;
};

}  // namespace

bool audit(const AuditCall& call, std::vector<AuditRow>& rows, std::string& problem) {
    std::optional<Copies> copies;
    if (!call.licenses.empty()) {
        const Terms terms = Terms::read(call.licenses, call.languageSet, problem);
        if (!problem.empty()) return false;
        copies = Copies{terms.fingerprint(), terms.sumsOfCopies(call.languageSet)};
    }
    for (const std::string& state : call.states) {
        std::ranges::move(StateAudit(call, copies, state).rows(), std::back_inserter(rows));
    }
    return true;
}

}  // namespace zev
