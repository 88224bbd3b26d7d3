#pragma once

#include <QWidget>

#include "commands/commands.h"
#include "commands/command_view.h"
#include "filelist/grid.h"
#include "names/constructor.h"

class CommandButtons;
class ConstructorEditor;
class FileListPanel;
class FolderPages;
class StatusBar;

/// The main window: the panels laid out, the mode table applied to them, and which signal starts
/// which command.
class Form1 : public QWidget, private CommandView {
  Q_OBJECT

 public:
  /// `parts` are the program's and outlive the window.
  explicit Form1(const CommandParts& parts, QWidget* parent = nullptr);
  ~Form1() override;

  /// The commands, for what starts them from outside.
  Commands& AllCommands() { return commands_; }

 protected:
  /// During a pass the window only asks it to end, and closes when it has.
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void LayOut();
  void ConnectPanels();
  /// Runs a command with the focused field's value handed over first.
  void Start(void (Commands::*command)());
  void GiveFocusBack(QWidget* focused);
  void MarkStaleWhereOrderCounts();
  void SetWide(bool wide);
  void FocusFirst();

  void EnableElements(bool pEnable) override;
  void SetWaitPointer(bool wait) override;
  void EnableButton(CommandButton button, bool enable) override;
  void ShowPanes() override;
  SourceOptions ReadSourceOptions() override;
  OutputOptions ReadOutputOptions() override;
  void SetSourceFolder(const std::string& folder) override;
  void ListRepopulated(EmptyList reason) override;
  void RowsChanged() override;
  void FocusAfterCancel() override;

  CommandParts parts_;
  Commands commands_;
  QWidget* left_column_;
  FolderPages* folder_pages_;
  ConstructorEditor* editor_;
  CommandButtons* buttons_;
  FileListPanel* list_;
  StatusBar* status_bar_;
  bool cancelled_ = false;  ///< "Cancel" was pressed during the running command
  bool waiting_ = false;
  bool close_wanted_ = false;
  bool first_show_ = true;
};
