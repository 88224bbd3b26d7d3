#include "filelist/mask_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "common/language.h"
#include "filelist/mask_field.h"
#include "look/card.h"
#include "look/look.h"
#include "look/name_field.h"
#include "platform/qt/text_qt.h"
#include "platform/text.h"
#include "trace/err_trace.h"

namespace {

constexpr int kFieldWidth = 280;

}  // namespace

Form6::Form6(const QString& caption, const std::string& mask, const Services& services,
             QWidget* parent)
    : DialogFrame("Form6", caption, Buttons::kOkAndCancel, parent), prompts_(services.prompts) {
  LayOut();
  ErrTrace::top(Handler("Form_Load"), [&] {
    fdMask->setText(text::ToQt(mask));
    fdMask->selectAll();
    fdMask->setFocus();
  });
  KeepPlacement(services.settings);
}

void Form6::LayOut() {
  fdMask = new QLineEdit(this);
  fdMask->setObjectName(QStringLiteral("fdMask"));
  fdMask->setMinimumWidth(kFieldWidth);
  Explain(fdMask, tr("Separate masks with blanks, as in *.jpg *.png"));
  HoldWhatIsShown(fdMask);
  WatchMasks(fdMask);
  Label1 = NewLabel(tr("&Mask:"), fdMask, this);
  Label1->setObjectName(QStringLiteral("Label1"));
  auto* line = new QHBoxLayout;
  line->setSpacing(measure::kLabelGap);
  line->addWidget(Label1);
  line->addWidget(fdMask, 1);
  Body()->addLayout(line);
}

void Form6::bnOK_Click() {
  std::string mask(text::Trim(text::FromQt(fdMask->text())));
  if (mask.empty()) {
    prompts_.Tell(mLanguageGobals::kMaskEmpty, PromptIcon::kCritical);
    return;
  }
  Mask = std::move(mask);
  OK = true;
  accept();
}
