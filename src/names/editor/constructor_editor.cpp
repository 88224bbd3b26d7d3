#include "names/editor/constructor_editor.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QVBoxLayout>
#include <cstdint>
#include <limits>

#include "look/card.h"
#include "look/look.h"
#include "look/number_field.h"
#include "names/editor/chip_bar.h"
#include "names/editor/constructor_strip.h"
#include "names/editor/counter_pane.h"
#include "names/editor/custom_text_dialog.h"
#include "names/editor/transform_pane.h"
#include "platform/qt/text_qt.h"
#include "trace/err_trace.h"

namespace {

QWidget* NewEmptyPane(QWidget* parent) {
  auto* pane = new QFrame(parent);
  pane->setObjectName(QStringLiteral("pbDot"));
  pane->setProperty("card", true);
  auto* layout = new QVBoxLayout(pane);
  auto* text = new QLabel(QObject::tr("No options available"), pane);
  text->setObjectName(QStringLiteral("lbDot"));
  text->setProperty("muted", true);
  text->setAlignment(Qt::AlignCenter);
  layout->addWidget(text);
  return pane;
}

/// Brings the page of `control` to the front; answers the pages, if it stands on one.
QTabWidget* TurnToPageOf(QWidget* control) {
  for (QWidget* part = control; part != nullptr; part = part->parentWidget()) {
    auto* pages = qobject_cast<QTabWidget*>(part);
    if (pages == nullptr) continue;
    for (int i = 0; i < pages->count(); ++i) {
      if (pages->widget(i)->isAncestorOf(control)) pages->setCurrentIndex(i);
    }
    return pages;
  }
  return nullptr;
}

/// What the label of `field` says, without its letter and colon.
QString CaptionOf(const QWidget* field) {
  QString caption;
  for (const QLabel* label : field->parentWidget()->findChildren<QLabel*>()) {
    if (label->buddy() == field) caption = label->text();
  }
  return caption.remove(u'&').remove(u':');
}

}  // namespace

ConstructorEditor::ConstructorEditor(Constructor& constructor, const PaneServices& services,
                                     QWidget* parent)
    : QWidget(parent), constructor_(constructor), prompts_(services.prompts) {
  BuildConstructorCard(services);
  BuildPanes(services);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(measure::kBlockGap);
  column->addWidget(fraConstructor);
  column->addWidget(panes_, 1);
  connect(strip, &ConstructorStrip::aboutToChange, this, &ConstructorEditor::CommitFocusedField);
  connect(strip, &ConstructorStrip::elementsChanged, this, &ConstructorEditor::optionChanged);
  connect(strip, &ConstructorStrip::selectedChanged, this,
          &ConstructorEditor::tabConstructor_SelectedChanged);
  tabConstructor_SelectedChanged(strip->Selected());
}

void ConstructorEditor::showEvent(QShowEvent* event) {
  PolishAll(this);
  QWidget::showEvent(event);
}

void ConstructorEditor::BuildConstructorCard(const PaneServices& services) {
  fraConstructor =
      new Card(QStringLiteral("fraConstructor"), tr("New file name constructor"), this);
  const auto ask = [this, services] {
    return GetTextToInsert(services.prompts, services.settings, window());
  };
  strip = new ConstructorStrip(constructor_, ask, fraConstructor);
  fraConstructor->Body()->addWidget(strip);
  Command4 = new QPushButton(tr("&Conflicts..."), fraConstructor);
  Command4->setObjectName(QStringLiteral("Command4"));
  fraConstructor->Head()->addWidget(Command4);
  connect(Command4, &QPushButton::clicked, this, &ConstructorEditor::conflictsClicked);
}

