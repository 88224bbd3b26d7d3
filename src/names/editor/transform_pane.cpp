#include "names/editor/transform_pane.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <utility>

#include "look/handlers.h"
#include "look/look.h"
#include "look/name_field.h"
#include "look/number_field.h"
#include "look/shortcuts.h"
#include "names/transform.h"
#include "platform/qt/text_qt.h"

namespace {

constexpr std::string_view kCases[] = {"Unchanged", "UPPERCASE", "lowercase",
                                       "First letter uppercase only"};
constexpr std::string_view kCuts[] = {
    "Do nothing",
    "Remove Text",
    "Remove N characters from the start",
    "Remove N characters from the end",
    "Remove N characters after the first K",
    "Remove N characters before the last K",
    "Remove N characters from the start and K from the end",
    "Remove all after the first N characters",
    "Remove all before the last N characters",
    "Remove all between the first N and last K characters",
};
constexpr std::string_view kAdds[] = {
    "Do nothing",
    "Add Text to the left",
    "Add Text to the right",
    "Add Text1 to the left and Text2 to the right",
    "Insert Text after the first N characters",
    "Insert Text before the last N characters",
};

struct CutShows {
  bool n, x, text;
};
/// The fields of each cut mode.
constexpr CutShows kCutShows[std::size(kCuts)] = {
    {false, false, false}, {false, false, true}, {true, false, false}, {true, false, false},
    {true, true, false},   {true, true, false},  {true, true, false},  {true, false, false},
    {true, false, false},  {true, true, false},
};

struct AddShows {
  bool text1, text2, n;
};
/// The fields of each add mode.
constexpr AddShows kAddShows[std::size(kAdds)] = {
    {false, false, false}, {true, false, false}, {true, false, false},
    {true, true, false},   {true, false, true},  {true, false, true},
};

constexpr int kNumberWidth = 84;
constexpr int kPairGap = 5;
constexpr int kLeastCombo = 120;
constexpr int kDot = 6;

QVBoxLayout* NewPage(QTabWidget* pages, const QString& title) {
  auto* widget = new QWidget(pages);
  auto* rows = new QVBoxLayout(widget);
  // One more for the line under the tabs.
  rows->setContentsMargins(0, measure::kBlockGap + 1, 0, 0);
  rows->setSpacing(measure::kControlGap);
  pages->addTab(widget, title);
  return rows;
}

QHBoxLayout* AddRow(QVBoxLayout* page) {
  auto* row = new QHBoxLayout;
  row->setSpacing(measure::kLabelGap);
  page->addLayout(row);
  return row;
}

/// Labels of a first column have one width, so that all fields start on one line.
void AddField(QHBoxLayout* row, const QString& caption, QWidget* field, bool is_first) {
  QLabel* label = NewLabel(caption, field, field->parentWidget());
  if (is_first) {
    label->setMinimumWidth(measure::kOptionLabels);
  } else {
    label->setContentsMargins(kPairGap, 0, 0, 0);
  }
  row->addWidget(label);
  const bool is_number = qobject_cast<NumberField*>(field) != nullptr;
  if (is_number) field->setFixedWidth(kNumberWidth);
  row->addWidget(field, is_number ? 0 : 1);
}

/// A dot, or as much room without one, so that no tab moves.
QIcon Dot(bool filled, qreal scale) {
  QPixmap picture(QSize(kDot, kDot) * scale);
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::transparent);
  if (filled) {
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Look::Current().Colour(Role::kFocus));
    painter.drawEllipse(QRect(0, 0, kDot, kDot));
  }
  return QIcon(picture);
}

void SetShown(QWidget* field, bool shown) {
  LabelOf(field)->setVisible(shown);
  field->setVisible(shown);
}

}  // namespace

