#include "names/editor/constructor_editor.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QVBoxLayout>
#include <cstdint>
#include <limits>

#include "look/accessible_role.h"
#include "look/card.h"
#include "look/later.h"
#include "look/look.h"
#include "look/number_field.h"
#include "look/tab_order.h"
#include "names/editor/chip_bar.h"
#include "names/editor/constructor_strip.h"
#include "names/editor/counter_pane.h"
#include "names/editor/custom_text_dialog.h"
#include "names/editor/date_pane.h"
#include "names/editor/example_label.h"
#include "names/editor/transform_pane.h"
#include "platform/qt/text_qt.h"
#include "trace/err_trace.h"

namespace {

QWidget* NewEmptyPane(QWidget* parent) {
  auto* pane = new QFrame(parent);
  SetAccessibleRole(*pane, QAccessible::Grouping);
  pane->setObjectName(QStringLiteral("pbDot"));
  pane->setProperty("card", true);
  auto* layout = new QVBoxLayout(pane);
  auto* text = new QLabel(QObject::tr("No options available"), pane);
  pane->setAccessibleName(text->text());
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

/// The pane for the options of a kind; null for one that has none.
OptionPane* NewPane(const OptionPane::Parts& parts) {
  switch (parts.kind.number) {
    case kSourceFileName:
      return new TransformPane(parts, {"TabControl1", "Command1", "File", "OldFile", ""});
    case kExtension:
      return new TransformPane(parts, {"TabControl3", "bnResetCutExt", "Ext", "Ext", "Ext"});
    case kParentFolderName:
      return new TransformPane(parts, {"TabControl4", "bnResetCutParentFolder", "ParentFolder",
                                       "ParentFolder", "ParentFolder"});
    case kFileDate:
      return new DatePane(parts, "Date");
    case kTodaysDate:
      return new DatePane(parts, "TDate");
    case kCounter:
      return new CounterPane(parts);
    case kText:
      break;
  }
  return nullptr;
}

}  // namespace

ConstructorEditor::ConstructorEditor(Constructor& constructor, const Services& services,
                                     QWidget* parent, Later* later)
    : QWidget(parent), constructor_(constructor), services_(services) {
  BuildConstructorCard();
  panes_ = new QStackedWidget(this);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(measure::kBlockGap);
  column->addWidget(fraConstructor);
  column->addWidget(panes_, 1);
  connect(strip, &ConstructorStrip::aboutToChange, this, &ConstructorEditor::CommitFocusedField);
  connect(strip, &ConstructorStrip::commandPicked, this, &ConstructorEditor::commandPicked);
  connect(strip, &ConstructorStrip::elementsChanged, this, &ConstructorEditor::optionChanged);
  connect(strip, &ConstructorStrip::selectedChanged, this,
          &ConstructorEditor::tabConstructor_SelectedChanged);
  tabConstructor_SelectedChanged(strip->Selected());
  for (const ElementKind& kind : kElementKinds) {
    Later::Do(later, this, [this, &kind] { PaneOf(kind.number); });
  }
  Later::Do(later, this, [this] { EmptyPane(); });
}

void ConstructorEditor::MakePanes() {
  for (const ElementKind& kind : kElementKinds) PaneOf(kind.number);
}

QWidget* ConstructorEditor::EmptyPane() {
  if (pbDot == nullptr) {
    pbDot = NewEmptyPane(panes_);
    panes_->addWidget(pbDot);
    PolishAll(pbDot);
  }
  return pbDot;
}

void ConstructorEditor::Execute(int id) {
  strip->Execute(id);
}

void ConstructorEditor::showEvent(QShowEvent* event) {
  PolishAll(this);
  QWidget::showEvent(event);
}

void ConstructorEditor::BuildConstructorCard() {
  fraConstructor =
      new Card(QStringLiteral("fraConstructor"), tr("New file name constructor"), this);
  const auto ask = [this](std::string_view text) {
    return GetTextToInsert(services_.prompts, services_.settings, text, window());
  };
  strip = new ConstructorStrip(constructor_, ask, fraConstructor);
  fraConstructor->Body()->addWidget(strip);
  Command4 = new QPushButton(tr("&Conflicts..."), fraConstructor);
  Command4->setObjectName(QStringLiteral("Command4"));
  Explain(Command4, tr("Choose how a new name is numbered when it is taken"));
  lbExample = new ExampleLabel(fraConstructor);
  fraConstructor->Head()->addWidget(lbExample, 1);
  fraConstructor->Head()->addWidget(Command4);
  connect(Command4, &QPushButton::clicked, this, &ConstructorEditor::conflictsClicked);
}

OptionPane* ConstructorEditor::FindPane(ItemType kind) const {
  for (int i = 0; i < panes_->count(); ++i) {
    auto* pane = qobject_cast<OptionPane*>(panes_->widget(i));
    if (pane != nullptr && pane->Kind() == kind) return pane;
  }
  return nullptr;
}

OptionPane* ConstructorEditor::PaneOf(ItemType kind) {
  if (OptionPane* pane = FindPane(kind)) return pane;
  for (const ElementKind& row : kElementKinds) {
    if (row.number == kind) return Made(row);
  }
  return nullptr;
}

OptionPane* ConstructorEditor::Made(const ElementKind& kind) {
  OptionPane* pane = NewPane({kind, services_, [this] { return Shown(); }, panes_});
  if (pane == nullptr) return nullptr;
  PutBehind(*LastBefore(kind), *pane);
  panes_->addWidget(pane);
  connect(pane, &OptionPane::optionChanged, this, &ConstructorEditor::optionChanged);
  for (NumberField* field : pane->findChildren<NumberField*>()) {
    connect(field, &NumberField::handedOver, this, &ConstructorEditor::numberTaken);
  }
  PolishAll(pane);
  emit paneMade(pane);
  return pane;
}

QWidget* ConstructorEditor::LastBefore(const ElementKind& kind) const {
  QWidget* last = Command4;
  for (const ElementKind* row = kElementKinds; row != &kind; ++row) {
    if (OptionPane* pane = FindPane(row->number)) last = LastOnTab(*pane);
  }
  return last;
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
  QString place = tr("in “%1”").arg(panes_->currentWidget()->accessibleName());
  if (const QTabWidget* pages = TurnToPageOf(field)) {
    place = tr("on the page “%1”").arg(pages->tabText(pages->currentIndex()));
  }
  field->setFocus();
  field->selectAll();
  services_.prompts.Tell(text::FromQt(tr("The number “%1” %2 is too large.\n"
                                         "The largest that can be used is %3.")
                                          .arg(CaptionOf(field), place)
                                          .arg(std::numeric_limits<std::int32_t>::max())),
                         PromptIcon::kExclamation);
  return true;
}

void ConstructorEditor::tabConstructor_SelectedChanged(int Item) {
  ErrTrace::top("Form1.tabConstructor_SelectedChanged(Item)", ErrTrace::args(Item), [&] {
    // What was typed belongs to the element that was shown until now.
    CommitFocusedField();
    shown_ = Item;
    const ConstrItem* item = Shown();
    OptionPane* pane = PaneOf(item == nullptr ? kText : item->ItemType);
    panes_->setCurrentWidget(pane == nullptr ? EmptyPane() : pane);
    if (pane != nullptr) pane->ShowItem();
  });
}
