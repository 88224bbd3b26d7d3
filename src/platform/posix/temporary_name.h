#pragma once

#include <cerrno>
#include <string>
#include <string_view>

#include "platform/posix/folder_handles.h"

/// The names that an operation uses for what is not finished: ".qv-<pid>-<n>.part".

/// A name not handed out before by this process.
std::string NextTemporaryName();

/// True for every name of that form with our process's number in it.
bool IsOwnTemporaryName(std::string_view name);

/// True for a name of that form while the process lives that it belongs to. What a killed process
/// left behind is a file like any other.
bool IsInTheMaking(const Syscalls& calls, std::string_view name);

/// Tries `make`, which answers 0 or errno, with new temporary names in `folder`, until one isn't
/// taken: a process that had our number before, and was killed, may have left some.
template <class Make>
int WithTemporaryName(const std::shared_ptr<const Folder>& folder, Place& place, Make make) {
  constexpr int kTries = 1000;  // and not for ever, should a file system answer nothing else
  for (int i = 0;; ++i) {
    place = {folder, NextTemporaryName()};
    const int error = make();
    if (error != EEXIST || i == kTries) return error;
  }
}
