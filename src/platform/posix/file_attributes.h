#pragma once

#include "platform/posix/syscalls.h"

/// Gives the new file `to`, which its owner may write, the extended attributes, access list and
/// times of `from`, whose facts are `source`; the owner too when `keep_owner`, as far as the user
/// may give files away. What the file system of `to` can't hold is no error. 0 or errno.
int CopyAttributes(const Syscalls& calls, int from, int to, const struct statx& source,
                   bool keep_owner);

/// Then gives it the mode of `source`, unless it has that; `made` are its facts by now. As above.
int GiveMode(const Syscalls& calls, int to, const struct statx& made, const struct statx& source);
