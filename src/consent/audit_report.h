#pragma once

#include <iosfwd>
#include <vector>

#include "consent/audit.h"

namespace zev {

/// Writes rows in the form of a call: the columns that fit a screen, or all fields.
void writeReport(std::ostream& out, AuditCall::Form form, const std::vector<AuditRow>& rows);

/// The run of zev-audit. Returns the exit status of the process.
[[nodiscard]] int runAudit(int argc, char** argv);

}  // namespace zev
