#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/run_options.h"

/// The exit statuses of zev-ask and zev-audit.
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

namespace zev {

struct AskCall {
    enum class Action { ask, fingerprint, show, version } action = Action::ask;
    std::string product, version, licenses, state, master, accept, expected, language, note;
    bool choosesLanguage = false;
    int languageSet = defaultLanguageSet;
    int waitSeconds = 1800;  ///< 0 waits for ever
};

struct AuditCall {
    enum class Form { table, tsv, json } form = Form::table;
    bool showsVersion = false;
    std::string expected, product, licenses;
    int languageSet = defaultLanguageSet;
    std::vector<std::string> states;
};

/// The value of --accept that accepts every text. A bare assent is a yes that does not say which text is accepted.
inline constexpr const char* acceptAny = "any";
[[nodiscard]] bool isBareAssent(const std::string& accept);

/// Read a command line. Without a result, help or an error message was printed, and `status` is the exit status of the
/// run. Texts of a call are in UTF-8, fingerprints in lower case.
[[nodiscard]] std::optional<AskCall> readAskCall(int argc, char** argv, int& status);
[[nodiscard]] std::optional<AuditCall> readAuditCall(int argc, char** argv, int& status);

}  // namespace zev
