#include "names/editor/custom_text_dialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "common/name_chars.h"
#include "look/card.h"
#include "look/look.h"
#include "look/name_field.h"
#include "platform/qt/text_qt.h"

namespace {

constexpr int kFieldWidth = 300;

}  // namespace

Form5::Form5(Prompts& prompts, SettingsStore& settings, QWidget* parent)
    : DialogFrame("Form5", tr("Custom text"), Buttons::kOkAndCancel, parent), prompts_(prompts) {
  fdText = new QLineEdit(this);
  fdText->setObjectName(QStringLiteral("fdText"));
  fdText->setMinimumWidth(kFieldWidth);
  HoldWhatIsShown(fdText);
  Body()->setSpacing(measure::kControlGap);
  Body()->addWidget(NewLabel(tr("&Text to insert:"), fdText, this));
  Body()->addWidget(fdText);
  Body()->addStretch();
  fdText->setFocus();
  KeepPlacement(settings);
}

void Form5::bnOK_Click() {
  const std::string typed = text::FromQt(fdText->text());
  if (typed.empty()) {
    prompts_.Tell(text::FromQt(tr("The text field is empty.")), PromptIcon::kCritical);
    return;
  }
  if (mMain::HasBadFileNameChars(typed, prompts_)) return;
  text_ = typed;
  accept();
}

std::string GetTextToInsert(Prompts& prompts, SettingsStore& settings, std::string_view text,
                            QWidget* parent) {
  Form5 dialog(prompts, settings, parent);
  dialog.fdText->setText(text::ToQt(text));
  dialog.fdText->selectAll();
  dialog.exec();
  return dialog.Text();
}
