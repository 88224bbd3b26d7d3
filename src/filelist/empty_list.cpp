#include "filelist/empty_list.h"

#include <cerrno>

#include "common/language.h"
#include "common/path_text.h"

namespace {

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
  using namespace mLanguageGobals;
  static_assert(kNative.separator == '/', "it stands in a text");
  switch (reason) {
    case EmptyList::kNotListed:
      return {kNoneListed, kChooseAndList};
    case EmptyList::kListing:
      return {kListing, {}};
    case EmptyList::kNotComplete:
      return {kNotComplete, kListAgain};
    case EmptyList::kMaskFaulty:
      return {kNotComplete, kBracketOpen};
    case EmptyList::kFolderMissing:
      return {kNoneFound, kFolderNotFound};
    case EmptyList::kFolderUnreadable:
      return {kNoneFound, kFolderUnreadable};
    case EmptyList::kSeparatorMissing:
      return {kNoneFound, kNoClosingSeparator, kAddSeparator};
    case EmptyList::kNoFile:
      return {kNoneFound, kNoFileHere};
    case EmptyList::kOnlySubfolders:
      return {kNoneFound, kOnlyInSubfolders};
    case EmptyList::kSubfolderUnreadable:
      return {kNoneFound, kSubfoldersUnreadable};
    case EmptyList::kNoMatch:
      return {kNoneFound, kNoMatch};
    case EmptyList::kMasksNotParted:
      return {kNoneFound, kMasksNotParted};
  }
  return {};
}