TransformPane::TransformPane(const Parts& parts, const TransformNames& names) : OptionPane(parts) {
  BuildCase(names.letter_case);
  pages_ = new QTabWidget(this);
  pages_->setObjectName(text::ToQt(names.pages));
  pages_->setProperty("optionPages", true);
  pages_->setIconSize(QSize(kDot, kDot));
  pages_->setAccessibleName(accessibleName());
  Body()->addWidget(pages_, 1);
  BuildRemovePage(names);
  BuildReplacePage(names.replace);
  BuildAddPage(names.part);
  for (int page = 0; page < pages_->count(); ++page) {
    connect(NewShortcut(Behind(Keys::kRemovePage, page), this), &QShortcut::activated, pages_,
            [this, page] { pages_->setCurrentIndex(page); });
  }
  OnSignal(pages_, &QTabWidget::currentChanged, HandlerOf(names.pages, "_SelectedChanged(Item)"),
           [this](int page) {
             if (ConstrItem* shown = Shown()) shown->transform.OptionsTab = page;
           });
  ShowCutFields();
  ShowAddFields();
  FitStyle();
}

void TransformPane::MarkPages() {
  const ConstrItem* shown = Shown();
  const TransformSteps steps = shown == nullptr ? TransformSteps{} : StepsInUse(shown->transform);
  const bool in_use[] = {steps.cut, steps.replace, steps.add};
  for (int page = 0; page < pages_->count(); ++page) {
    const QString keys = ShownKeys(Behind(Keys::kRemovePage, page));
    pages_->setTabToolTip(page, in_use[page] ? tr("%1 (in use)").arg(keys) : keys);
    pages_->setTabIcon(page, Dot(in_use[page], devicePixelRatioF()));
  }
}

void TransformPane::FitStyle() {
  // Without the skin, a frame around the pages would be a second one inside that of the card.
  pages_->setDocumentMode(!Look::Current().SkinOn());
  MarkPages();
}

void TransformPane::changeEvent(QEvent* event) {
  Card::changeEvent(event);
  const bool new_look =
      event->type() == QEvent::StyleChange || event->type() == QEvent::PaletteChange;
  if (new_look && pages_ != nullptr) FitStyle();
}

template <class Value>
void TransformPane::Store(Value TransformOptions::*option, Value value) {
  if (ConstrItem* shown = Shown()) shown->transform.*option = std::move(value);
  MarkPages();
}

QComboBox* TransformPane::NewModePick(const std::string& name, std::int32_t TransformOptions::*mode,
                                      std::span<const std::string_view> entries,
                                      std::function<void()> show_fields) {
  return NewPick(name, entries, [this, mode, show_fields = std::move(show_fields)](int index) {
    if (show_fields) show_fields();
    Store(mode, std::int32_t{index});
  });
}

QLineEdit* TransformPane::NewTextField(const std::string& name, std::string TransformOptions::*text,
                                       bool goes_into_names) {
  QLineEdit* field =
      goes_into_names ? new NameField(Supplied().prompts, this) : new QLineEdit(this);
  HandleChange(field, name, [this, field, text] { Store(text, text::FromQt(field->text())); });
  return field;
}

NumberField* TransformPane::NewNumberField(const std::string& name,
                                           std::int32_t TransformOptions::*number) {
  const auto store = [this, number](std::int32_t value) { Store(number, value); };
  auto* field = new NumberField(name.c_str(), store, this);
  HandleChange(field, name);
  return field;
}

void TransformPane::BuildCase(const std::string& letter_case) {
  case_ = NewModePick("cmbCase" + letter_case, &TransformOptions::Case, kCases);
  case_->setMinimumWidth(kLeastCombo);
  case_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  Head()->addWidget(NewLabel(tr("Letter c&ase"), case_, this));
  Head()->addWidget(case_);
}

