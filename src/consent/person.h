#pragma once

#include <string>

namespace zev {

/// The effective user, by name or else by number; "root (sudo by alice)" where sudo says so.
[[nodiscard]] std::string effectivePerson();

/// The user who logged in, as the kernel has kept it since; empty where that is the effective user, or not known.
[[nodiscard]] std::string loginPerson();

/// The name of the machine; "-" where it has none.
[[nodiscard]] std::string hostName();

/// The time in UTC, such as "2026-11-22T16:09:52Z"; empty where it cannot be had.
[[nodiscard]] std::string currentTime();

/// The state directory of the user who has named none: /var/lib/zev for root, else below XDG_STATE_HOME or HOME. Empty
/// where there is no such place.
[[nodiscard]] std::string defaultStateDirectory();

}  // namespace zev
