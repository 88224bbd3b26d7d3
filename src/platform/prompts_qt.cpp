#include "platform/prompts_qt.h"

#include <QApplication>
#include <QMessageBox>

#include "platform/ordinary_pointer_qt.h"
#include "platform/text_qt.h"

void QtPrompts::Tell(std::string_view message, PromptIcon icon) {
  QMessageBox box(QApplication::activeWindow());
  box.setObjectName(QStringLiteral("messageBox"));
  box.setWindowTitle(QStringLiteral("Quorvane"));
  box.setIcon(icon == PromptIcon::kCritical ? QMessageBox::Critical : QMessageBox::Warning);
  box.setTextFormat(Qt::PlainText);
  box.setText(text::ShownLines(message));
  box.setStandardButtons(QMessageBox::Ok);
  const OrdinaryPointer pointer;
  box.exec();
}