void ConstructorEditor::BuildPanes(const PaneServices& services) {
  const ShownItem item = [this] { return Shown(); };
  panes_ = new QStackedWidget(this);
  const auto transform = [&](ItemType kind) {
    auto* pane = new TransformPane(kind, services.prompts, item, panes_);
    connect(pane, &TransformPane::optionChanged, this, &ConstructorEditor::optionChanged);
    return pane;
  };
  const auto date = [&](ItemType kind) {
    auto* pane = new DatePane(kind, services, item, panes_);
    connect(pane, &DatePane::optionChanged, this, &ConstructorEditor::optionChanged);
    return pane;
  };
  pbFileName = transform(kSourceFileName);
  pbExt = transform(kExtension);
  pbParentFolderName = transform(kParentFolderName);
  pbFileDate = date(kFileDate);
  pbTodayDate = date(kTodaysDate);
  pbCounter = new CounterPane(item, panes_);
  connect(pbCounter, &CounterPane::optionChanged, this, &ConstructorEditor::optionChanged);
  pbDot = NewEmptyPane(panes_);
  for (QWidget* pane :
       {static_cast<QWidget*>(pbFileName), static_cast<QWidget*>(pbExt),
        static_cast<QWidget*>(pbParentFolderName), static_cast<QWidget*>(pbFileDate),
        static_cast<QWidget*>(pbTodayDate), static_cast<QWidget*>(pbCounter), pbDot}) {
    panes_->addWidget(pane);
  }
}

ConstrItem* ConstructorEditor::Shown() {
  const auto index = static_cast<std::size_t>(shown_);
  return index < constructor_.ArrConstr.size() ? &constructor_.ArrConstr[index] : nullptr;
}

void ConstructorEditor::CommitFocusedField() {
  for (NumberField* field : panes_->findChildren<NumberField*>()) field->HandOver();
}

NumberField* ConstructorEditor::RefusedField() const {
  for (NumberField* field : panes_->currentWidget()->findChildren<NumberField*>()) {
    // A field that its mode or another pane hides has no say; its number comes back with it.
    if (field->Refused() && !field->isHidden()) return field;
  }
  return nullptr;
}

bool ConstructorEditor::TellRefusedNumber() {
  NumberField* field = RefusedField();
  if (field == nullptr) return false;
  QString place = QStringLiteral("in “%1”").arg(panes_->currentWidget()->accessibleName());
  if (const QTabWidget* pages = TurnToPageOf(field)) {
    place = QStringLiteral("on the page “%1”").arg(pages->tabText(pages->currentIndex()));
  }
  field->setFocus();
  field->selectAll();
  prompts_.Tell(text::FromQt(QStringLiteral("The number “%1” %2 is too large.\n"
                                            "The largest that can be used is %3.")
                                 .arg(CaptionOf(field), place)
                                 .arg(std::numeric_limits<std::int32_t>::max())),
                PromptIcon::kExclamation);
  return true;
}

void ConstructorEditor::ShowOptionsPane(ItemType kind) {
  switch (kind) {
    case kSourceFileName:
      return panes_->setCurrentWidget(pbFileName);
    case kExtension:
      return panes_->setCurrentWidget(pbExt);
    case kParentFolderName:
      return panes_->setCurrentWidget(pbParentFolderName);
    case kFileDate:
      return panes_->setCurrentWidget(pbFileDate);
    case kTodaysDate:
      return panes_->setCurrentWidget(pbTodayDate);
    case kCounter:
      return panes_->setCurrentWidget(pbCounter);
    case kText:
      break;
  }
  panes_->setCurrentWidget(pbDot);
}

void ConstructorEditor::ShowItem(ItemType kind) {
  switch (kind) {
    case kSourceFileName:
      return pbFileName->ShowItem();
    case kExtension:
      return pbExt->ShowItem();
    case kParentFolderName:
      return pbParentFolderName->ShowItem();
    case kFileDate:
      return pbFileDate->ShowItem();
    case kTodaysDate:
      return pbTodayDate->ShowItem();
    case kCounter:
      return pbCounter->ShowItem();
    case kText:
      return;
  }
}

void ConstructorEditor::tabConstructor_SelectedChanged(int index) {
  const int Item = index;
  ErrTrace::top("Form1.tabConstructor_SelectedChanged(Item)", ErrTrace::args(Item), [&] {
    // What was typed belongs to the element that was shown until now.
    CommitFocusedField();
    shown_ = index;
    const ConstrItem* item = Shown();
    const ItemType kind = item == nullptr ? kText : static_cast<ItemType>(item->ItemType);
    ShowOptionsPane(kind);
    ShowItem(kind);
  });
}
