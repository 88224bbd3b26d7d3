#pragma once

#include <string_view>

/// The fixed texts that more than one place uses.
namespace mLanguageGobals {

inline constexpr std::string_view kFile = "File";

// Units of size.
inline constexpr std::string_view kBytes = "bytes";
inline constexpr std::string_view kKB = "KB";
inline constexpr std::string_view kMB = "MB";
inline constexpr std::string_view kGB = "GB";

// Why a path can't be reached.
inline constexpr std::string_view kDriveNotPresent = "The drive is not present.";
inline constexpr std::string_view kNoDisk = "No disk in the drive.";
inline constexpr std::string_view kFileNotFound = "The specified file was not found.";
inline constexpr std::string_view kFolderNotFound = "The specified folder was not found.";

// Start and About box.
inline constexpr std::string_view kOtherSystem =
    "Quorvane supports only Windows 2000/XP/2003/Vista";
inline constexpr std::string_view kWebsite = "Website:";
inline constexpr std::string_view kTechnicalSupport = "Technical support:";

// The error window; kSendFile goes on with the address of the support.
inline constexpr std::string_view kProgramError = "Program Error";
inline constexpr std::string_view kErrorOccurred =
    "Sorry, an error has occurred. Try to restart the program.";
inline constexpr std::string_view kIfErrorOccursAgain =
    "If the error occurs again, please send a message with an attached ErrorReport.txt file by "
    "following these directions:";
inline constexpr std::string_view kOr = "OR";
inline constexpr std::string_view kGoToFolder = "1) Go to the folder (click to open folder):";
inline constexpr std::string_view kLocateFile = "2) Locate the ErrorReport.txt file in this folder";
inline constexpr std::string_view kRightClickFile =
    "3) Right-click on the file and choose \"Send To...\" and \"Mail Recipient\"";
inline constexpr const char* kSendFile = "4) Send the file to ";
inline constexpr std::string_view kClickLink =
    "1) Click the link below and your default email client will create a message";
inline constexpr std::string_view kAttachFileSecond =
    "2) Attach the ErrorReport.txt file located in the folder (click to open folder):";
inline constexpr std::string_view kSendMail = "3) Send the mail";
inline constexpr std::string_view kOpenClient = "1) Open your email client";
inline constexpr std::string_view kCreateDocument = "2) Create a new email document";
inline constexpr std::string_view kAttachFileThird =
    "3) Attach the ErrorReport.txt file located in the folder (click to open folder):";

}  // namespace mLanguageGobals
