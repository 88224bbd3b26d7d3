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

constexpr Row kTexts[] = {
    {kFolderReplaced, "Another folder has taken the place of this one."},
    {kSourceChanged, "The file was changed meanwhile."},
    {kEmptyName, "The new name is empty."},
    {kNameHoldsSeparator, "The name holds a character that no name can hold."},
    {kFolderNotAbsolute, "The output folder is not a full path."},
    {kNoSuchMode, "Nothing is known of how this file was renamed."},
    {kFolderInTheWay, "A folder made here would stand in the way of undo."},
    {kOriginalGone, "The file that this copy was made of is no longer there."},
    {kNotTheCopy, "This is no longer the copy that was made."},
    {kUnknownProblem, "The system gives no reason."},
    {EEXIST, "The name is taken."},
    {ENOENT, "The file or its folder is no longer there."},
    {ENOTDIR, "The file or its folder is no longer there."},
    {ENAMETOOLONG, "The name is too long."},
    {EACCES, "You don't have the right to do this."},
    {EPERM, "You don't have the right to do this."},
    {EROFS, "The disk can only be read."},
    {ENOSPC, "The disk is full."},
    {EDQUOT, "Your share of the disk is full."},
    {EFBIG, "The file is too large for this disk."},
    {EIO, "The disk reports an error."},
    {EINVAL, "The disk refuses this name or kind of file."},
    {EILSEQ, "The disk refuses this name or kind of file."},
    {EISDIR, "A folder stands in the way."},
    {EXDEV, "This kind of file can't be moved to another disk."},
    {ELOOP, "Links lead round in a circle."},
    {EBUSY, "The file is in use."},
    {ETXTBSY, "The file is in use."},
    {EMFILE, "Too many files are open."},
    {ENFILE, "Too many files are open."},
    {ENOMEM, "There is not enough memory."},
    {ESTALE, "The disk has lost sight of the file."},
    {ETIMEDOUT, "The disk does not answer."},
    {ENOTCONN, "The disk does not answer."},
    {EHOSTDOWN, "The disk does not answer."},
};

}  // namespace

std::string ProblemText(int problem) {
  if (problem == 0) return {};
  const auto row = std::find_if(std::begin(kTexts), std::end(kTexts),
                                [&](const Row& one) { return one.problem == problem; });
  if (row != std::end(kTexts)) return std::string(row->text);
  return std::generic_category().message(problem) + ".";
}

}  // namespace mCommon
