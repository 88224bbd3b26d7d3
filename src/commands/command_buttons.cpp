#include "commands/command_buttons.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>

#include "look/card.h"
#include "look/look.h"

namespace {

struct ButtonRow {
  const char* name;
  const char* text;
  const char* keys;
  const char* more_keys;  ///< empty when there is one way only
};

/// By CommandButton.
constexpr ButtonRow kButtons[kCommandButtonCount] = {
    {"bnLoadFileList", QT_TRANSLATE_NOOP("CommandButtons", "&Prepare file list"), "F5", ""},
    {"bnPreview", QT_TRANSLATE_NOOP("CommandButtons", "Pre&view"), "F6", ""},
    {"bnRename", QT_TRANSLATE_NOOP("CommandButtons", "&Rename"), "Ctrl+Return", "Ctrl+Enter"},
    {"bnUndo", QT_TRANSLATE_NOOP("CommandButtons", "&Undo"), "Ctrl+Z", ""},
    {"bnCancel", QT_TRANSLATE_NOOP("CommandButtons", "Cancel"), "Esc", ""},
};
constexpr int kPadding = 12;

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
  made->setEnabled(false);  // a mode turns it on
  made->setMinimumHeight(measure::kCommandHeight);
  buttons_[IndexOf(button)] = made;
  layout()->addWidget(made);
  connect(made, &QPushButton::clicked, this, [this, button] { emit commandRequested(button); });

  const QKeySequence keys(QLatin1String(row.keys));
  Explain(made, keys.toString(QKeySequence::NativeText));
  for (const char* text : {row.keys, row.more_keys}) {
    if (*text == '\0') continue;
    auto* shortcut = new QShortcut(QKeySequence(QLatin1String(text)), made);
    connect(shortcut, &QShortcut::activated, made, &QPushButton::click);
  }
}

QPushButton* CommandButtons::Button(CommandButton button) const {
  return buttons_[IndexOf(button)];
}

void CommandButtons::EnableButton(CommandButton button, bool enable) {
  Button(button)->setEnabled(enable);
  MarkPrimary();
}

void CommandButtons::FocusPrimary() {
  for (QPushButton* button : buttons_) {
    if (button->property("primary").toBool()) button->setFocus(Qt::OtherFocusReason);
  }
}

void CommandButtons::FocusCancel() {
  Button(CommandButton::bnCancel)->setFocus(Qt::OtherFocusReason);
}

void CommandButtons::FocusAfterCancel() {
  Command5->setFocus(Qt::OtherFocusReason);
}

void CommandButtons::MarkPrimary() {
  const QPushButton* primary = nullptr;
  if (!Button(CommandButton::bnCancel)->isEnabled()) {
    for (const auto button :
         {CommandButton::bnLoadFileList, CommandButton::bnPreview, CommandButton::bnRename}) {
      if (Button(button)->isEnabled()) primary = Button(button);
    }
  }
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
