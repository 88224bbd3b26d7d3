#include "commands/command_buttons.h"

#include <QHBoxLayout>
#include <QShortcut>

#include "look/card.h"
#include "look/fitted_button.h"
#include "look/look.h"
#include "look/shortcuts.h"

namespace {

struct ButtonRow {
  const char* name;
  const char* text;
  const char* tells;
  Keys keys;
};

/// By CommandButton.
constexpr ButtonRow kButtons[kCommandButtonCount] = {
    {"bnLoadFileList", QT_TRANSLATE_NOOP("CommandButtons", "&Prepare file list"),
     QT_TRANSLATE_NOOP("CommandButtons", "List the files of the source folder"), Keys::kPrepare},
    {"bnPreview", QT_TRANSLATE_NOOP("CommandButtons", "Pre&view"),
     QT_TRANSLATE_NOOP("CommandButtons", "Show the new names; no file is touched yet"),
     Keys::kPreview},
    {"bnRename", QT_TRANSLATE_NOOP("CommandButtons", "&Rename"),
     QT_TRANSLATE_NOOP("CommandButtons", "Rename, copy or move the ticked files"), Keys::kRename},
    {"bnUndo", QT_TRANSLATE_NOOP("CommandButtons", "&Undo"),
     QT_TRANSLATE_NOOP("CommandButtons", "Undo everything done to the files in this list"),
     Keys::kUndo},
    {"bnCancel", QT_TRANSLATE_NOOP("CommandButtons", "Cancel"),
     QT_TRANSLATE_NOOP("CommandButtons", "Stop what is running; what is done stays done"),
     Keys::kCancel},
};
/// As wide as with the heavier type of the primary button, so that nothing moves.
constexpr FittedButton::Measures kMeasures{
    .air = 24, .high = measure::kCommandHeight, .weight = QFont::DemiBold};

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
  Command5->setAccessibleName(tr("The command was cancelled"));
  Command5->setGeometry(0, 0, 1, 1);
  MarkPrimary();
}

void CommandButtons::AddButton(CommandButton button) {
  const ButtonRow& row = kButtons[IndexOf(button)];
  auto* made = new FittedButton(tr(row.text), kMeasures, this);
  made->setObjectName(QLatin1String(row.name));
  made->setProperty("command", true);
  made->setProperty("primary", false);
  made->setEnabled(false);  // a mode turns it on
  buttons_[IndexOf(button)] = made;
  layout()->addWidget(made);
  connect(made, &QPushButton::clicked, this, [this, button] { emit commandRequested(button); });

  Explain(made, WithKeys(tr(row.tells), row.keys));
  connect(NewShortcut(row.keys, made), &QShortcut::activated, made, &QPushButton::click);
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
    button->update();
  }
}
