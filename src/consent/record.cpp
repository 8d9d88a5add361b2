#include "consent/record.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <vector>

#include "consent/person.h"
#include "files/directory_at.h"
#include "files/license_fingerprint.h"

namespace zev {

namespace {

constexpr std::size_t fingerprintDigits = 64;

bool list(int directory, const std::string& shown, std::vector<std::string>& names, std::string& flaw) {
    if (listAt(directory, names)) return true;
    flaw = shown + " cannot be read: " + std::strerror(errno);
    return false;
}

/// Whether the place of a record is free: nothing is there, or an empty directory, which a record replaces.
bool isVacant(int productDirectory, const std::string& fingerprint) {
    struct stat status {};
    if (fstatat(productDirectory, fingerprint.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return errno == ENOENT;
    const Descriptor record = openDirectoryAt(productDirectory, fingerprint);
    std::vector<std::string> names;
    return record.isOpen() && listAt(record.get(), names) && names.empty();
}

}  // namespace

std::string formatAcceptance(const Fields& fields) {
    std::string lines;
    for (const char* name : acceptanceFields) {
        const auto field = fields.find(name);
        if (field != fields.end()) lines += field->first + "=" + field->second + "\n";
    }
    return lines;
}

std::optional<Fields> parseAcceptance(const std::string& bytes) {
    Fields fields;
    for (std::size_t begin = 0, end; begin < bytes.size(); begin = end + 1) {
        end = std::min(bytes.find('\n', begin), bytes.size());
        const std::size_t equals = bytes.find('=', begin);
        if (equals >= end) return std::nullopt;
        const std::string name = bytes.substr(begin, equals - begin);
        if (!fields.emplace(name, bytes.substr(equals + 1, end - equals - 1)).second) return std::nullopt;
    }
    const bool isComplete = !fields["product"].empty() && isFingerprint(fields["terms"]) && isTime(fields["accepted"]);
    return isComplete ? std::optional(fields) : std::nullopt;
}

bool isFingerprint(const std::string& digits) {
    return digits.size() == fingerprintDigits && digits.find_first_not_of("0123456789abcdef") == std::string::npos;
}

std::optional<std::string> sumsOf(int record, Owners& owners, std::string& flaw) {
    std::vector<FileSum> sums;
    const auto add = [&](int directory, const std::string& name, const std::string& prefix) {
        std::string sum;
        const bool isRead = hashOwned(directory, name, owners, sum, flaw);
        sums.push_back({prefix + name, sum});
        return isRead;
    };
    const Descriptor copies = openOwnedDirectory(record, copiesName, owners, flaw);
    std::vector<std::string> names;
    const bool isRead = copies.isOpen() && list(copies.get(), copiesName, names, flaw);
    if (!isRead || !add(record, acceptanceName, "")) return std::nullopt;
    for (const std::string& name : names) {
        if (!add(copies.get(), name, std::string(copiesName) + "/")) return std::nullopt;
    }
    return sumLines(sums);
}

std::optional<Fields> readAcceptance(int productDirectory, const std::string& fingerprint, Owners owners) {
    std::string flaw, bytes;
    const Descriptor record = openOwnedDirectory(productDirectory, fingerprint, owners, flaw);
    if (!record.isOpen() || !readOwned(record.get(), acceptanceName, mostOfLines, owners, bytes, flaw))
        return std::nullopt;
    return parseAcceptance(bytes);
}

Record judgeRecord(int productDirectory, const std::string& product, const std::string& fingerprint, Owners owners) {
    Record judged;
    if (isVacant(productDirectory, fingerprint)) return judged;
    judged.state = RecordState::incomplete;
    const Descriptor record = openOwnedDirectory(productDirectory, fingerprint, owners, judged.flaw);
    std::string bytes, recorded;
    if (!record.isOpen() || !readOwned(record.get(), acceptanceName, mostOfLines, owners, bytes, judged.flaw))
        return judged;
    if (const auto fields = parseAcceptance(bytes)) {
        judged.fields = *fields;
    } else {
        judged.flaw = "its acceptance lacks a field, or has one twice";
        return judged;
    }
    if (judged.fields["product"] != product || judged.fields["terms"] != fingerprint) {
        judged.flaw = "its acceptance is one of another product or of other terms";
        return judged;
    }
    if (!readOwned(record.get(), sumsName, mostOfLines, owners, recorded, judged.flaw)) return judged;
    const auto found = sumsOf(record.get(), owners, judged.flaw);
    std::vector<std::string> names;
    if (!found || !list(record.get(), fingerprint, names, judged.flaw)) return judged;

    const bool hasItsFiles = names == std::vector<std::string>{sumsName, acceptanceName, copiesName};
    const bool isWhole = hasItsFiles && *found == recorded;
    judged.state = isWhole ? RecordState::whole : RecordState::changed;
    if (!isWhole) judged.flaw = "its files are not those that were recorded";
    return judged;
}

}  // namespace zev
