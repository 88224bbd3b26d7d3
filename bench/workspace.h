#pragma once

#include <stdlib.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace bench {

/// Ends the benchmark: a figure for work that was not done would mean nothing.
inline void Require(bool done, const std::string& what) {
  if (!done) throw std::runtime_error(what + " failed");
}

/// Runs `measure` with the path of a new folder, in the folder that the command line names or in
/// TMPDIR, and removes it. Answers the exit code.
template <class Measure>
int RunInNewFolder(int argc, char** argv, Measure&& measure) {
  std::string root = argc > 1 ? argv[1] : std::filesystem::temp_directory_path().string();
  root += "/qv-bench-XXXXXX";
  if (::mkdtemp(root.data()) == nullptr) {
    std::perror(root.c_str());
    return 1;
  }
  int result = 0;
  try {
    std::printf("%-34s %12s %12s\n", "a file", "ours", "floor");
    measure(root);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    result = 1;
  }
  std::error_code ignored;
  std::filesystem::remove_all(root, ignored);
  return result;
}

}  // namespace bench
