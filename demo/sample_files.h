#pragma once

#include <string>

/// Makes a folder of sample files as people have them: photographs with a camera's names, songs,
/// papers; accents, an emoji, a name that is no UTF-8. Answers its path, with the closing
/// separator.
std::string MakeSampleFiles();
/// The same files, in a folder that is there.
void MakeSampleFilesIn(const std::string& folder);

/// Prints the files below `folder`, one a line with their folders, sorted; bad bytes as "\xNN".
void PrintTree(const std::string& heading, const std::string& folder);
