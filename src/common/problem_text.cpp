#include "common/problem_text.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <string_view>
#include <system_error>

#include "common/language.h"
#include "platform/files.h"

namespace mCommon {
namespace {

using namespace mLanguageGobals;

struct Row {
  int problem;
  std::string_view text;
};

constexpr Row kTexts[] = {
    {kFolderReplaced, kFolderWasReplaced},
    {kSourceChanged, kFileWasChanged},
    {kEmptyName, kNewNameEmpty},
    {kNameHoldsSeparator, kNewNameForbidden},
    {kFolderNotAbsolute, kOutputNotFull},
    {kNoSuchMode, kRenamedSomehow},
    {kFolderInTheWay, kWouldBlockUndo},
    {kOriginalGone, kOriginalIsGone},
    {kNotTheCopy, kCopyWasChanged},
    {kUnknownProblem, kNoReasonGiven},
    {EEXIST, kNameTaken},
    {ENOENT, kGone},
    {ENOTDIR, kFileInsteadOfFolder},
    {ENAMETOOLONG, kNameTooLong},
    {EACCES, kNoPermission},
    {EPERM, kNoPermission},
    {EROFS, kReadOnly},
    {ENOSPC, kDiskFull},
    {EDQUOT, kShareUsedUp},
    {EFBIG, kTooLargeForDisk},
    {EIO, kDiskError},
    {EINVAL, kBadName},
    {EILSEQ, kBadName},
    {EISDIR, kFolderInWay},
    {ENOTEMPTY, kFolderNotEmpty},
    {EXDEV, kOtherDisk},
    {ENXIO, kKindNotCopied},
    {EOPNOTSUPP, kNotSupported},
    {ENOSYS, kNotSupported},
    {EMLINK, kTooManyLinks},
    {ELOOP, kLinksInCircle},
    {EBUSY, kInUse},
    {ETXTBSY, kInUse},
    {EMFILE, kTooManyOpen},
    {ENFILE, kTooManyOpen},
    {ENOMEM, kNoMemory},
    {ENODEV, kDiskRemoved},
    {ESTALE, kFileLost},
    {ETIMEDOUT, kSilent},
    {ENOTCONN, kSilent},
    {EHOSTDOWN, kSilent},
    {EHOSTUNREACH, kSilent},
    {ENETUNREACH, kSilent},
    {ECANCELED, kCancelled},
};

}  // namespace

std::string ProblemText(int problem) {
  if (problem == 0) return {};
  const auto row = std::find_if(std::begin(kTexts), std::end(kTexts),
                                [&](const Row& one) { return one.problem == problem; });
  if (row != std::end(kTexts)) return std::string(row->text);
  return std::string(kSystemSays) + std::generic_category().message(problem) + ".";
}

}  // namespace mCommon
