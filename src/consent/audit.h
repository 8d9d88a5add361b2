#pragma once

#include <string>
#include <vector>

#include "consent/command_lines.h"
#include "consent/record.h"

namespace zev {

inline constexpr const char* auditOk = "ok";

/// What the audit says of a record, of a later version that came with the same terms, or of what should be a record.
struct AuditRow {
    Fields fields;      ///< those of the acceptance, as far as they can be read
    std::string state;  ///< auditOk, or another of the states that zev-audit(1) lists
    std::string path;
};

/// Judges all records in the state directories of a call, without changing them. False if the licence directory to
/// compare with cannot be read; `problem` then says why.
[[nodiscard]] bool audit(const AuditCall& call, std::vector<AuditRow>& rows, std::string& problem);

}  // namespace zev
