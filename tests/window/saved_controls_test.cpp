#include "window/saved_controls.h"

#include <gtest/gtest.h>

#include "core/records.h"
#include "core/run_state.h"
#include "filelist/file_list_panel.h"
#include "filelist/folder_pages.h"
#include "support/memory_settings.h"

namespace {

TEST(SavedControls, EveryOptionGoesIntoItsControlAndComesBack) {
  SavedOptions options;
  options.chSaveOutputFolderOptions = false;
  options.fdSourceFolder = "/photos/\xFF/";
  options.chSubfolders = false;
  options.fdIncludeMask = "*.jpg";
  options.fdExcludeMask = "*.png";
  options.cmbDestination = 1;
  options.fdDestination = "/out/";
  options.chColumnSize = options.chColumnDate = true;
  options.cmbGroupBy = 2;
  options.gConflictAddNumber = 0;
  options.gNumberLeft = "(";
  options.gNumberRight = ")";

  FolderPages pages;
  Records records;
  Grid grid(records);
  FileListPanel list(grid);
  RunState state;
  const SavedControls controls{pages, list, state};
  ShowOptions(options, controls);
  EXPECT_EQ(pages.SourceFolder(), options.fdSourceFolder);
  EXPECT_EQ(state.gNumberLeft, "(");

  // The text of every option, each under its own key.
  MemorySettings expected, found;
  for (const auto& [store, held] :
       {std::pair(&expected, options), std::pair(&found, OptionsOf(controls))}) {
    SavedOptions all = held;
    WriteConflictOptions(*store, all);
    WriteSavedOptions(*store, all);
    all.chSaveOutputFolderOptions = true;
    WriteSavedOptions(*store, all);
  }
  EXPECT_EQ(found.written, expected.written);
}

}  // namespace
