#include "window/saved_controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

#include "core/run_state.h"
#include "filelist/file_list_panel.h"
#include "platform/qt/text_qt.h"
#include "window/folder_pages.h"

namespace {

constexpr struct {
  bool SavedOptions::*option;
  QCheckBox* FolderPages::*box;
} kPageBoxes[] = {
    {&SavedOptions::chSaveSourceFolderOptions, &FolderPages::chSaveSourceFolderOptions},
    {&SavedOptions::chSaveOutputFolderOptions, &FolderPages::chSaveOutputFolderOptions},
    {&SavedOptions::chSaveFileListOptions, &FolderPages::chSaveFileListOptions},
    {&SavedOptions::chSubfolders, &FolderPages::chSubfolders},
    {&SavedOptions::chDestinationSubfolders, &FolderPages::chDestinationSubfolders},
};

constexpr struct {
  std::string SavedOptions::*option;
  QLineEdit* FolderPages::*field;
} kFields[] = {
    {&SavedOptions::fdSourceFolder, &FolderPages::fdSourceFolder},
    {&SavedOptions::fdIncludeMask, &FolderPages::fdIncludeMask},
    {&SavedOptions::fdExcludeMask, &FolderPages::fdExcludeMask},
    {&SavedOptions::fdDestination, &FolderPages::fdDestination},
};

constexpr struct {
  bool SavedOptions::*option;
  QCheckBox* FileListPanel::*box;
} kColumnBoxes[] = {
    {&SavedOptions::chColumnPath, &FileListPanel::chColumnPath},
    {&SavedOptions::chColumnSize, &FileListPanel::chColumnSize},
    {&SavedOptions::chColumnType, &FileListPanel::chColumnType},
    {&SavedOptions::chColumnDate, &FileListPanel::chColumnDate},
};

}  // namespace

SavedOptions OptionsOf(const SavedControls& controls) {
  SavedOptions options;
  for (const auto& row : kPageBoxes) options.*row.option = (controls.pages.*row.box)->isChecked();
  for (const auto& row : kFields) {
    options.*row.option = text::FromQt((controls.pages.*row.field)->text());
  }
  for (const auto& row : kColumnBoxes) options.*row.option = (controls.list.*row.box)->isChecked();
  options.cmbDestination = controls.pages.cmbDestination->currentIndex();
  options.cmbGroupBy = controls.list.cmbGroupBy->currentIndex();
  options.gConflictAddNumber = controls.state.gConflictAddNumber;
  options.gNumberLeft = controls.state.gNumberLeft;
  options.gNumberRight = controls.state.gNumberRight;
  return options;
}

void ShowOptions(const SavedOptions& options, const SavedControls& controls) {
  controls.state.gConflictAddNumber = options.gConflictAddNumber;
  controls.state.gNumberLeft = options.gNumberLeft;
  controls.state.gNumberRight = options.gNumberRight;
  for (const auto& row : kPageBoxes) (controls.pages.*row.box)->setChecked(options.*row.option);
  controls.pages.cmbDestination->setCurrentIndex(options.cmbDestination);
  for (const auto& row : kFields) {
    (controls.pages.*row.field)->setText(text::ToQt(options.*row.option));
  }
  for (const auto& row : kColumnBoxes) (controls.list.*row.box)->setChecked(options.*row.option);
  controls.list.cmbGroupBy->setCurrentIndex(options.cmbGroupBy);
}
