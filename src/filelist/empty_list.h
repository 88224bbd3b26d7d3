#pragma once

#include <cstdint>
#include <string_view>

/// Why the list shows no file.
enum class EmptyList : std::uint8_t {
  kNotListed,    ///< none was looked for yet
  kListing,      ///< it is being filled
  kNotComplete,  ///< cancelled, or ended by a failure
  kMaskFaulty,   ///< ended by a mask that can't be understood
  kFolderMissing,
  kFolderUnreadable,
  kSeparatorMissing,  ///< the folder as typed lacks its closing separator, so it has no files
  kNoFile,
  kOnlySubfolders,       ///< which were not looked into, as the options say
  kSubfolderUnreadable,  ///< no file elsewhere
  kNoMatch,
  kMasksNotParted,  ///< no match, for masks that are not parted by blanks
};

/// What a scan met, whether or not its masks took it.
struct ScanFindings {
  int root_problem = 0;  ///< why the folder itself could not be read: errno, or 0
  bool files = false;
  bool subfolders_passed_over = false;
  bool subfolder_unreadable = false;
};

/// Why a scan of `folder`, as it was typed, to its end gave no file. `folder_is_there` tells of the
/// folder itself, with a separator or without.
EmptyList WhyEmpty(const ScanFindings& findings, std::string_view folder, bool folder_is_there,
                   std::string_view include_mask, std::string_view exclude_mask);

/// The texts that the empty list shows; no title, nothing shown. The link is what can be done about
/// it, where something can.
struct EmptyListTexts {
  std::string_view title;
  std::string_view note;
  std::string_view link = {};
};
EmptyListTexts TextsOf(EmptyList reason);
