#include "common/problem_text.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <string_view>
#include <system_error>

#include "platform/files.h"

namespace mCommon {
namespace {

struct Row {
  int problem;
  std::string_view text;
};

constexpr std::string_view kGone = "The file or its folder no longer exists.";
constexpr std::string_view kNoPermission = "You don't have permission to do this.";
constexpr std::string_view kBadName = "The disk doesn't accept this file name.";
constexpr std::string_view kInUse = "The file is in use.";
constexpr std::string_view kTooManyOpen = "Too many files are open.";
constexpr std::string_view kSilent = "The disk isn't responding.";

constexpr Row kTexts[] = {
    {kFolderReplaced, "The folder was replaced by another."},
    {kSourceChanged, "The file was changed in the meantime."},
    {kEmptyName, "The new name is empty."},
    {kNameHoldsSeparator, "The new name has a forbidden character."},
    {kFolderNotAbsolute, "The output folder isn't a full path."},
    {kNoSuchMode, "It isn't known how this file was renamed."},
    {kFolderInTheWay, "A new folder here would block Undo."},
    {kOriginalGone, "The original file no longer exists."},
    {kNotTheCopy, "The copy was changed or replaced."},
    {kUnknownProblem, "The system gave no reason."},
    {EEXIST, "The name is already taken."},
    {ENOENT, kGone},
    {ENOTDIR, "There is a file where a folder should be."},
    {ENAMETOOLONG, "The name is too long."},
    {EACCES, kNoPermission},
    {EPERM, kNoPermission},
    {EROFS, "The disk is read-only."},
    {ENOSPC, "The disk is full."},
    {EDQUOT, "You have used up your share of the disk."},
    {EFBIG, "The file is too large for this disk."},
    {EIO, "The disk reported an error."},
    {EINVAL, kBadName},
    {EILSEQ, kBadName},
    {EISDIR, "A folder is in the way."},
    {ENOTEMPTY, "The folder isn't empty."},
    {EXDEV, "This file can't be moved to another disk."},
    {ENXIO, "This kind of file can't be copied."},
    {EOPNOTSUPP, "The disk doesn't support this."},
    {ENOSYS, "The disk doesn't support this."},
    {EMLINK, "The file has too many links."},
    {ELOOP, "The links in the path lead in a circle."},
    {EBUSY, kInUse},
    {ETXTBSY, kInUse},
    {EMFILE, kTooManyOpen},
    {ENFILE, kTooManyOpen},
    {ENOMEM, "There isn't enough memory."},
    {ENODEV, "The disk was removed."},
    {ESTALE, "The disk has lost track of the file."},
    {ETIMEDOUT, kSilent},
    {ENOTCONN, kSilent},
    {EHOSTDOWN, kSilent},
    {EHOSTUNREACH, kSilent},
    {ENETUNREACH, kSilent},
    {ECANCELED, "The operation was cancelled."},
};

}  // namespace

std::string ProblemText(int problem) {
  if (problem == 0) return {};
  const auto row = std::find_if(std::begin(kTexts), std::end(kTexts),
                                [&](const Row& one) { return one.problem == problem; });
  if (row != std::end(kTexts)) return std::string(row->text);
  return "The system says: " + std::generic_category().message(problem) + ".";
}

}  // namespace mCommon
