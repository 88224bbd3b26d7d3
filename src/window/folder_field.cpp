#include "window/folder_field.h"

#include <QKeyEvent>

#include "common/path_text.h"
#include "look/handlers.h"
#include "platform/qt/text_qt.h"
#include "platform/services.h"
#include "window/folder_offers.h"

FolderField::FolderField(QWidget* parent, Folders& folders) : QLineEdit(parent), folders_(folders) {
  OnSignal(this, &QLineEdit::textEdited, "FolderField.textEdited", [this] {
    if (!offers_) offers_ = new FolderOffers(this, folders_);
    offers_->Follow();
  });
}

void FolderField::TakeHome() {
  const QString path = text::ToQt(mMain::WithHome(text::FromQt(text()), folders_.Home()));
  if (path != text()) setText(path);
}

void FolderField::keyPressEvent(QKeyEvent* event) {
  const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
  if (offers_ && plain && offers_->Takes(event->key())) return;
  if (offers_ && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
    offers_->Forget();
  }
  QLineEdit::keyPressEvent(event);
}

void FolderField::focusOutEvent(QFocusEvent* event) {
  if (offers_) offers_->Forget();
  QLineEdit::focusOutEvent(event);
}

bool FolderField::focusNextPrevChild(bool next) {
  return (next && offers_ && offers_->TakeSelected()) || QLineEdit::focusNextPrevChild(next);
}
