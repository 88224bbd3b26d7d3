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
#include "names/editor/transform_controls.h"
#include "names/transform.h"
#include "platform/qt/text_qt.h"

/// A text field and the member of an element that it edits.
struct TextOption {
  const char* control;
  std::string ConstrItem::*text;
};

namespace {

constexpr const char* kCases[] = {"Unchanged", "UPPERCASE", "lowercase",
                                  "First letter uppercase only"};
constexpr const char* kCuts[] = {
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
constexpr const char* kAdds[] = {
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
QLabel* AddField(QHBoxLayout* row, const QString& caption, QWidget* field, bool is_first) {
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
  return label;
}

QKeySequence KeysOfPage(int page) {
  return QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_4 + page));
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

void SetShown(QLabel* label, QWidget* field, bool shown) {
  label->setVisible(shown);
  field->setVisible(shown);
}

}  // namespace

TransformPane::TransformPane(ItemType kind, Prompts& prompts, ShownItem item, QWidget* parent)
    : Card(QLatin1String(kTransformControls[kind].pane),
           QLatin1String(kTransformControls[kind].title), parent),
      controls_(kTransformControls[kind]),
      fields_(kTransformFields[kind]),
      prompts_(prompts),
      item_(std::move(item)) {
  BuildCase();
  pages_ = new QTabWidget(this);
  pages_->setObjectName(QLatin1String(controls_.pages));
  pages_->setProperty("optionPages", true);
  pages_->setIconSize(QSize(kDot, kDot));
  pages_->setAccessibleName(accessibleName());
  Body()->addWidget(pages_, 1);
  BuildRemovePage();
  BuildReplacePage();
  BuildAddPage();
  for (int page = 0; page < pages_->count(); ++page) {
    connect(new QShortcut(KeysOfPage(page), this), &QShortcut::activated, pages_,
            [this, page] { pages_->setCurrentIndex(page); });
  }
  OnSignal(pages_, &QTabWidget::currentChanged,
           HandlerOf(controls_.pages, "_SelectedChanged(Item)"), [this](int page) {
             if (ConstrItem* shown = item_()) shown->OptionsTab = page;
           });
  ShowCutFields();
  ShowAddFields();
  FitStyle();
}

void TransformPane::MarkPages() {
  const ConstrItem* shown = item_();
  const TransformSteps steps = shown == nullptr ? TransformSteps{} : StepsInUse(*shown, fields_);
  const bool in_use[] = {steps.cut, steps.replace, steps.add};
  for (int page = 0; page < pages_->count(); ++page) {
    const QString keys = KeysOfPage(page).toString(QKeySequence::NativeText);
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

QComboBox* TransformPane::NewModePick(const char* control, std::int32_t ConstrItem::*mode,
                                      std::span<const char* const> entries,
                                      std::function<void()> show_fields) {
  const auto picked = [this, mode, show_fields = std::move(show_fields)](int index) {
    emit optionChanged();
    if (show_fields) show_fields();
    if (ConstrItem* shown = item_()) shown->*mode = index;
    MarkPages();
  };
  return NewPick(control, entries, picked, this);
}

QLineEdit* TransformPane::NewTextField(const TextOption& option, bool filtered) {
  QLineEdit* field = filtered ? new NameField(prompts_, this) : new QLineEdit(this);
  const auto changed = [this, field, text = option.text] {
    emit optionChanged();
    if (ConstrItem* shown = item_()) shown->*text = text::FromQt(field->text());
    MarkPages();
  };
  HandleChange(field, option.control, changed);
  return field;
}

NumberField* TransformPane::NewNumberField(const char* control, std::int32_t ConstrItem::*number) {
  const auto store = [this, number](std::int32_t value) {
    if (ConstrItem* shown = item_()) shown->*number = value;
    MarkPages();
  };
  auto* field = new NumberField(control, store, this);
  HandleChange(field, control, [this] { emit optionChanged(); });
  return field;
}

void TransformPane::BuildCase() {
  case_ = NewModePick(controls_.letter_case, fields_.Case, kCases, {});
  case_->setMinimumWidth(kLeastCombo);
  case_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  Head()->addWidget(NewLabel(tr("Letter c&ase"), case_, this));
  Head()->addWidget(case_);
}

void TransformPane::BuildRemovePage() {
  QVBoxLayout* page = NewPage(pages_, tr("Remove"));
  cut_ = NewModePick(controls_.cut, fields_.Cut, kCuts, [this] { ShowCutFields(); });
  cut_n_ = NewNumberField(controls_.cut_n, fields_.CutN);
  cut_x_ = NewNumberField(controls_.cut_x, fields_.CutX);
  cut_text_ = NewTextField({controls_.cut_text, fields_.CutText}, false);
  auto* reset = new QPushButton(tr("reset"), this);
  reset->setObjectName(QLatin1String(controls_.reset));
  Explain(reset, tr("Set \"Cut\" to \"Do nothing\""));
  OnSignal(reset, &QPushButton::clicked, HandlerOf(controls_.reset, "_Click"),
           [this] { cut_->setCurrentIndex(0); });

  AddField(AddRow(page), tr("Cu&t"), cut_, true);
  QHBoxLayout* row = AddRow(page);
  cut_n_label_ = AddField(row, tr("&N:"), cut_n_, true);
  cut_x_label_ = AddField(row, tr("&K:"), cut_x_, false);
  cut_text_label_ = AddField(row, tr("T&ext:"), cut_text_, true);
  row->addStretch();
  row->addWidget(reset);
  page->addStretch();
}

void TransformPane::BuildReplacePage() {
  QVBoxLayout* page = NewPage(pages_, tr("Replace"));
  replace1_ = NewTextField({controls_.replace1, fields_.Replace1}, false);
  replace2_ = NewTextField({controls_.replace2, fields_.Replace2}, true);
  AddField(AddRow(page), tr("R&eplace:"), replace1_, true);
  AddField(AddRow(page), tr("&With:"), replace2_, true);
  page->addStretch();
}

void TransformPane::BuildAddPage() {
  QVBoxLayout* page = NewPage(pages_, tr("Add / Insert"));
  add_ = NewModePick(controls_.add, fields_.Add, kAdds, [this] { ShowAddFields(); });
  add_text1_ = NewTextField({controls_.add_text1, fields_.AddText1}, true);
  add_text2_ = NewTextField({controls_.add_text2, fields_.AddText2}, true);
  add_n_ = NewNumberField(controls_.add_n, fields_.AddN);
  AddField(AddRow(page), tr("A&dd"), add_, true);
  QHBoxLayout* row = AddRow(page);
  add_text1_label_ = AddField(row, tr("&Text1:"), add_text1_, true);
  add_text2_label_ = AddField(row, tr("T&ext2:"), add_text2_, false);
  add_n_label_ = AddField(row, tr("&N:"), add_n_, false);
  page->addStretch();
}

void TransformPane::ShowCutFields() {
  const CutShows& shows = kCutShows[std::max(cut_->currentIndex(), 0)];
  SetShown(cut_n_label_, cut_n_, shows.n);
  SetShown(cut_x_label_, cut_x_, shows.x);
  SetShown(cut_text_label_, cut_text_, shows.text);
}

void TransformPane::ShowAddFields() {
  const AddShows& shows = kAddShows[std::max(add_->currentIndex(), 0)];
  if (shows.text1) add_text1_label_->setText(shows.text2 ? tr("&Text1:") : tr("&Text:"));
  SetShown(add_text1_label_, add_text1_, shows.text1);
  SetShown(add_text2_label_, add_text2_, shows.text2);
  SetShown(add_n_label_, add_n_, shows.n);
}

void TransformPane::ShowItem() {
  const ConstrItem* shown = item_();
  if (shown == nullptr) return;
  // The handlers write into the element while it is read, each what it was given.
  const ConstrItem item = *shown;
  case_->setCurrentIndex(item.*fields_.Case);
  cut_->setCurrentIndex(item.*fields_.Cut);
  cut_n_->ShowNumber(item.*fields_.CutN);
  cut_x_->ShowNumber(item.*fields_.CutX);
  cut_text_->setText(text::ToQt(item.*fields_.CutText));
  replace1_->setText(text::ToQt(item.*fields_.Replace1));
  replace2_->setText(text::ToQt(item.*fields_.Replace2));
  add_->setCurrentIndex(item.*fields_.Add);
  add_n_->ShowNumber(item.*fields_.AddN);
  add_text1_->setText(text::ToQt(item.*fields_.AddText1));
  add_text2_->setText(text::ToQt(item.*fields_.AddText2));
  pages_->setCurrentIndex(item.OptionsTab);
  MarkPages();
}
