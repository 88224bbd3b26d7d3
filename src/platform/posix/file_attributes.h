#pragma once

#include "platform/posix/syscalls.h"

/// Gives the new file `to` the extended attributes, access list, mode and times of `from`, whose
/// facts are `source`; the owner too when `keep_owner`, as far as the user may give files away.
/// What the file system of `to` can't hold is no error. 0 or errno.
int CopyAttributes(const Syscalls& calls, int from, int to, const struct statx& source,
                   bool keep_owner);
