#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QScopeGuard>

#include "commands/command_buttons.h"
#include "filelist/file_list_panel.h"
#include "look/form_font.h"
#include "look/skin.h"
#include "rename/results/result_windows.h"
#include "settings/window_placement_qt.h"
#include "trace/err_trace.h"
#include "window/folder_field.h"
#include "window/folder_pages.h"
#include "window/main_window.h"

// How the main window is loaded, follows its size, and is unloaded.

Options Form1::ReadOptions() const {
  return {folder_pages_->Saved(), folder_pages_->Source(), folder_pages_->Output(),
          list_->ReadOptions(), session_.state.numbering};
}

void Form1::Show(const Options& options) {
  session_.state.numbering = options.numbering;
  folder_pages_->Show(options.save);
  folder_pages_->Show(options.source);
  folder_pages_->Show(options.output);
  list_->Show(options.list);
}

void Form1::IniSettings(const std::string& pTemplateName) {
  ErrTrace::inner("Form1.IniSettings(pTemplateName)", ErrTrace::args(pTemplateName), [&] {
    Options options = ReadOptions();
    const auto show =
        qScopeGuard([&] { ErrTrace::top("Form1.IniSettings", [&] { Show(options); }); });
    at_start_.could_read = services_.settings.CanBeRead();
    ReadSavedOptions(services_.settings, options, at_start_.read);
    folder_pages_->chEnableSkin->setChecked(true);
  });
}

void Form1::Form_Load() {
  ErrTrace::top("Form1.Form_Load", [&] {
    ShowPanes();
    ApplySkin(*qApp, true);
  });
  ErrTrace::top("Form1.Form_Load", [&] { IniSettings(""); });
  at_start_.shown = ReadOptions();
  list_->ShowColumns();
  chEnableSkin_Click();
  ErrTrace::top("Form1.Form_Load", [&] {
    const bool no_folder = folder_pages_->Source().fdSourceFolder.empty();
    commands_.EnableDisable(no_folder ? ModeNoFolder : ModeFolderChosen);
    placement_ = new WindowPlacement(services_.settings, *this, "Form1");
    ApplyFormFont(*this);
  });
}

void Form1::Form_Resize() {
  if (isMinimized()) return;
  left_column_->setVisible(!gWideListShift);
}

void Form1::Form_Unload(bool& Cancel) {
  ErrTrace::top("Form1.Form_Unload(Cancel)", ErrTrace::args(Cancel), [&] {
    if (commands_.Busy()) {
      close_wanted_ = session_.state.gCancelRequested = Cancel = true;
      return;
    }
    folder_pages_->CommitFocusedField();
    WriteSavedOptions(services_.settings, ReadOptions(), at_start_);
    placement_->Form_Unload();
    // Nobody has seen what a run came to that was ended for the close; the next start tells it.
    const int mode = commands_.Mode();
    const bool cut = close_wanted_ && (mode == ModeRunCancelled || mode == ModeUndoCancelled);
    if (!cut) commands_.ForgetRuns();
    for (ResultWindow* report : {gFailureReport, gConflictReport}) {
      if (report != nullptr) report->close();
    }
  });
}

void Form1::chEnableSkin_Click() {
  ErrTrace::top("Form1.chEnableSkin_Click",
                [&] { ApplySkin(*qApp, folder_pages_->chEnableSkin->isChecked()); });
}

void Form1::closeEvent(QCloseEvent* event) {
  bool Cancel = false;
  Form_Unload(Cancel);
  event->setAccepted(!Cancel);
}

void Form1::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) Form_Resize();
}

void Form1::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Form_Resize();
}

void Form1::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!first_show_) return;
  first_show_ = false;
  FocusFirst();
}

void Form1::FocusFirst() {
  if (folder_pages_->Source().fdSourceFolder.empty()) {
    folder_pages_->fdSourceFolder->setFocus();
  } else {
    buttons_->FocusPrimary();
  }
}
