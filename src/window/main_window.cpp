#include "window/main_window.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "commands/command_buttons.h"
#include "common/shell_actions.h"
#include "filelist/file_list_panel.h"
#include "filelist/list_view.h"
#include "filelist/mask_dialog.h"
#include "filelist/system_folder_dialog.h"
#include "look/accessible_role.h"
#include "look/card.h"
#include "look/handlers.h"
#include "look/later.h"
#include "look/look.h"
#include "look/shortcuts.h"
#include "names/editor/constructor_editor.h"
#include "names/editor/example_label.h"
#include "names/element_kinds.h"
#include "platform/qt/text_qt.h"
#include "platform/system_facts.h"
#include "rename/conflicts_dialog.h"
#include "rename/left_run_dialog.h"
#include "rename/results/result_windows.h"
#include "trace/err_trace.h"
#include "window/about_box.h"
#include "window/folder_drop.h"
#include "window/folder_field.h"
#include "window/folder_pages.h"
#include "window/status_bar.h"
#include "window/template_group.h"
#include "window/undo_key.h"
#include "window/window_layout.h"

namespace {

/// What each command button starts.
constexpr void (Commands::*kCommands[kCommandButtonCount])() = {
    &Commands::bnLoadFileList_Click, &Commands::bnPreview_Click, &Commands::bnRename_Click,
    &Commands::bnUndo_Click,         &Commands::bnCancel_Click,
};

/// The first part of the window, which has its role before: parts that come into being are told
/// with all that they lie in.
LeftColumn* NewLeftColumn(QWidget* window) {
  SetAccessibleRole(*window, QAccessible::Window);
  return new LeftColumn(window);
}

}  // namespace

Form1::Form1(Session& session, const Services& services, QWidget* parent, Later* later)
    : QWidget(parent),
      session_(session),
      services_(services),
      drafts_(session.grid, session.constructor, services.clock, services.locale),
      left_column_(NewLeftColumn(this)),
      folder_pages_(new FolderPages(services.folders, left_column_)),
      editor_(new ConstructorEditor(session.constructor, services, left_column_, later)),
      buttons_(new CommandButtons(left_column_)),
      list_(new FileListPanel(session.grid, this)),
      status_bar_(new StatusBar(this)),
      commands_(session, services, *this, *list_) {
  session.grid.List().SetDrafts([this](std::size_t row) { return drafts_.NameOf(row); });
  setObjectName(QStringLiteral("Form1"));
  setWindowTitle(tr("Quorvane"));
  LayOut();
  ConnectPanels();
  ConnectFolders();
  WatchDrops(services.files);
  undo_key_ = new UndoKey(*this, *buttons_->Button(CommandButton::bnUndo));
  connect(editor_, &ConstructorEditor::paneMade, undo_key_,
          [this](QWidget* pane) { undo_key_->Watch(*pane); });
  Later::Do(later, this, [this] { MakeTemplates(); });
  Form_Load();
}

Form1::~Form1() {
  session_.grid.List().SetDrafts(nullptr);
  if (waiting_) QApplication::restoreOverrideCursor();
}

void Form1::MakeTemplates() {
  const auto options = [this] {
    editor_->MakePanes();
    return ReadTemplateOptions(*this, session_.grid.List());
  };
  const auto ini_settings = [this](const std::string& name) {
    IniSettings(name);
    commands_.CheckNames();
  };
  templates_ = new TemplateGroup(services_, {options, ini_settings}, left_column_);
  templates_->setEnabled(editor_->isEnabled());
}

void Form1::LayOut() {
  auto* lblFontContainer = new QLabel(this);
  lblFontContainer->setObjectName(QStringLiteral("lblFontContainer"));
  lblFontContainer->hide();
  auto* left = new QVBoxLayout(left_column_);
  left->setContentsMargins(0, 0, 0, 0);
  left->setSpacing(measure::kBlockGap);
  left->addWidget(folder_pages_);
  left->addWidget(editor_, 1);
  left->addWidget(buttons_);

  auto* row = new QHBoxLayout;
  row->setContentsMargins(measure::kWindowMargin, measure::kWindowMargin, measure::kWindowMargin,
                          measure::kWindowMargin);
  row->setSpacing(measure::kBlockGap);
  row->addWidget(left_column_);
  row->addWidget(list_, 1);

  auto* whole = new WindowLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->setSpacing(0);
  whole->addLayout(row, 1);
  whole->addWidget(status_bar_);
  PolishAll(this);
  resize(whole->totalMinimumSize());
}

