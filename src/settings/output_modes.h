#pragma once

#include <iterator>
#include <string_view>

/// What a run does with the files. As stored, and as the position in `cmbDestination`.
enum OutputMode : int { kUseSourceFolder = 0, kCopyTo = 1, kMoveTo = 2 };

/// All that tells one output mode from another.
struct OutputModeRow {
  const char* caption;
  bool asks_for_folder;   ///< else each file stays in its own folder
  bool keeps_source;      ///< the run copies and undo deletes the copy; else both move the file
  std::string_view done;  ///< what the run has done with a file: "renamed"
};

/// By number.
inline constexpr OutputModeRow kOutputModes[] = {
    {"Use source folder", false, false, "renamed"},
    {"Copy to", true, true, "copied"},
    {"Move to", true, false, "moved"},
};
inline constexpr int kLastOutputMode = std::size(kOutputModes) - 1;

constexpr bool IsOutputMode(int mode) {
  return mode >= 0 && mode <= kLastOutputMode;
}

/// As in the table; both false for what is no mode.
constexpr bool AsksForFolder(int mode) {
  return IsOutputMode(mode) && kOutputModes[mode].asks_for_folder;
}
constexpr bool KeepsSource(int mode) {
  return IsOutputMode(mode) && kOutputModes[mode].keeps_source;
}
/// As in the table; of what is no mode that of the first, since its files fail.
constexpr std::string_view DoneWord(int mode) {
  return kOutputModes[IsOutputMode(mode) ? mode : kUseSourceFolder].done;
}
