#include "names/editor/custom_text_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "common/name_chars.h"
#include "look/card.h"
#include "look/look.h"
#include "look/name_field.h"
#include "platform/qt/text_qt.h"
#include "settings/window_placement_qt.h"
#include "trace/err_trace.h"

namespace {

constexpr int kMargin = 16;
constexpr int kFieldWidth = 300;
constexpr int kButtonWidth = 88;

QPushButton* NewDialogButton(const char* name, const QString& text, QWidget* parent) {
  auto* button = new QPushButton(text, parent);
  button->setObjectName(QLatin1String(name));
  button->setMinimumWidth(kButtonWidth);
  return button;
}

}  // namespace

Form5::Form5(Prompts& prompts, SettingsStore& settings, QWidget* parent)
    : QDialog(parent), prompts_(prompts) {
  setObjectName(QStringLiteral("Form5"));
  setWindowTitle(tr("Custom text"));
  fdText = new QLineEdit(this);
  fdText->setObjectName(QStringLiteral("fdText"));
  fdText->setMinimumWidth(kFieldWidth);
  HoldWhatIsShown(fdText);
  bnOK = NewDialogButton("bnOK", tr("&OK"), this);
  bnOK->setDefault(true);
  bnCancel = NewDialogButton("bnCancel", tr("&Cancel"), this);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(measure::kControlGap);
  column->addWidget(NewLabel(tr("&Text to insert:"), fdText, this));
  column->addWidget(fdText);
  column->addSpacing(kMargin - measure::kControlGap);
  auto* row = new QHBoxLayout;
  row->setSpacing(measure::kBlockGap);
  row->addStretch();
  row->addWidget(bnOK);
  row->addWidget(bnCancel);
  column->addLayout(row);
  column->addStretch();

  connect(bnOK, &QPushButton::clicked, this,
          [this] { ErrTrace::top("Form5.bnOK_Click", [this] { bnOK_Click(); }); });
  connect(bnCancel, &QPushButton::clicked, this, &QDialog::reject);
  new WindowPlacement(settings, *this, "Form5");
}

void Form5::bnOK_Click() {
  const std::string typed = text::FromQt(fdText->text());
  if (typed.empty()) {
    prompts_.Tell("The text field is empty.", PromptIcon::kCritical);
    return;
  }
  if (mMain::HasBadFileNameChars(typed, prompts_)) return;
  text_ = typed;
  accept();
}

std::string GetTextToInsert(Prompts& prompts, SettingsStore& settings, QWidget* parent) {
  Form5 dialog(prompts, settings, parent);
  dialog.exec();
  return dialog.Text();
}