void Form1::ConnectPanels() {
  connect(editor_, &ConstructorEditor::optionChanged, this, [this] {
    commands_.MarkStale();
    ShowDraftsAnew();
  });
  OnSignal(&pauses_, &QTimer::timeout, this, "Form1.WorkInPause", [this] {
    if (!commands_.WorkInPause()) pauses_.stop();
  });
  example_timer_.setSingleShot(true);
  OnSignal(&example_timer_, &QTimer::timeout, this, "Form1.ShowExample", [this] {
    const FileListPanel::Example names = list_->ExampleFile();
    editor_->lbExample->ShowNames(names.old_name, names.new_name);
  });
  connect(editor_, &ConstructorEditor::numberTaken, this, &Form1::ShowDraftsAnew);
  connect(list_, &FileListPanel::rowChecked, this, [this] {
    commands_.TicksChanged();
    ShowDraftsAnew();
  });
  connect(list_, &FileListPanel::selectionChanged, &example_timer_, qOverload<>(&QTimer::start));
  connect(list_, &FileListPanel::groupByChanged, this, &Form1::MarkStaleWhereOrderCounts);
  connect(list_, &FileListPanel::sortChanged, this, &Form1::MarkStaleWhereOrderCounts);
  connect(list_, &FileListPanel::wideToggled, this, &Form1::SetWide);
  connect(folder_pages_, &FolderPages::skinToggled, this, &Form1::chEnableSkin_Click);
  connect(list_, &FileListPanel::rowDblClick, this, [this](const std::string& file) {
    mMain::OpenInExplorerList(services_.files, services_.prompts, services_.shell, file);
  });
  connect(list_, &FileListPanel::rowRClick, this, &Form1::ShowPopup);
  AddListKeys();
  connect(editor_, &ConstructorEditor::commandPicked, this, &Form1::CommandBars1_Execute);
  connect(editor_, &ConstructorEditor::conflictsClicked, this, &Form1::Command4_Click);
  connect(buttons_, &CommandButtons::commandRequested, this, &Form1::Start);
  connect(status_bar_, &StatusBar::aboutAsked, this, &Form1::bnAbout_Click);
  connect(status_bar_, &StatusBar::helpAsked, this, &Form1::bnHelp_Click);
}

void Form1::ConnectFolders() {
  for (auto signal : {&FolderPages::sourceFolderChanged, &FolderPages::folderChosen}) {
    connect(folder_pages_, signal, this, [this] {
      ErrTrace::top("Form1.fdSourceFolder_Change", [&] {
        commands_.EnableDisable(ModeFolderChosen);
        commands_.ForgetRuns();
      });
    });
  }
  connect(folder_pages_, &FolderPages::outputChanged, this, [this] { commands_.CheckNames(); });
  connect(folder_pages_, &FolderPages::listAsked, this, &Form1::ListFiles);
  connect(list_, &FileListPanel::separatorAsked, this, &Form1::lnkAddSeparator_Click);
}

void Form1::WatchDrops(FileSystem& files) {
  auto* drops = new FolderDrop(files, this);
  const auto take_source = [this](const std::string& folder) {
    if (!commands_.Busy()) TakeSourceFolder(folder);
  };
  drops->Watch(this, take_source);
  // By itself, a field would take the path for text.
  const auto watch_fields = [drops, take_source](QWidget* part) {
    for (QLineEdit* field : part->findChildren<QLineEdit*>()) drops->Watch(field, take_source);
  };
  watch_fields(this);
  connect(editor_, &ConstructorEditor::paneMade, this, watch_fields);
  drops->Watch(folder_pages_->fdDestination,
               [this](const std::string& folder) { folder_pages_->TakeOutputFolder(folder); });
}

void Form1::TakeSourceFolder(const std::string& folder) {
  folder_pages_->TakeSourceFolder(folder);
}

void Form1::ListFiles() {
  buttons_->Button(CommandButton::bnLoadFileList)->click();
}

/// The folder may have been typed anew since the list was made; what stands there now is meant.
void Form1::lnkAddSeparator_Click() {
  folder_pages_->CloseSourceFolder();
  ListFiles();
}

void Form1::Start(CommandButton button) {
  if (button == CommandButton::bnCancel) return commands_.bnCancel_Click();
  if (commands_.Busy()) return;
  list_->ShowNarrow();  // "Cancel" has to be in reach of mouse and keys
  folder_pages_->CommitFocusedField();
  editor_->CommitFocusedField();
  const bool by_numbers = button == CommandButton::bnPreview || button == CommandButton::bnRename;
  if (by_numbers && editor_->TellRefusedNumber()) return;
  const QPointer<QWidget> focused = focusWidget();
  cancelled_ = false;
  const int runs = commands_.RunCount();
  (commands_.*kCommands[static_cast<std::size_t>(button)])();
  if (commands_.RunCount() != runs) undo_key_->RunEnded();
  if (close_wanted_) {
    close();
  } else if (!cancelled_) {
    GiveFocusBack(focused);
  }
}

/// A button that starts a command is off when it ends, and would leave the keyboard nowhere.
void Form1::GiveFocusBack(QWidget* focused) {
  if (focused && focused->isEnabled() && focused->isVisible()) {
    focused->setFocus();
  } else {
    buttons_->FocusPrimary();
  }
}

