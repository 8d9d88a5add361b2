#pragma once

/// The exit status is the tool's whole answer to the installer that runs it.
namespace zev::exit_code {

inline constexpr int declined = 3;                ///< the user declined the agreement and confirmed it
inline constexpr int accepted = 9;                ///< the agreement is accepted, now or earlier, and recorded
inline constexpr int noLicense = 11;              ///< a licence file is missing, or the text cannot be read
inline constexpr int notRecorded = 15;            ///< the acceptance could not be recorded
inline constexpr int missingOption = 17;          ///< `-l` or `-s` is missing
inline constexpr int badOption = 18;              ///< an unknown option, or a missing or invalid option argument
inline constexpr int noStatusDirectory = 20;      ///< the status directory cannot be created
inline constexpr int statusDirectoryClosed = 21;  ///< no status file can be created in the status directory
inline constexpr int noLayout = 23;               ///< a text cannot be broken into lines

}  // namespace zev::exit_code
