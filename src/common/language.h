#pragma once

#include <string_view>

/// The fixed texts that more than one place uses.
namespace mLanguageGobals {

inline constexpr std::string_view kFile = "File";
inline constexpr std::string_view kDriveNotPresent = "The drive is not present.";
inline constexpr std::string_view kNoDisk = "No disk in the drive.";
inline constexpr std::string_view kFileNotFound = "The specified file was not found.";
inline constexpr std::string_view kFolderNotFound = "The specified folder was not found.";

}  // namespace mLanguageGobals
