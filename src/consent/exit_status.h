#pragma once

/// What zev-ask and zev-audit end with.
namespace zev::ask_status {

inline constexpr int accepted = 0;
inline constexpr int declined = 1;
inline constexpr int nobody = 2;  ///< nobody can be asked, or the terms are not those that were accepted beforehand
inline constexpr int failed = 3;  ///< it could not be done, or the call is wrong

}  // namespace zev::ask_status

namespace zev::audit_status {

inline constexpr int clean = 0;
inline constexpr int findings = 1;
inline constexpr int wrongCall = 2;

}  // namespace zev::audit_status
