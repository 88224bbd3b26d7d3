#pragma once

#include <QTimer>
#include <QWidget>
#include <string>
#include <vector>

#include "commands/command_view.h"
#include "commands/commands.h"
#include "filelist/grid.h"
#include "names/constructor.h"
#include "names/drafts.h"
#include "platform/services.h"
#include "settings/saved_options.h"

class CommandButtons;
class ConstructorEditor;
class FileListPanel;
class FolderPages;
class Later;
class ResultWindow;
struct ResultKind;
class StatusBar;
class TemplateGroup;
class UndoKey;
class WindowPlacement;

/// The main window: the panels laid out, the mode table applied to them, and which signal starts
/// which command.
class Form1 : public QWidget, private CommandView {
  Q_OBJECT

 public:
  /// All are the program's and outlive the window. What doesn't show at first may be made `later`.
  Form1(Session& session, const Services& services, QWidget* parent = nullptr,
        Later* later = nullptr);
  ~Form1() override;

  /// Brings the stored options into the controls, whatever `pTemplateName` is. At a value that
  /// can't be read it raises Failure; the controls show what was read before.
  void IniSettings(const std::string& pTemplateName);

  /// Makes `folder`, with its closing separator, the source folder.
  void TakeSourceFolder(const std::string& folder);

  /// Tells of the runs that `journals` tell of, in their order, and lets the user put their files
  /// back, until all are dealt with or are left for another start.
  void TellOfLeftRuns(const std::vector<std::string>& journals);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void LayOut();
  void ConnectPanels();
  void ConnectFolders();
  void MakeTemplates();
  void WatchDrops(FileSystem& files);
  void lnkAddSeparator_Click();
  void ListFiles();
  /// Brings panes, skin, stored options, columns, mode, place and font to controls that stand: the
  /// panels fill their own, layouts put them in line, and the option panes lie in one stack. The
  /// place is taken when the window is shown first. A failure in the options doesn't keep the rest.
  void Form_Load();
  /// All but what follows from the wide list is done by the layouts; nothing while minimised.
  void Form_Resize();
  /// Stores the options, then the placement, which brings both to disk, and closes the result
  /// windows. During a pass it only asks that to end and sets `Cancel`: the window stays until
  /// then.
  void Form_Unload(bool& Cancel);
  void chEnableSkin_Click();
  void Show(const Options& options);
  /// Runs a command with the focused field's value handed over first.
  void Start(CommandButton button);
  void GiveFocusBack(QWidget* focused);
  void MarkStaleWhereOrderCounts();
  /// What new names come to, or what is shown of them, may have changed.
  void ShowDraftsAnew();
  void SetWide(bool wide);
  void FocusFirst();
  void Command4_Click();
  void bnAbout_Click();
  void bnHelp_Click();
  void AddListKeys();
  /// The commands that fit a row, at `place` on the screen.
  void ShowPopup(int row, const QPoint& place);
  /// The one way of all commands that a menu sends, by their numbers.
  void CommandBars1_Execute(int Control);

  void EnableElements(bool pEnable) override;
  void SetWaitPointer(bool wait) override;
  void EnableButton(CommandButton button, bool enable) override;
  void ShowPanes() override;
  Options ReadOptions() const override;
  void SetSourceFolder(const std::string& folder) override;
  bool AskAboutSystemFolders(const std::string& folders) override;
  std::optional<std::string> AskForMask(std::string_view caption, std::string_view mask) override;
  void FocusAfterCancel() override;
  void WorkInPauses() override { pauses_.start(); }
  ResultWindow& Made(ResultWindow*& report, const ResultKind& kind);
  void ShowFailureReport() override;
  void ShowConflictReport() override;

  Session& session_;
  const Services& services_;
  Drafts drafts_;
  QTimer example_timer_;  ///< from a change to its example, made once for all before a frame
  QWidget* left_column_;
  FolderPages* folder_pages_;
  ConstructorEditor* editor_;
  CommandButtons* buttons_;
  TemplateGroup* templates_ = nullptr;
  FileListPanel* list_;
  StatusBar* status_bar_;
  Commands commands_;
  QTimer pauses_;  ///< runs while names wait to be looked at
  UndoKey* undo_key_;
  WindowPlacement* placement_ = nullptr;
  ResultWindow* gFailureReport = nullptr;  ///< both made at their first report
  ResultWindow* gConflictReport = nullptr;
  OptionsAtStart at_start_;
  bool cancelled_ = false;  ///< "Cancel" was pressed during the running command
  bool waiting_ = false;
  bool gWideListShift = false;  ///< the list stands over the left column too
  bool close_wanted_ = false;
  bool first_show_ = true;
};
