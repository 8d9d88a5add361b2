#pragma once

#include <string>
#include <vector>

#include "consent/command_lines.h"
#include "consent/record.h"

namespace zev {

inline constexpr const char* auditOk = "ok";

/// What the audit says of a record, of a version that came with the same terms later, or of what should be a record.
struct AuditRow {
    Fields fields;      ///< those of the acceptance, as far as they can be had
    std::string state;  ///< auditOk, or what is wrong, in capitals
    std::string path;
};

/// Looks at all records of the state directories of a call, which it does not change. False, and `problem` says why,
/// when the licence directory to compare with cannot be read.
[[nodiscard]] bool audit(const AuditCall& call, std::vector<AuditRow>& rows, std::string& problem);

}  // namespace zev
