#include "window/folder_dialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>

#include "look/card.h"
#include "look/look.h"
#include "platform/qt/text_qt.h"
#include "trace/err_trace.h"

namespace {

/// Keeps a button off, whoever turns it on, until it is let go.
class OffUntilLetGo : public QObject {
 public:
  explicit OffUntilLetGo(QPushButton* button) : QObject(button), button_(button) {
    button->installEventFilter(this);
    button->setEnabled(false);
  }

  void LetGo() {
    button_->removeEventFilter(this);
    button_->setEnabled(true);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::EnabledChange && button_->isEnabled()) button_->setEnabled(false);
    return false;
  }

 private:
  QPushButton* button_;
};

/// Lets a text be typed, a folder be selected or entered before OK; by itself the dialog would take
/// the folder that it happens to open in. The platform's own dialog sees to its buttons itself.
void WaitForSelection(QFileDialog& dialog) {
  auto* box = dialog.findChild<QDialogButtonBox*>();
  auto* field = dialog.findChild<QLineEdit*>();
  QPushButton* ok = box != nullptr ? box->button(QDialogButtonBox::Open) : nullptr;
  if (ok == nullptr || field == nullptr) return;
  auto* off = new OffUntilLetGo(ok);
  const auto let_go = [off] { off->LetGo(); };
  QObject::connect(&dialog, &QFileDialog::currentChanged, off, let_go);
  QObject::connect(&dialog, &QFileDialog::directoryEntered, off, let_go);
  QObject::connect(field, &QLineEdit::textEdited, off, let_go);
}

/// Above all else, where Qt's own dialog has no place; the platform's has its own texts.
void AddLabel(QFileDialog& dialog) {
  if (dialog.layout() == nullptr) return;
  QLabel* label = NewLabel(QObject::tr("Choose a folder or disk:"), nullptr, &dialog);
  label->setObjectName(QStringLiteral("lbChoose"));
  label->setContentsMargins(measure::kDialogMargin, measure::kDialogMargin / 2,
                            measure::kDialogMargin, 0);
  dialog.layout()->setMenuBar(label);
}

QString NearestFolder(QString path) {
  while (!path.isEmpty() && !QFileInfo(path).isDir()) {
    path.truncate(path.lastIndexOf(u'/', -2) + 1);
  }
  return path.isEmpty() ? QDir::homePath() : path;
}

}  // namespace

namespace mMain {

std::string BrowseForDisk(QWidget* owner, const std::string& start) {
  return ErrTrace::inner("mMain.BrowseForDisk", [&] {
    const QString asked = text::ToQt(start);
    const QString nearest = NearestFolder(asked);
    QFileDialog dialog(owner, QObject::tr("Browse for folder or disk"), nearest);
    dialog.setObjectName(QStringLiteral("folderDialog"));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    AddLabel(dialog);
    if (nearest != asked) WaitForSelection(dialog);
    const bool chosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    return chosen ? text::FromQt(dialog.selectedFiles().constFirst()) : std::string();
  });
}

}  // namespace mMain
