#pragma once

#include <memory>

#include "platform/files.h"
#include "platform/posix/syscalls.h"

/// As MakePosixFileSystem(), with these calls instead of the machine's.
std::unique_ptr<FileSystem> MakePosixFileSystem(Syscalls calls);
