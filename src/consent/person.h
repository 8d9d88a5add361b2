#pragma once

#include <string>
#include <string_view>

namespace zev {

/// The effective user, by name or, if it has none, by number; "root (sudo by alice)" if SUDO_USER names alice.
[[nodiscard]] std::string effectivePerson();

/// The user who logged in, whom the kernel remembers; empty if that is the effective user, or not known.
[[nodiscard]] std::string loginPerson();

/// The name of the machine; "-" if it has none.
[[nodiscard]] std::string hostName();

/// The time in UTC, such as "2026-11-22T16:09:52Z"; empty on failure.
[[nodiscard]] std::string currentTime();
/// Whether a text has the form of such a time.
[[nodiscard]] bool isTime(std::string_view text);

/// The state directory for a call that names none: /var/lib/zev for root, otherwise one below XDG_STATE_HOME or HOME.
/// Empty if neither variable gives one.
[[nodiscard]] std::string defaultStateDirectory();

}  // namespace zev
