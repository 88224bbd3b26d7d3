#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// The names of the folders in `folder`, `most` at most, in the order of the system; a link that
/// leads to a folder is one here. None where it can't be read. Any thread may call it, and wait
/// there for a disk that doesn't answer.
std::vector<std::string> SubfoldersOf(const std::string& folder, std::size_t most);
