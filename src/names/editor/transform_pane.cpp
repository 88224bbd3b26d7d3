#include "names/editor/transform_pane.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "look/handlers.h"
#include "look/look.h"
#include "look/name_field.h"
#include "look/number_field.h"
#include "look/shortcuts.h"
#include "names/editor/transform_modes.h"
#include "names/transform.h"
#include "platform/qt/text_qt.h"

namespace {

constexpr std::string_view kCases[] = {"Unchanged", "UPPERCASE", "lowercase",
                                       "First letter uppercase only"};
/// What the pages are for, in their order.
constexpr const char* kPages[] = {
    QT_TRANSLATE_NOOP("TransformPane", "Cut a part out of the text"),
    QT_TRANSLATE_NOOP("TransformPane", "Find a text and put another in its place"),
    QT_TRANSLATE_NOOP("TransformPane", "Put text in front, behind or in between"),
};

constexpr int kPairGap = 5;
constexpr int kLeastCombo = 120;
constexpr int kLeastSigns = 14;  ///< that much of an entry with a large font
constexpr int kDot = 6;

/// Pages without a frame around them, which a style may keep room for all the same.
class FramelessPages : public QTabWidget {
 public:
  using QTabWidget::QTabWidget;
  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override {
    QSize pages;
    for (int i = 0; i < count(); ++i) pages = pages.expandedTo(widget(i)->minimumSizeHint());
    const QSize tabs = tabBar()->minimumSizeHint();
    return {std::max(pages.width(), tabBar()->sizeHint().width()), pages.height() + tabs.height()};
  }
};

/// A page whose labels stand in one column; the room below its rows is free.
QGridLayout* NewPage(QTabWidget* pages, const QString& title) {
  constexpr int kRows = 2;
  // Before it has controls, which would all move along.
  auto* widget = new QWidget;
  pages->addTab(widget, title);
  auto* rows = new QGridLayout(widget);
  // One more for the line under the tabs.
  rows->setContentsMargins(0, measure::kBlockGap + 1, 0, 0);
  rows->setHorizontalSpacing(measure::kLabelGap);
  rows->setVerticalSpacing(measure::kControlGap);
  rows->setColumnStretch(1, 1);
  rows->setRowStretch(kRows, 1);
  return rows;
}

/// A row of fields; the labels of the first of them stand in the page's column.
struct Row {
  QGridLayout* page;
  int number;
  QHBoxLayout* fields = new QHBoxLayout;

  Row(QGridLayout* of_page, int at) : page(of_page), number(at) {
    fields->setSpacing(measure::kLabelGap);
    page->addLayout(fields, number, 1);
  }

  void Add(const QString& caption, QWidget* field, bool is_first = true) {
    QLabel* label = NewLabel(caption, field, field->parentWidget());
    if (is_first) {
      page->addWidget(label, number, 0);
    } else {
      label->setContentsMargins(kPairGap, 0, 0, 0);
      fields->addWidget(label);
    }
    const bool is_number = qobject_cast<NumberField*>(field) != nullptr;
    fields->addWidget(field, is_number ? 0 : 1);
  }
};

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

std::vector<std::string_view> CaptionsOf(std::span<const TransformMode> modes) {
  std::vector<std::string_view> captions;
  for (const TransformMode& mode : modes) captions.emplace_back(mode.caption);
  return captions;
}

/// The mode that is picked; the first one while none is.
const TransformMode& Picked(const QComboBox* box, std::span<const TransformMode> modes) {
  return modes[static_cast<std::size_t>(std::max(box->currentIndex(), 0))];
}

}  // namespace

TransformPane::TransformPane(const Parts& parts, const TransformNames& names) : OptionPane(parts) {
  BuildCase(names.letter_case);
  pages_ = new FramelessPages(this);
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
  built_ = true;
  FitStyle();
}

void TransformPane::MarkPages() {
  const ConstrItem* shown = Shown();
  const TransformSteps steps = shown == nullptr ? TransformSteps{} : StepsInUse(shown->transform);
  const bool in_use[] = {steps.cut, steps.replace, steps.add};
  for (int page = 0; page < pages_->count(); ++page) {
    const QString tip = WithKeys(tr(kPages[page]), Behind(Keys::kRemovePage, page));
    pages_->setTabToolTip(page, in_use[page] ? tr("%1, in use").arg(tip) : tip);
    pages_->setTabIcon(page, Dot(in_use[page], devicePixelRatioF()));
  }
}

void TransformPane::FitStyle() {
  // Without the skin, a frame around the pages would be a second one inside that of the card.
  pages_->setDocumentMode(!Look::Current().SkinOn());
  case_->setMinimumWidth(std::max(kLeastCombo, kLeastSigns * fontMetrics().averageCharWidth()));
  FitLabels();
  MarkPages();
}

void TransformPane::FitLabels() {
  constexpr int kSlack = 2;
  int widest = measure::kOptionLabels;
  for (const QWidget* field : std::initializer_list<QWidget*>{cut_, cut_n_, cut_text_, replace1_,
                                                              replace2_, add_, add_text1_}) {
    const QString caption = LabelOf(field)->text();
    // The labels may hear of a new font after the pane.
    const int wide = fontMetrics().size(Qt::TextShowMnemonic, caption).width();
    widest = std::max(widest, wide + kSlack);
  }
  for (int page = 0; page < pages_->count(); ++page) {
    static_cast<QGridLayout*>(pages_->widget(page)->layout())->setColumnMinimumWidth(0, widest);
  }
}

void TransformPane::changeEvent(QEvent* event) {
  Card::changeEvent(event);
  const auto type = event->type();
  const bool fits_no_more =
      type == QEvent::StyleChange || type == QEvent::FontChange || type == QEvent::PaletteChange;
  if (built_ && fits_no_more) FitStyle();
}

