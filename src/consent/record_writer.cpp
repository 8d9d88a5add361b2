#include "consent/record_writer.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <optional>
#include <vector>

#include "consent/terms.h"
#include "consent/way_out.h"
#include "files/directory_at.h"
#include "files/license_copies.h"
#include "files/license_fingerprint.h"
#include "files/paths.h"
#include "lang/environment_locale.h"
#include "lang/locale_choice.h"

namespace zev {

namespace {

std::string failure() { return std::strerror(errno); }

/// Lets other users read the record: zev makes directories that they cannot read.
bool openToOthers(int directory) {
    constexpr mode_t directoryMode = 0755, fileMode = 0644;
    std::vector<std::string> names;
    const Descriptor copies = openDirectoryAt(directory, copiesName);
    if (!copies.isOpen() || !listAt(copies.get(), names)) return false;
    for (const std::string& name : names) {
        if (fchmodat(copies.get(), name.c_str(), fileMode, 0) != 0) return false;
    }
    return fchmod(copies.get(), directoryMode) == 0 && fchmod(directory, directoryMode) == 0;
}

}  // namespace

bool writeTerms(const Terms& terms) {
    constexpr mode_t mode = 0700;
    if (mkdir(termsDirectory, mode) != 0) return false;
    const Descriptor directory = openDirectoryAt(AT_FDCWD, termsDirectory);
    for (const auto& [name, bytes] : terms.files()) {
        if (!createFileAt(directory.get(), name, bytes)) return false;
    }
    return true;
}

RunContext contextOf(const std::string& language, int languageSet) {
    RunContext context = createRunContext(termsDirectory, recordDirectory, languageSet);
    if (!language.empty()) static_cast<void>(setLocale(context, localeNamed(language)));
    return context;
}

std::string writeRecord(const Fields& fields, const Terms& terms, int languageSet) {
    adoptLocale("C.UTF-8");
    RunContext context = contextOf("", languageSet);
    errno = 0;
    if (!writeStatusFiles(context)) return "the copies of the terms cannot be written: " + failure();
    const std::string acceptance = formatAcceptance(fields);
    if (acceptance.size() > mostOfLines) return "its fields together have more than 64 KiB";
    const Descriptor record = openDirectoryAt(AT_FDCWD, recordDirectory);
    if (!record.isOpen() || !openToOthers(record.get()) || !createFileAt(record.get(), acceptanceName, acceptance)) {
        return failure();
    }
    std::string flaw;
    struct stat own {};
    if (fstat(record.get(), &own) != 0) return failure();
    Owners owners = Owners::ofState(own);
    const auto sums = sumsOf(record.get(), owners, flaw);
    if (!sums) return flaw;
    // zev does not notice if the end of a copy is lost, as on a full disk.
    for (const auto& [name, sum] : terms.sumsOfCopies(languageSet)) {
        const std::string line = sumLines(std::array{FileSum{joinPath(copiesName, name), sum}});
        if (sums->find(line) == std::string::npos) return "the copy " + name + " cannot be written in full";
    }
    return createFileAt(record.get(), sumsName, *sums) ? "" : failure();
}

}  // namespace zev
