#include "rename/conflicts_dialog.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScopeGuard>
#include <QStyle>
#include <QStyleOptionButton>
#include <QVBoxLayout>
#include <algorithm>

#include "look/card.h"
#include "look/handlers.h"
#include "look/look.h"
#include "look/name_field.h"
#include "platform/qt/text_qt.h"
#include "settings/reg_settings.h"
#include "settings/saved_options.h"

namespace {

constexpr int kRowGap = 10;
constexpr int kFieldWidth = 72;
constexpr int kFieldSigns = 9;  ///< that much with a large font

/// Where the caption of a check box begins.
int CaptionLeft(const QCheckBox& box) {
  QStyleOptionButton option;
  option.initFrom(&box);
  option.rect = {QPoint(), box.sizeHint()};
  return box.style()->subElementRect(QStyle::SE_CheckBoxContents, &option, &box).left();
}

/// Hidden, it leaves its room, so that the dialog keeps its size.
void KeepRoom(QWidget* part) {
  QSizePolicy policy = part->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  part->setSizePolicy(policy);
}

}  // namespace

Form8::Form8(RunState& state, SettingsStore& settings, QWidget* parent)
    : DialogFrame("Form8", tr("Conflicts"), Buttons::kOkAndCancel, parent),
      state_(state),
      settings_(settings) {
  MakeControls();
  LayOut();
  OnSignal(chConflict, &QCheckBox::toggled, Handler("chConflict_Click"),
           [this] { chConflict_Click(); });
  ErrTrace::top(Handler("Form_Load"), [this] { Form_Load(); });
  KeepPlacement(settings_);
}

void Form8::MakeControls() {
  chConflict = new QCheckBox(
      tr("&Add a number to the new file name if the name is already taken by another file."), this);
  chConflict->setObjectName(QStringLiteral("chConflict"));
  Explain(chConflict, tr("Without a number, such a file fails and keeps its name"));
  fdConflictLeft = NewTemplateField("fdConflictLeft");
  Explain(fdConflictLeft, tr("What stands between the new name and its number"));
  fdConflictRight = NewTemplateField("fdConflictRight");
  Explain(fdConflictRight, tr("What stands behind the number"));
  Label2 = NewTemplateLabel("Label2", tr("&Numbering template: <New file name>"), fdConflictLeft);
  Label4 = NewTemplateLabel("Label4", tr("<Nu&mber>"), fdConflictRight);
  Label3 = NewTemplateLabel("Label3", tr(". <Extension>"), nullptr);
}

QLineEdit* Form8::NewTemplateField(const char* name) {
  auto* field = new QLineEdit(this);
  field->setObjectName(QLatin1String(name));
  field->setFixedWidth(
      std::max(kFieldWidth, kFieldSigns * field->fontMetrics().averageCharWidth()));
  HoldWhatIsShown(field);
  KeepRoom(field);
  return field;
}

QLabel* Form8::NewTemplateLabel(const char* name, const QString& text, QWidget* buddy) {
  QLabel* label = NewLabel(text, buddy, this);
  label->setObjectName(QLatin1String(name));
  KeepRoom(label);
  return label;
}

void Form8::LayOut() {
  chConflict->ensurePolished();
  auto* line = new QHBoxLayout;
  line->setSpacing(measure::kLabelGap);
  line->addSpacing(CaptionLeft(*chConflict));
  for (QWidget* part :
       std::initializer_list<QWidget*>{Label2, fdConflictLeft, Label4, fdConflictRight, Label3}) {
    line->addWidget(part);
  }
  line->addStretch();
  Body()->setSpacing(kRowGap);
  Body()->addWidget(chConflict);
  Body()->addLayout(line);
  Body()->addStretch();
}

void Form8::Form_Load() {
  const NumberingOptions& numbering = state_.numbering;
  chConflict->setChecked(numbering.gConflictAddNumber == 1);
  fdConflictLeft->setText(text::ToQt(numbering.gNumberLeft));
  fdConflictRight->setText(text::ToQt(numbering.gNumberRight));
  chConflict_Click();
  fdConflictLeft->selectAll();
  if (chConflict->isChecked()) {
    fdConflictLeft->setFocus();
  } else {
    chConflict->setFocus();
  }
}

void Form8::chConflict_Click() {
  for (QWidget* part :
       std::initializer_list<QWidget*>{fdConflictLeft, fdConflictRight, Label2, Label4, Label3}) {
    part->setVisible(chConflict->isChecked());
  }
}

void Form8::bnOK_Click() {
  const auto close = qScopeGuard([this] { accept(); });  // what can't be stored holds for now
  state_.numbering = {static_cast<std::int16_t>(chConflict->isChecked()),
                      text::FromQt(fdConflictLeft->text()), text::FromQt(fdConflictRight->text())};
  WriteConflictOptions(settings_, state_.numbering);
  mRegSettings::Flush(settings_);
}
