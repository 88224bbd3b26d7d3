#include "names/editor/date_pane.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "look/handlers.h"
#include "look/look.h"
#include "look/name_field.h"
#include "look/sample_label.h"
#include "names/date_format.h"
#include "platform/clock.h"
#include "platform/qt/text_qt.h"

DatePane::DatePane(const Parts& parts, const char* date) : OptionPane(parts), date_(date) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(measure::kControlGap);
  grid->setVerticalSpacing(measure::kControlGap);
  const QString captions[] = {tr("Firs&t:"), tr("Seco&nd:"), tr("Thir&d:")};
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    parts_[i] = NewPartPick("cmb" + date_, i);
    Explain(parts_[i], tr("d for the day, m for the month (mmmm for its name), y for the year"));
    AddColumn(grid, captions[i], parts_[i]);
  }
  separator_ = new NameField(parts.services.prompts, this);
  HandleChange(separator_, "fd" + date_ + "Separator", [this] {
    UpdateSample();
    if (ConstrItem* shown = Shown()) shown->date.Separator = text::FromQt(separator_->text());
  });
  Explain(separator_, tr("What stands between the parts, as in 31-12-2024"));
  AddColumn(grid, tr("Sep&arator:"), separator_);

  sample_ = new SampleLabel(("lb" + date_ + "Sample").c_str(), this);
  Body()->addLayout(grid);
  Body()->addWidget(sample_);
  Body()->addStretch();
}

QComboBox* DatePane::NewPartPick(const std::string& name, std::size_t part) {
  const int Index = static_cast<int>(part);
  QComboBox* box = NewBox(this, name + '(' + std::to_string(Index) + ')', kDateParts);
  const std::string handler = HandlerOf(name, "_Click(Index)");
  connect(box, &QComboBox::currentIndexChanged, this, [=, this](int picked) {
    ErrTrace::top(handler, ErrTrace::args(Index), [&] {
      emit optionChanged();
      UpdateSample();
      if (ConstrItem* shown = Shown()) shown->date.Parts[part] = picked;
    });
  });
  return box;
}

void DatePane::AddColumn(QGridLayout* grid, const QString& caption, QWidget* field) {
  const int column = grid->columnCount() - (grid->isEmpty() ? 1 : 0);
  QLabel* label = NewLabel(caption, field, this);
  grid->addWidget(label, 0, column);
  grid->addWidget(field, 1, column);
  // Equal columns: no field asks for more than its share.
  grid->setColumnStretch(column, 1);
  field->setMinimumWidth(0);
  field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void DatePane::UpdateSample() {
  ErrTrace::inner("Form1.Update" + date_ + "Sample", [this] {
    const std::string format =
        ComposeDateFormat(parts_[0]->currentIndex(), parts_[1]->currentIndex(),
                          parts_[2]->currentIndex(), text::FromQt(separator_->text()));
    const int year = Supplied().clock.Now().year;
    sample_->ShowSample(FormatDate(format, year, 1, 1, Supplied().locale));
    if (ConstrItem* shown = Shown()) shown->date.Format = format;
  });
}

void DatePane::Fill(const ConstrItem& item) {
  for (std::size_t i = 0; i < parts_.size(); ++i) parts_[i]->setCurrentIndex(item.date.Parts[i]);
  separator_->setText(text::ToQt(item.date.Separator));
  UpdateSample();
}
