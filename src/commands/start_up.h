#pragma once

#include <optional>
#include <string>
#include <vector>

#include "errors/report_file.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/system_facts.h"

namespace mMain {

/// Whether the program may go on to its first window. Tells the user when it can't run on this
/// system; ends without a word while another copy runs.
bool MayStart(SystemFacts& facts, Prompts& prompts, bool another_runs);

/// What the words behind the program's name lead to: a window or, with an exit code, a text only.
struct CommandLine {
  std::string folder = {};  ///< to look for files in; empty: none was named
  std::optional<int> exit_code = {};
  std::string told = {};  ///< to standard output for the code 0, else to standard error
};

/// At most one folder may be named, or a file, which means its folder; what is behind "--" is no
/// option. A path is raw bytes; a relative one starts from the working folder.
CommandLine ReadCommandLine(FileSystem& files, const std::vector<std::string>& words);

/// What the working folder holds; noted for the error report.
StartFlags LookForStartFiles(FileSystem& files);

}  // namespace mMain