void Form1::MarkStaleWhereOrderCounts() {
  if (session_.constructor.Holds(kCounter)) commands_.MarkStale();
  ShowDraftsAnew();
}

void Form1::ShowDraftsAnew() {
  list_->RepaintDrafts();
  example_timer_.start();
}

void Form1::SetWide(bool wide) {
  gWideListShift = wide;
  Form_Resize();
}

void Form1::Command4_Click() {
  ErrTrace::top("Form1.Command4_Click",
                [&] { Form8(session_.state, services_.settings, this).exec(); });
  commands_.CheckNames();
}

void Form1::TellOfLeftRuns(const std::vector<std::string>& journals) {
  ErrTrace::top("Form1.TellOfLeftRuns", [&] {
    if (commands_.Busy()) return;  // the user was quicker; the next start tells of them
    Form12 dialog(services_, this);
    std::ranges::all_of(journals, [&](const std::string& journal) {
      return dialog.ShowLeftRun(
          [&](const GoOn& go_on) { return LeftRun::Read(journal, services_.files, go_on); });
    });
  });
}

void Form1::bnAbout_Click() {
  ErrTrace::top("Form1.bnAbout_Click", [&] { Form10(services_, this).exec(); });
}

void Form1::bnHelp_Click() {
  ErrTrace::top("Form1.bnHelp_Click", [&] {
    mMain::OpenManual(services_.files, services_.prompts, services_.shell,
                      services_.facts.ProgramPath());
  });
}

void Form1::CommandBars1_Execute(int Control) {
  ErrTrace::top("Form1.CommandBars1_Execute(Control)", ErrTrace::args(Control), [&] {
    if (Control < kInsertCommandsEnd) return editor_->Execute(Control);
    if (commands_.Busy()) return;
    if (const CheckOperation* operation = FindCheckOperation(Control)) {
      commands_.Check(*operation);
      return ShowDraftsAnew();
    }
    ExecuteOnFile(Control, services_, list_->ReportControl1->SelectedFile());
  });
}

/// For as long as the list is on, which it is but for a pass.
void Form1::AddListKeys() {
  for (const CheckOperation& operation : kCheckOperations) {
    if (operation.keys == Keys::kNone) continue;
    QShortcut* keys = NewShortcut(operation.keys, list_->ReportControl1);
    keys->setObjectName(QStringLiteral("keys%1").arg(operation.id));
    connect(keys, &QShortcut::activated, this,
            [this, id = operation.id] { CommandBars1_Execute(id); });
  }
}

void Form1::ShowPopup(int row, const QPoint& place) {
  if (session_.grid.RowCount() == 0) return;
  PopUpRowMenu(this, list_->MenuPlaceOf(row), place, [this](int id) { CommandBars1_Execute(id); });
}

void Form1::EnableElements(bool pEnable) {
  folder_pages_->setEnabled(pEnable);
  editor_->setEnabled(pEnable);
  list_->EnableElements(pEnable);
  if (templates_ != nullptr) templates_->setEnabled(pEnable);
  status_bar_->EnableElements(pEnable);
  ShowDraftsAnew();
}

void Form1::SetWaitPointer(bool wait) {
  if (wait == waiting_) return;
  waiting_ = wait;
  if (wait) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void Form1::EnableButton(CommandButton button, bool enable) {
  buttons_->EnableButton(button, enable);
  // All else is off during a pass, so the keyboard belongs to the one command left.
  if (button == CommandButton::bnCancel && enable) buttons_->FocusCancel();
}

void Form1::ShowPanes() {
  status_bar_->ShowPanes(session_.state.panes);
}

void Form1::SetSourceFolder(const std::string& folder) {
  folder_pages_->SetSourceFolder(folder);
}

bool Form1::AskAboutSystemFolders(const std::string& folders) {
  return Form4(folders, services_.settings, this).exec() == QDialog::Accepted;
}

std::optional<std::string> Form1::AskForMask(std::string_view caption, std::string_view mask) {
  Form6 dialog(text::ToQt(caption), std::string(mask), services_, this);
  dialog.exec();
  return dialog.OK ? std::optional(dialog.Mask) : std::nullopt;
}

void Form1::FocusAfterCancel() {
  cancelled_ = true;
  buttons_->FocusAfterCancel();
}

/// Most runs need neither, so the start doesn't wait for them.
ResultWindow& Form1::Made(ResultWindow*& report, const ResultKind& kind) {
  if (report == nullptr) report = new ResultWindow(kind, session_.reports, services_, this);
  return *report;
}

void Form1::ShowFailureReport() {
  Made(gFailureReport, kRenamingFailure).ShowReport();
}

void Form1::ShowConflictReport() {
  Made(gConflictReport, kResolvedConflicts).ShowReport();
}
