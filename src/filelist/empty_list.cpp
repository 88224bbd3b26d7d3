#include "filelist/empty_list.h"

#include <cerrno>

#include "common/language.h"
#include "common/path_text.h"

namespace {

constexpr std::string_view kNone = "No files found";

bool HoldsOtherSeparator(std::string_view masks) {
  return masks.find_first_of(";,") != masks.npos;
}

}  // namespace

EmptyList WhyEmpty(const ScanFindings& findings, std::string_view folder, bool folder_is_there,
                   std::string_view include_mask, std::string_view exclude_mask) {
  if (findings.root_problem == ENOENT || findings.root_problem == ENOTDIR) {
    return EmptyList::kFolderMissing;
  }
  if (findings.root_problem != 0) return EmptyList::kFolderUnreadable;
  if (findings.files) {
    const bool hint = HoldsOtherSeparator(include_mask) || HoldsOtherSeparator(exclude_mask);
    return hint ? EmptyList::kMasksNotParted : EmptyList::kNoMatch;
  }
  if (!folder.ends_with(kNative.separator)) {
    return folder_is_there ? EmptyList::kSeparatorMissing : EmptyList::kFolderMissing;
  }
  if (findings.subfolder_unreadable) return EmptyList::kSubfolderUnreadable;
  return findings.subfolders_passed_over ? EmptyList::kOnlySubfolders : EmptyList::kNoFile;
}

EmptyListTexts TextsOf(EmptyList reason) {
  static_assert(kNative.separator == '/', "it stands in a text");
  switch (reason) {
    case EmptyList::kNotListed:
      return {"No files listed", "Choose a source folder, then press “Prepare file list”."};
    case EmptyList::kListing:
      break;
    case EmptyList::kNotComplete:
      return {"List not complete", "Press “Prepare file list” to start again."};
    case EmptyList::kFolderMissing:
      return {kNone, mLanguageGobals::kFolderNotFound};
    case EmptyList::kFolderUnreadable:
      return {kNone, "The folder can't be read."};
    case EmptyList::kSeparatorMissing:
      return {kNone, "The source folder does not end in “/”."};
    case EmptyList::kNoFile:
      return {kNone, "There is no file in this folder."};
    case EmptyList::kOnlySubfolders:
      return {kNone,
              "There is no file in this folder itself.\n"
              "Tick “Include subfolders” to look into its subfolders."};
    case EmptyList::kSubfolderUnreadable:
      return {kNone, "There is no file in this folder, but some subfolders can't be read."};
    case EmptyList::kNoMatch:
      return {kNone, "No file in this folder matches the masks."};
    case EmptyList::kMasksNotParted:
      return {kNone,
              "No file in this folder matches the masks.\n"
              "Blanks part masks, as in *.jpg *.png."};
  }
  return {};
}
