#include "platform/qt/services_qt.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QMessageBox>
#include <QMimeType>
#include <QScopeGuard>
#include <QStandardPaths>
#include <utility>

#include "platform/qt/ordinary_pointer_qt.h"
#include "platform/qt/text_qt.h"

namespace {

// Numbered extensions (".000001" on) must not make the table grow with the list.
constexpr std::size_t kMostNames = 4096;

std::string LookUp(const QMimeDatabase& database, std::string_view extension) {
  // A bare extension would read as a hidden file's name, so it gets a name in front.
  const QString name = QLatin1Char('x') + text::ToQt(extension);
  const QMimeType type = database.mimeTypeForFile(name, QMimeDatabase::MatchExtension);
  return type.isDefault() ? std::string() : text::FromQt(type.comment());
}

/// Answers the button that was pressed. "No" is the default, where there is one.
int Show(std::string_view message, PromptIcon icon, QMessageBox::StandardButtons buttons,
         std::string_view title = "Quorvane") {
  QMessageBox box(QApplication::activeWindow());
  box.setObjectName(QStringLiteral("messageBox"));
  box.setWindowTitle(text::Shown(title));
  box.setIcon(icon == PromptIcon::kCritical ? QMessageBox::Critical : QMessageBox::Warning);
  box.setTextFormat(Qt::PlainText);
  box.setText(text::ShownLines(message));
  box.setStandardButtons(buttons);
  if (buttons.testFlag(QMessageBox::No)) box.setDefaultButton(QMessageBox::No);
  const OrdinaryPointer pointer;
  return box.exec();
}

}  // namespace

void QtEventPump::LetEventsRun() {
  const bool outer = std::exchange(running_, true);
  const auto restore = qScopeGuard([&] { running_ = outer; });
  QCoreApplication::processEvents();
}

std::string QtFolders::Documents() {
  return text::FromQt(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
}

std::string QtFolders::Home() {
  // Qt's own answer loses bytes that are no UTF-8.
  std::string home = qgetenv("HOME").toStdString();
  if (home.empty()) home = text::FromQt(QDir::homePath());
  while (home.size() > 1 && home.ends_with('/')) home.pop_back();
  return home;
}

std::string QtLocaleFacts::MonthName(int month) const {
  return locale_.monthName(month, QLocale::LongFormat).toStdString();
}

std::string QtLocaleFacts::ShortMonthName(int month) const {
  return locale_.monthName(month, QLocale::ShortFormat).toStdString();
}

std::string QtLocaleFacts::DecimalPoint() const {
  return locale_.decimalPoint().toStdString();
}

std::string QtLocaleFacts::ThousandsSeparator() const {
  return locale_.groupSeparator().toStdString();
}

std::string QtTypeNames::TypeName(std::string_view extension) {
  if (extension.empty()) return {};
  std::string key(extension);
  if (const auto known = names_.find(key); known != names_.end()) return known->second;
  if (names_.size() >= kMostNames) names_.clear();
  return names_[std::move(key)] = LookUp(database_, extension);
}

void QtPrompts::Tell(std::string_view message, PromptIcon icon) {
  Show(message, icon, QMessageBox::Ok);
}

bool QtPrompts::Ask(std::string_view question, PromptIcon icon) {
  return Show(question, icon, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

PromptAnswer QtPrompts::AskOrCancel(std::string_view title, std::string_view question,
                                    PromptIcon icon) {
  switch (Show(question, icon, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, title)) {
    case QMessageBox::Yes:
      return PromptAnswer::kYes;
    case QMessageBox::No:
      return PromptAnswer::kNo;
    default:
      return PromptAnswer::kCancel;
  }
}
