#include "window/folder_sign.h"

#include <QEvent>
#include <QLineEdit>
#include <chrono>
#include <thread>
#include <utility>

#include "common/language.h"
#include "common/path_text.h"
#include "look/field_sign.h"
#include "look/handlers.h"
#include "platform/qt/text_qt.h"
#include "platform/services.h"
#include "platform/text.h"

namespace {

constexpr int kLookEveryMs = 20;

/// What a state of the disk keeps a command from; empty where that is nothing.
QString WordsOf(FolderState state, FolderUse use) {
  const bool read = use == FolderUse::kRead;
  switch (state) {
    case FolderState::kUsable:
    case FolderState::kUnknown:
      break;
    case FolderState::kMissing:
      return read ? text::ToQt(mLanguageGobals::kFolderNotFound) : QString();
    case FolderState::kIsFile:
      return FolderSign::tr("This is a file");
    case FolderState::kBehindFile:
      return text::ToQt(read ? mLanguageGobals::kFolderNotFound
                             : mLanguageGobals::kFileInsteadOfFolder);
    case FolderState::kClosed:
      return read ? text::ToQt(mLanguageGobals::kFolderUnreadable)
                  : FolderSign::tr("The folder can't be written to");
  }
  return {};
}

}  // namespace

FolderSign::FolderSign(QLineEdit* field, Folders& folders, FolderUse use)
    : QObject(field), field_(field), folders_(folders), use_(use), sign_(new FieldSign(field)) {
  look_.setInterval(kLookEveryMs);
  OnSignal(&look_, &QTimer::timeout, this, "FolderSign.LookForAnswer", [this] { LookForAnswer(); });
  OnSignal(field, &QLineEdit::textChanged, this, "FolderSign.TextChanged",
           [this] { TextChanged(); });
  field->installEventFilter(this);
  sign_->Warn(WrongWithText());
}

bool FolderSign::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ActivationChange:
    case QEvent::EnabledChange:
    case QEvent::FocusOut:
    case QEvent::Show:
      ErrTrace::top("FolderSign.LookAtDisk", [this] { LookAtDisk(); });
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

std::string FolderSign::Path() const {
  const std::string typed = text::FromQt(field_->text());
  // The commands take the source without blanks around it, the output as it stands.
  const std::string_view meant = use_ == FolderUse::kRead ? text::Trim(typed) : typed;
  return mMain::WithHome(meant, folders_.Home());
}

QString FolderSign::WrongWithText() const {
  if (use_ == FolderUse::kRead) return {};
  const std::string path = Path();
  if (path.empty()) return tr("No folder given");
  return mMain::IsAbsolutePath(path) ? QString() : tr("Not a whole path: begin with “/”");
}

void FolderSign::TextChanged() {
  look_.stop();
  answer_ = {};
  sign_->Warn(WrongWithText());
  if (!field_->hasFocus()) LookAtDisk();
}

/// The thread belongs to nobody: on a disk that doesn't answer it may outlive the window.
void FolderSign::LookAtDisk() {
  const std::string path = Path();
  if (!field_->isVisible() || !field_->isEnabled() || !mMain::IsAbsolutePath(path)) return;
  if (!Settled() && path == asked_) return;
  std::packaged_task<FolderState()> task([path, use = use_] { return StateOfFolder(path, use); });
  answer_ = task.get_future();
  asked_ = path;
  std::thread(std::move(task)).detach();
  look_.start();
}

void FolderSign::LookForAnswer() {
  if (answer_.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return;
  look_.stop();
  const FolderState state = answer_.get();
  const bool will_be_made = use_ == FolderUse::kWrite && state == FolderState::kMissing;
  sign_->Warn(will_be_made ? QString() : WordsOf(state, use_));
  if (will_be_made) sign_->Note(tr("This folder will be made"));
}
