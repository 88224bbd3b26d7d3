#include "commands/command_buttons.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QPushButton>
#include <QStyle>

#include "common/card_qt.h"
#include "common/look_qt.h"

namespace {

struct ButtonRow {
  const char* name;
  const char* text;
  const char* keys;
  void (CommandButtons::*clicked)();
};

/// By CommandButton.
constexpr ButtonRow kButtons[kCommandButtonCount] = {
    {"bnLoadFileList", QT_TRANSLATE_NOOP("CommandButtons", "&Prepare file list"), "F5",
     &CommandButtons::loadFileListClicked},
    {"bnPreview", QT_TRANSLATE_NOOP("CommandButtons", "Pre&view"), "F6",
     &CommandButtons::previewClicked},
    {"bnRename", QT_TRANSLATE_NOOP("CommandButtons", "&Rename"), "Ctrl+Return",
     &CommandButtons::renameClicked},
    {"bnUndo", QT_TRANSLATE_NOOP("CommandButtons", "&Undo"), "Ctrl+Z",
     &CommandButtons::undoClicked},
    {"bnCancel", QT_TRANSLATE_NOOP("CommandButtons", "Cancel"), "Esc",
     &CommandButtons::cancelClicked},
};
constexpr int kPadding = 14;

std::size_t IndexOf(CommandButton button) {
  return static_cast<std::size_t>(button);
}

}  // namespace

CommandButtons::CommandButtons(QWidget* parent) : QWidget(parent), Command5(new QWidget(this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(measure::kControlGap);
  for (std::size_t i = 0; i < kCommandButtonCount; ++i) {
    const auto button = static_cast<CommandButton>(i);
    if (button == CommandButton::bnUndo) row->addStretch();
    AddButton(button);
  }
  Command5->setObjectName(QStringLiteral("Command5"));
  Command5->setAccessibleName(tr("Cancelling"));
  Command5->setGeometry(0, 0, 1, 1);
  FitWidths();
  MarkPrimary();
}

void CommandButtons::AddButton(CommandButton button) {
  const ButtonRow& row = kButtons[IndexOf(button)];
  auto* made = new QPushButton(tr(row.text), this);
  made->setObjectName(QLatin1String(row.name));
  made->setProperty("command", true);
  made->setProperty("primary", false);
  made->setMinimumHeight(measure::kCommandHeight);
  buttons_[IndexOf(button)] = made;
  layout()->addWidget(made);
  connect(made, &QPushButton::clicked, this,
          [this, clicked = row.clicked] { emit(this->*clicked)(); });
  Explain(made, QKeySequence(QLatin1String(row.keys)).toString(QKeySequence::NativeText));
}

QPushButton* CommandButtons::Button(CommandButton button) const {
  return buttons_[IndexOf(button)];
}

void CommandButtons::Enable(CommandButton button, bool enable) {
  Button(button)->setEnabled(enable);
  MarkPrimary();
}

void CommandButtons::Click(CommandButton button) {
  Button(button)->click();
}

QPushButton* CommandButtons::Primary() const {
  if (Button(CommandButton::bnCancel)->isEnabled()) return nullptr;
  for (const auto button :
       {CommandButton::bnRename, CommandButton::bnPreview, CommandButton::bnLoadFileList}) {
    if (Button(button)->isEnabled()) return Button(button);
  }
  return nullptr;
}

void CommandButtons::FocusPrimary() {
  if (QPushButton* primary = Primary()) primary->setFocus(Qt::OtherFocusReason);
}

void CommandButtons::FocusCommand5() {
  Command5->setFocus(Qt::OtherFocusReason);
}

void CommandButtons::MarkPrimary() {
  const QPushButton* primary = Primary();
  for (QPushButton* button : buttons_) {
    const bool is_primary = button == primary;
    if (button->property("primary").toBool() == is_primary) continue;
    button->setProperty("primary", is_primary);
    button->style()->unpolish(button);
    button->style()->polish(button);
  }
}

void CommandButtons::FitWidths() {
  // As wide as with the heavier type of the primary button, so that nothing moves.
  QFont heavy = font();
  heavy.setWeight(QFont::DemiBold);
  const QFontMetrics metrics(heavy);
  for (QPushButton* button : buttons_) {
    const QSize text = metrics.size(Qt::TextShowMnemonic, button->text());
    button->setFixedWidth(text.width() + 2 * kPadding);
  }
}

void CommandButtons::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) FitWidths();
}