void TransformPane::BuildRemovePage(const TransformNames& names) {
  QVBoxLayout* page = NewPage(pages_, tr("Remove"));
  const std::string field = "fdCut" + names.part;
  cut_ = NewModePick("cmbCut" + names.part, &TransformOptions::Cut, kCuts,
                     [this] { ShowCutFields(); });
  cut_n_ = NewNumberField(field + "N", &TransformOptions::CutN);
  cut_x_ = NewNumberField(field + "X", &TransformOptions::CutX);
  cut_text_ = NewTextField(field + "Text", &TransformOptions::CutText, false);
  auto* reset = new QPushButton(tr("reset"), this);
  reset->setObjectName(text::ToQt(names.reset));
  Explain(reset, tr("Set \"Cut\" to \"Do nothing\""));
  OnSignal(reset, &QPushButton::clicked, HandlerOf(names.reset, "_Click"),
           [this] { cut_->setCurrentIndex(0); });

  AddField(AddRow(page), tr("Cu&t"), cut_, true);
  QHBoxLayout* row = AddRow(page);
  AddField(row, tr("&N:"), cut_n_, true);
  AddField(row, tr("&K:"), cut_x_, false);
  AddField(row, tr("T&ext:"), cut_text_, true);
  row->addStretch();
  row->addWidget(reset);
  page->addStretch();
}

void TransformPane::BuildReplacePage(const std::string& replace) {
  QVBoxLayout* page = NewPage(pages_, tr("Replace"));
  const std::string field = "fdReplace" + replace;
  replace1_ = NewTextField(field + "1", &TransformOptions::Replace1, false);
  replace2_ = NewTextField(field + "2", &TransformOptions::Replace2, true);
  AddField(AddRow(page), tr("R&eplace:"), replace1_, true);
  AddField(AddRow(page), tr("&With:"), replace2_, true);
  page->addStretch();
}

void TransformPane::BuildAddPage(const std::string& part) {
  QVBoxLayout* page = NewPage(pages_, tr("Add / Insert"));
  const std::string field = "fdAdd" + part;
  add_ = NewModePick("cmbAdd" + part, &TransformOptions::Add, kAdds, [this] { ShowAddFields(); });
  add_text1_ = NewTextField(field + "Text1", &TransformOptions::AddText1, true);
  add_text2_ = NewTextField(field + "Text2", &TransformOptions::AddText2, true);
  add_n_ = NewNumberField(field + "N", &TransformOptions::AddN);
  AddField(AddRow(page), tr("A&dd"), add_, true);
  QHBoxLayout* row = AddRow(page);
  AddField(row, tr("&Text1:"), add_text1_, true);
  AddField(row, tr("T&ext2:"), add_text2_, false);
  AddField(row, tr("&N:"), add_n_, false);
  page->addStretch();
}

void TransformPane::ShowCutFields() {
  const CutShows& shows = kCutShows[std::max(cut_->currentIndex(), 0)];
  SetShown(cut_n_, shows.n);
  SetShown(cut_x_, shows.x);
  SetShown(cut_text_, shows.text);
}

void TransformPane::ShowAddFields() {
  const AddShows& shows = kAddShows[std::max(add_->currentIndex(), 0)];
  if (shows.text1) LabelOf(add_text1_)->setText(shows.text2 ? tr("&Text1:") : tr("&Text:"));
  SetShown(add_text1_, shows.text1);
  SetShown(add_text2_, shows.text2);
  SetShown(add_n_, shows.n);
}

void TransformPane::Fill(const ConstrItem& item) {
  const TransformOptions& options = item.transform;
  case_->setCurrentIndex(options.Case);
  cut_->setCurrentIndex(options.Cut);
  cut_n_->ShowNumber(options.CutN);
  cut_x_->ShowNumber(options.CutX);
  cut_text_->setText(text::ToQt(options.CutText));
  replace1_->setText(text::ToQt(options.Replace1));
  replace2_->setText(text::ToQt(options.Replace2));
  add_->setCurrentIndex(options.Add);
  add_n_->ShowNumber(options.AddN);
  add_text1_->setText(text::ToQt(options.AddText1));
  add_text2_->setText(text::ToQt(options.AddText2));
  pages_->setCurrentIndex(options.OptionsTab);
  MarkPages();
}