template <class Value>
void TransformPane::Store(Value TransformOptions::*option, Value value) {
  if (ConstrItem* shown = Shown()) shown->transform.*option = std::move(value);
  MarkPages();
}

QComboBox* TransformPane::NewModePick(QWidget* parent, const std::string& name,
                                      std::int32_t TransformOptions::*mode,
                                      std::span<const std::string_view> entries,
                                      std::function<void()> show_fields) {
  return NewPick(parent, name, entries,
                 [this, mode, show_fields = std::move(show_fields)](int index) {
                   if (show_fields) show_fields();
                   Store(mode, std::int32_t{index});
                 });
}

QLineEdit* TransformPane::NewTextField(QWidget* parent, const std::string& name,
                                       std::string TransformOptions::*text, bool goes_into_names) {
  QLineEdit* field =
      goes_into_names ? new NameField(Supplied().prompts, parent) : new QLineEdit(parent);
  HandleChange(field, name, [this, field, text] { Store(text, text::FromQt(field->text())); });
  return field;
}

NumberField* TransformPane::NewNumberField(QWidget* parent, const std::string& name,
                                           std::int32_t TransformOptions::*number) {
  const auto store = [this, number](std::int32_t value) { Store(number, value); };
  auto* field = new NumberField(name.c_str(), store, parent);
  HandleChange(field, name);
  return field;
}

void TransformPane::BuildCase(const std::string& letter_case) {
  case_ = NewModePick(this, "cmbCase" + letter_case, &TransformOptions::Case, kCases);
  case_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  Explain(case_, tr("Change the letters to upper or lower case"));
  Head()->addWidget(NewLabel(tr("Letter c&ase"), case_, this));
  Head()->addWidget(case_);
}

void TransformPane::BuildRemovePage(const TransformNames& names) {
  QGridLayout* page = NewPage(pages_, tr("Remove"));
  QWidget* widget = page->parentWidget();
  const std::string field = "fdCut" + names.part;
  cut_ = NewModePick(widget, "cmbCut" + names.part, &TransformOptions::Cut, CaptionsOf(kCuts),
                     [this] { ShowCutFields(); });
  Explain(cut_, tr("What to remove, and where"));
  cut_n_ = NewNumberField(widget, field + "N", &TransformOptions::CutN);
  cut_x_ = NewNumberField(widget, field + "X", &TransformOptions::CutX);
  cut_text_ = NewTextField(widget, field + "Text", &TransformOptions::CutText, false);
  auto* reset = new QPushButton(tr("reset"), widget);
  reset->setObjectName(text::ToQt(names.reset));
  Explain(reset, tr("Set “Cut” back to “Do nothing”"));
  OnSignal(reset, &QPushButton::clicked, HandlerOf(names.reset, "_Click"),
           [this] { cut_->setCurrentIndex(0); });

  Row(page, 0).Add(tr("Cu&t"), cut_);
  Row row(page, 1);
  row.Add(tr("&N:"), cut_n_);
  row.Add(tr("&K:"), cut_x_, false);
  row.Add(tr("T&ext:"), cut_text_);
  row.fields->addStretch();
  row.fields->addWidget(reset);
}

void TransformPane::BuildReplacePage(const std::string& replace) {
  QGridLayout* page = NewPage(pages_, tr("Replace"));
  QWidget* widget = page->parentWidget();
  const std::string field = "fdReplace" + replace;
  replace1_ = NewTextField(widget, field + "1", &TransformOptions::Replace1, false);
  replace2_ = NewTextField(widget, field + "2", &TransformOptions::Replace2, true);
  Explain(replace1_, tr("The text to look for, wherever it stands, in upper or lower case"));
  Explain(replace2_, tr("The new text; leave it empty to remove the old one"));
  Row(page, 0).Add(tr("R&eplace:"), replace1_);
  Row(page, 1).Add(tr("&With:"), replace2_);
}

void TransformPane::BuildAddPage(const std::string& part) {
  QGridLayout* page = NewPage(pages_, tr("Add / Insert"));
  QWidget* widget = page->parentWidget();
  const std::string field = "fdAdd" + part;
  add_ = NewModePick(widget, "cmbAdd" + part, &TransformOptions::Add, CaptionsOf(kAdds),
                     [this] { ShowAddFields(); });
  Explain(add_, tr("Where to put more text"));
  add_text1_ = NewTextField(widget, field + "Text1", &TransformOptions::AddText1, true);
  add_text2_ = NewTextField(widget, field + "Text2", &TransformOptions::AddText2, true);
  add_n_ = NewNumberField(widget, field + "N", &TransformOptions::AddN);
  Row(page, 0).Add(tr("A&dd"), add_);
  Row row(page, 1);
  row.Add(tr("&Text1:"), add_text1_);
  row.Add(tr("T&ext2:"), add_text2_, false);
  row.Add(tr("&N:"), add_n_, false);
}

void TransformPane::ShowField(QWidget* field, const char* tells) {
  const bool shown = tells != nullptr;
  LabelOf(field)->setVisible(shown);
  field->setVisible(shown);
  if (shown) Explain(field, tr(tells));
}

void TransformPane::ShowCutFields() {
  const auto& fields = Picked(cut_, kCuts).fields;
  ShowField(cut_n_, fields[0]);
  ShowField(cut_x_, fields[1]);
  ShowField(cut_text_, fields[2]);
}

void TransformPane::ShowAddFields() {
  const auto& fields = Picked(add_, kAdds).fields;
  LabelOf(add_text1_)->setText(fields[1] != nullptr ? tr("&Text1:") : tr("&Text:"));
  ShowField(add_text1_, fields[0]);
  ShowField(add_text2_, fields[1]);
  ShowField(add_n_, fields[2]);
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
