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

/// The lines of an acceptance, name=value, in this order. Those after `zev` are there only if they apply.
inline constexpr std::array acceptanceFields{"product",  "version", "terms",   "accepted", "who",  "host",   "mode",
                                             "language", "zev",     "prompts", "login",    "note", "master", "copied"};
using Fields = std::map<std::string, std::string>;

[[nodiscard]] std::string formatAcceptance(const Fields& fields);
/// No result if a line has no "=", a name occurs twice, or the product, the terms or the time are missing.
[[nodiscard]] std::optional<Fields> parseAcceptance(const std::string& bytes);

[[nodiscard]] bool isFingerprint(const std::string& digits);

enum class RecordState {
    absent,
    whole,
    changed,    ///< its files do not have the sums that it lists
    incomplete  ///< a part is missing, cannot be read, or does not have the type, owner or size that it must have
};

struct Record {
    RecordState state = RecordState::absent;
    Fields fields;     ///< as far as they can be read
    std::string flaw;  ///< what is wrong, if it is not whole
};

/// Judges the record of a fingerprint in the directory of a product. It follows no link, and checks the type, owner and
/// size of each file before it reads it.
[[nodiscard]] Record judgeRecord(int productDirectory, const std::string& product, const std::string& fingerprint,
                                 Owners owners);

/// Reads the acceptance of a record without judging the rest.
[[nodiscard]] std::optional<Fields> readAcceptance(int productDirectory, const std::string& fingerprint, Owners owners);

/// What the SHA256SUMS of an open record must hold. No result if a part cannot be read; `flaw` says which.
[[nodiscard]] std::optional<std::string> sumsOf(int record, Owners& owners, std::string& flaw);

}  // namespace zev
