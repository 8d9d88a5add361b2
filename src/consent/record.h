#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>

#include "consent/owned_file.h"

namespace zev {

inline constexpr const char* acceptanceName = "acceptance";
inline constexpr const char* sumsName = "SHA256SUMS";
inline constexpr const char* copiesName = "license";

/// The lines of an acceptance, name=value, in this order. Those behind `zev` are there where they apply.
inline constexpr std::array acceptanceFields{"product",  "version", "terms",   "accepted", "who",  "host",   "mode",
                                             "language", "zev",     "prompts", "login",    "note", "master", "copied"};
using Fields = std::map<std::string, std::string>;

[[nodiscard]] std::string formatAcceptance(const Fields& fields);
/// None when it is no acceptance: a line without "=", a name twice, or no product, terms or time.
[[nodiscard]] std::optional<Fields> parseAcceptance(const std::string& bytes);

[[nodiscard]] bool isFingerprint(const std::string& digits);

enum class RecordState {
    absent,
    whole,
    changed,    ///< its files are not those that it has the sums of
    incomplete  ///< a part is missing, cannot be read, or is not of the kind, owner or size that it must be
};

struct Record {
    RecordState state = RecordState::absent;
    Fields fields;     ///< as far as they can be had
    std::string flaw;  ///< what is wrong, if it is not whole
};

/// Judges the record of a fingerprint in a descriptor's directory, which is that of a product. Nothing is followed, and
/// nothing is read before its type, owner and size are known.
[[nodiscard]] Record judgeRecord(int productDirectory, const std::string& product, const std::string& fingerprint,
                                 Owners owners);

/// Its acceptance alone, without a look at the rest.
[[nodiscard]] std::optional<Fields> readAcceptance(int productDirectory, const std::string& fingerprint, Owners owners);

/// What SHA256SUMS of a record that is open has to hold. None where a part cannot be read; `flaw` says which.
[[nodiscard]] std::optional<std::string> sumsOf(int record, Owners& owners, std::string& flaw);

}  // namespace zev
