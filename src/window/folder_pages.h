#pragma once

#include <QTabWidget>
#include <array>
#include <functional>
#include <string>

#include "settings/options.h"

class FolderField;
class Folders;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

/// The pages "Source folder", "Output folder" and "Settings". Folders and masks are raw bytes.
class FolderPages : public QTabWidget {
  Q_OBJECT

 public:
  /// Shows the folder dialog from `start` and answers the chosen path, empty after a cancel.
  using FolderDialog = std::function<std::string(const std::string& start)>;

  /// Without `browse`, the dialog is that of `BrowseForDisk`. `folders` outlives the pages.
  explicit FolderPages(Folders& folders, QWidget* parent = nullptr, FolderDialog browse = {});

  /// What the controls hold.
  SaveOptions Saved() const;
  SourceOptions Source() const;
  OutputOptions Output() const;

  /// Sets the controls; one that changes runs its handlers.
  void Show(const SaveOptions& options);
  void Show(const SourceOptions& options);
  void Show(const OutputOptions& options);
  void SetSourceFolder(const std::string& folder);
  /// A folder that comes from outside; its page shows.
  void TakeSourceFolder(const std::string& folder);
  void TakeOutputFolder(const std::string& folder);

  /// Gives the typed source folder its closing separator.
  void CloseSourceFolder();

  /// Takes "~" for the user's own folder, and gives a typed output folder its closing separator.
  /// Every command does this first.
  void CommitFocusedField();

  FolderField* fdSourceFolder;
  QPushButton* Command2;
  QLineEdit* fdIncludeMask;
  QLineEdit* fdExcludeMask;
  QCheckBox* chSubfolders;
  QComboBox* cmbDestination;
  FolderField* fdDestination;
  QPushButton* bnDestination;
  QCheckBox* chDestinationSubfolders;
  QCheckBox* chSaveSourceFolderOptions;
  QCheckBox* chSaveOutputFolderOptions;
  QCheckBox* chSaveFileListOptions;
  QCheckBox* chEnableSkin;

 signals:
  /// The text of the source folder differs from what it was.
  void sourceFolderChanged();
  /// A source folder was chosen and not typed, be it the same one.
  void folderChosen();
  /// Enter was pressed in a field of the page "Source folder".
  void listAsked();
  void skinToggled(bool on);
  /// What a run would take of the page "Output folder" is another, and not just being typed.
  void outputChanged();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  /// Those that make sense only with a folder of its own.
  std::array<QWidget*, 4> OutputControls() const;
  QWidget* NewPage(const QString& title);
  void BuildSourcePage(QWidget* page);
  void BuildOutputPage(QWidget* page);
  void BuildSettingsPage(QWidget* page);
  void AddKeys();
  void Command2_Click();
  void bnDestination_Click();
  void cmbDestination_Click();

  Folders& folders_;
  FolderDialog browse_;
  QLabel* destination_label_;
};
