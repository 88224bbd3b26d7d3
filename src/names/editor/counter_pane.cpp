#include "names/editor/counter_pane.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "look/handlers.h"
#include "look/look.h"
#include "look/number_field.h"
#include "look/sample_label.h"
#include "names/counter.h"
#include "platform/qt/text_qt.h"

namespace {

constexpr std::string_view kWidths[] = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"};
constexpr int kRangeWidth = 64;
constexpr int kPairGap = 13;

}  // namespace

CounterPane::CounterPane(const Parts& parts) : OptionPane(parts) {
  BuildControls();
  Lay();
}

void CounterPane::BuildControls() {
  lbRangeSample = new SampleLabel("lbRangeSample", this);

  const auto store = [this](std::int32_t start) {
    if (ConstrItem* shown = Shown()) shown->counter.Start = start;
  };
  fdStartValue = new NumberField("fdStartValue", store, this);
  fdStartValue->ShowNumber(1);
  Explain(fdStartValue, tr("The number of the first file"));
  HandleChange(fdStartValue, "fdStartValue", [this] { UpdateSample(); });

  cmbRange = NewPick(this, "cmbRange", kWidths, [this](int) { TakeRange(); });
  Explain(cmbRange, tr("Shorter numbers are padded with zeros, as in 007"));
  cmbRange->setMinimumWidth(kRangeWidth);
  cmbRange->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);

  chResetCounter = new QCheckBox(tr("R&eset counter for each group in file list"), this);
  chResetCounter->setObjectName(QStringLiteral("chResetCounter"));
  Explain(chResetCounter, tr("The first file of each group gets the start number"));
  OnSignal(chResetCounter, &QCheckBox::toggled, "Form1.chResetCounter_Click", [this](bool on) {
    emit optionChanged();
    if (ConstrItem* shown = Shown()) shown->counter.Reset = on ? 1 : 0;
  });
}

void CounterPane::Lay() {
  auto* row = new QHBoxLayout;
  row->setSpacing(measure::kLabelGap);
  row->addWidget(NewLabel(tr("Start &with:"), fdStartValue, this));
  row->addWidget(fdStartValue);
  row->addSpacing(kPairGap - measure::kLabelGap);
  row->addWidget(NewLabel(tr("&Number of digits:"), cmbRange, this));
  row->addWidget(cmbRange);
  row->addStretch();
  QLabel* note =
      NewLabel(tr("Note: counter increment depends on sort order in file list."), nullptr, this);
  note->setObjectName(QStringLiteral("Label22"));
  note->setProperty("muted", true);
  note->setWordWrap(true);
  Body()->addLayout(row);
  Body()->addWidget(chResetCounter);
  Body()->addWidget(note);
  Body()->addWidget(lbRangeSample);
  Body()->addStretch();
}

void CounterPane::TakeRange() {
  if (ConstrItem* shown = Shown()) {
    shown->counter.Format = CounterFormatOfRange(cmbRange->currentIndex());
    shown->counter.Range = cmbRange->currentIndex();
  }
  UpdateSample();
}

void CounterPane::UpdateSample() {
  const std::string start = text::FromQt(fdStartValue->text());
  const std::string pattern = CounterFormatOfRange(cmbRange->currentIndex());
  lbRangeSample->ShowSample(CounterSample(start, pattern));
}

void CounterPane::Fill(const ConstrItem& item) {
  fdStartValue->ShowNumber(item.counter.Start);
  cmbRange->setCurrentIndex(item.counter.Range);
  chResetCounter->setChecked(item.counter.Reset != 0);
  TakeRange();
}
