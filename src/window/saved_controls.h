#pragma once

#include "settings/saved_options.h"

class FileListPanel;
class FolderPages;
struct RunState;

/// What holds the saved options while the program runs.
struct SavedControls {
  FolderPages& pages;
  FileListPanel& list;
  RunState& state;
};

SavedOptions OptionsOf(const SavedControls& controls);

/// Sets the controls; one that changes runs its handlers.
void ShowOptions(const SavedOptions& options, const SavedControls& controls);
