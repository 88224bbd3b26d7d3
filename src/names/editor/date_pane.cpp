#include "names/editor/date_pane.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <utility>

#include "look/handlers.h"
#include "look/look.h"
#include "look/name_field.h"
#include "look/sample_label.h"
#include "names/date_format.h"
#include "platform/qt/text_qt.h"

struct DateControls {
  const char* pane;
  const char* title;
  const char* part;
  const char* separator;
  const char* sample;
  std::string_view update_sample;
  std::int32_t ConstrItem::*parts[3];
  std::string ConstrItem::*separator_text;
  std::string ConstrItem::*format;
};

namespace {

constexpr DateControls kDateControls[] = {
    {
        .pane = "pbFileDate",
        .title = "File date options",
        .part = "cmbDate",
        .separator = "fdDateSeparator",
        .sample = "lbDateSample",
        .update_sample = "Form1.UpdateDateSample",
        .parts = {&ConstrItem::Date0, &ConstrItem::Date1, &ConstrItem::Date2},
        .separator_text = &ConstrItem::DateSeparator,
        .format = &ConstrItem::DateFormat,
    },
    {
        .pane = "pbTodayDate",
        .title = "Today's date options",
        .part = "cmbTDate",
        .separator = "fdTDateSeparator",
        .sample = "lbTDateSample",
        .update_sample = "Form1.UpdateTDateSample",
        .parts = {&ConstrItem::TDate0, &ConstrItem::TDate1, &ConstrItem::TDate2},
        .separator_text = &ConstrItem::TDateSeparator,
        .format = &ConstrItem::TDateFormat,
    },
};

const DateControls& ControlsOf(ItemType kind) {
  return kDateControls[kind == kFileDate ? 0 : 1];
}

/// The same parts as the formatter knows, by position.
constexpr std::array<const char*, kDateParts.size()> PartNames() {
  std::array<const char*, kDateParts.size()> names{};
  for (std::size_t i = 0; i < names.size(); ++i) names[i] = kDateParts[i].data();
  return names;
}
constexpr auto kPartNames = PartNames();

}  // namespace

DatePane::DatePane(ItemType kind, const PaneServices& services, ShownItem item, QWidget* parent)
    : Card(QLatin1String(ControlsOf(kind).pane), QLatin1String(ControlsOf(kind).title), parent),
      controls_(ControlsOf(kind)),
      services_(services),
      item_(std::move(item)) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(measure::kControlGap);
  grid->setVerticalSpacing(measure::kControlGap);
  const QString captions[] = {tr("Firs&t:"), tr("Seco&nd:"), tr("Thir&d:")};
  for (int i = 0; i < kParts; ++i) {
    const auto picked = [this, i](int index) {
      emit optionChanged();
      UpdateSample();
      if (ConstrItem* shown = item_()) shown->*controls_.parts[i] = index;
    };
    auto* box = new QComboBox(this);
    box->setObjectName(QStringLiteral("%1(%2)").arg(QLatin1String(controls_.part)).arg(i));
    for (const char* name : kPartNames) box->addItem(QLatin1String(name));
    connect(box, &QComboBox::currentIndexChanged, this, [this, i, picked](int index) {
      ErrTrace::top(HandlerOf(controls_.part, "_Click(Index)"), ErrTrace::args(i),
                    [&] { picked(index); });
    });
    parts_[static_cast<std::size_t>(i)] = box;
    AddColumn(grid, captions[i], box);
  }
  separator_ = new NameField(services_.prompts, this);
  HandleChange(separator_, controls_.separator, [this] {
    emit optionChanged();
    UpdateSample();
    if (ConstrItem* shown = item_()) {
      shown->*controls_.separator_text = text::FromQt(separator_->text());
    }
  });
  AddColumn(grid, tr("Sep&arator:"), separator_);

  sample_ = new SampleLabel(controls_.sample, this);
  Body()->addLayout(grid);
  Body()->addWidget(sample_);
  Body()->addStretch();
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
  ErrTrace::inner(controls_.update_sample, [this] {
    const std::string format =
        ComposeDateFormat(parts_[0]->currentIndex(), parts_[1]->currentIndex(),
                          parts_[2]->currentIndex(), text::FromQt(separator_->text()));
    const int year = services_.clock.Now().year;
    sample_->ShowSample(FormatDate(format, year, 1, 1, services_.locale));
    if (ConstrItem* shown = item_()) shown->*controls_.format = format;
  });
}

void DatePane::ShowItem() {
  const ConstrItem* shown = item_();
  if (shown == nullptr) return;
  const ConstrItem item = *shown;
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    parts_[i]->setCurrentIndex(item.*controls_.parts[i]);
  }
  separator_->setText(text::ToQt(item.*controls_.separator_text));
  UpdateSample();
}
