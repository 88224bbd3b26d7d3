#include "names/editor/constructor_strip.h"

#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <cstdlib>
#include <utility>

#include "look/card.h"
#include "look/fitted_button.h"
#include "look/handlers.h"
#include "look/look.h"
#include "look/menus.h"
#include "look/shortcuts.h"
#include "names/editor/chip_bar.h"
#include "names/editor/chip_well.h"

namespace {

/// With room for the arrow of its menu.
constexpr FittedButton::Measures kMenuButton{.air = 36};

QPushButton* Named(const char* name, const QString& tells, QPushButton* button) {
  button->setObjectName(QLatin1String(name));
  Explain(button, tells);
  return button;
}

/// The pointer leaves the button for the menu, which keeps that to itself: without being told, the
/// button would look hovered from then on.
void GiveMenu(QPushButton* button, QMenu* menu) {
  button->setMenu(menu);
  menu->setTitle(button->text());  // it hangs in the menu of the chips too
  QObject::connect(
      menu, &QMenu::aboutToHide, button,
      [button] {
        if (button->rect().contains(button->mapFromGlobal(QCursor::pos()))) return;
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(button, &leave);
        button->update();
      },
      Qt::QueuedConnection);
}

}  // namespace

ConstructorStrip::ConstructorStrip(Constructor& constructor, TextSource GetTextToInsert,
                                   QWidget* parent)
    : QWidget(parent),
      tabConstructor(new ChipBar(this)),
      constructor_(constructor),
      GetTextToInsert_(std::move(GetTextToInsert)) {
  // The parts of a name follow each other so on any desktop; left and right of the buttons too.
  setLayoutDirection(Qt::LeftToRight);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(measure::kControlGap);
  auto* well = new ChipWell(tabConstructor, this);
  column->addWidget(well);
  BuildButtons();
  BuildChipMenu();

  int index = 0;
  for (const ConstrItem& item : constructor_.ArrConstr) {
    std::string caption(ElementCaption(item));
    // The start item alone has a blank behind its caption.
    if (item.ItemType == kSourceFileName) caption += ' ';
    tabConstructor->InsertChip(index++, caption, item.ItemType);
  }
  tabConstructor->setCurrentIndex(0);
  connect(this, &ConstructorStrip::selectedChanged, well, &ChipWell::ShowSelected);
  ConnectChips();
}

void ConstructorStrip::ConnectChips() {
  connect(tabConstructor, &QTabBar::currentChanged, this, &ConstructorStrip::selectedChanged);
  connect(tabConstructor, &ChipBar::deleteRequested, bnDeletePattern, &QPushButton::click);
  connect(tabConstructor, &ChipBar::moveRequested, this, [this](int step) {
    QPushButton* button = step < 0 ? bnMoveLeft : bnMoveRight;
    for (int places = std::abs(step); places > 0; --places) button->click();
  });
  connect(tabConstructor, &ChipBar::menuRequested, this,
          [this](bool left) { (left ? vbInsertLeft : bnInsertRight)->showMenu(); });
  OnSignal(tabConstructor, &ChipBar::contextMenuRequested, this, "Form1.tabConstructor_ContextMenu",
           [this](const QPoint& place) { mnElement_->popup(place); });
  OnSignal(tabConstructor, &ChipBar::editRequested, this, "Form1.tabConstructor_DblClick",
           [this] { EditText(); });
}

void ConstructorStrip::BuildButtons() {
  vbInsertLeft = Named("vbInsertLeft",
                       WithKeys(tr("Put an element left of the selected one"), Keys::kInsertLeft),
                       new FittedButton(tr("In&sert left"), kMenuButton, this));
  bnInsertRight = Named(
      "bnInsertRight", WithKeys(tr("Put an element right of the selected one"), Keys::kInsertRight),
      new FittedButton(tr("Insert rig&ht"), kMenuButton, this));
  bnMoveLeft =
      Named("bnMoveLeft",
            WithKeys(tr("Move the selected element one place to the left"), Keys::kMoveLeft),
            new QPushButton(tr("&Move left"), this));
  bnMoveRight =
      Named("bnMoveRight",
            WithKeys(tr("Move the selected element one place to the right"), Keys::kMoveRight),
            new QPushButton(tr("Move ri&ght"), this));
  bnDeletePattern =
      Named("bnDeletePattern",
            WithKeys(tr("Take the selected element out of the new name"), Keys::kDelete),
            new QPushButton(tr("De&lete"), this));
  GiveMenu(vbInsertLeft, NewMenu(Side::kLeft));
  GiveMenu(bnInsertRight, NewMenu(Side::kRight));

  auto* row = new QHBoxLayout;
  row->setSpacing(measure::kControlGap);
  row->addWidget(vbInsertLeft);
  row->addWidget(bnInsertRight);
  row->addStretch();
  row->addWidget(bnMoveLeft);
  row->addWidget(bnMoveRight);
  row->addStretch();
  row->addWidget(bnDeletePattern);
  layout()->addItem(row);

  OnSignal(bnMoveLeft, &QPushButton::clicked, "Form1.bnMoveLeft_Click", [this] { Move(-1); });
  OnSignal(bnMoveRight, &QPushButton::clicked, "Form1.bnMoveRight_Click", [this] { Move(1); });
  OnSignal(bnDeletePattern, &QPushButton::clicked, "Form1.bnDeletePattern_Click",
           [this] { bnDeletePattern_Click(); });
}

QMenu* ConstructorStrip::NewMenu(Side side) {
  auto* menu = new QMenu(this);
  menu->setObjectName(side == Side::kLeft ? QStringLiteral("mnInsertLeft")
                                          : QStringLiteral("mnInsertRight"));
  bool texts = false;
  for (const ElementKind& kind : kElementKinds) {
    const int id = side == Side::kLeft ? kind.insert_left : kind.insert_right;
    AddButton(*menu, id, tr(kind.caption), kind.number == kText && !std::exchange(texts, true));
  }
  connect(menu, &QMenu::triggered, this,
          [this](const QAction* action) { emit commandPicked(action->data().toInt()); });
  return menu;
}

int ConstructorStrip::Selected() const {
  return tabConstructor->currentIndex();
}

void ConstructorStrip::Execute(int id) {
  const std::optional<InsertCommand> command = FindInsertCommand(id);
  if (!command) return;
  const ElementKind& kind = command->kind;
  const std::string text = kind.text != nullptr ? kind.text : GetTextToInsert_({});
  if (kind.number == kText && text.empty()) return;
  emit aboutToChange();
  emit elementsChanged();
  // An empty strip takes the first element at 0 for either button.
  const bool is_first = tabConstructor->count() == 0;
  const int index = is_first ? 0 : Selected() + (command->side == Side::kRight ? 1 : 0);
  Insert(index, kind.number, text);
  emit selectedChanged(index);
}

void ConstructorStrip::Insert(int index, ItemType kind, std::string_view text) {
  // Model first: a tab that shows must have its item.
  const auto at = static_cast<std::size_t>(index);
  constructor_.InsertArrConstrItem(at, kind, text);
  const QSignalBlocker quiet(tabConstructor);
  tabConstructor->InsertChip(index, ElementCaption(constructor_.ArrConstr[at]), kind);
  tabConstructor->setCurrentIndex(index);
}

void ConstructorStrip::Move(int step) {
  if (tabConstructor->count() == 0) return;
  emit aboutToChange();
  // At the edge nothing moves, and yet the user is asked for a new preview.
  emit elementsChanged();
  const int from = Selected();
  const int to = from + step;
  if (to >= 0 && to < tabConstructor->count()) {
    const auto index = static_cast<std::size_t>(from);
    if (step < 0) {
      constructor_.MoveArrConstrItemLeft(index);
    } else {
      constructor_.MoveArrConstrItemRight(index);
    }
    const QSignalBlocker quiet(tabConstructor);
    tabConstructor->moveTab(from, to);
  }
  emit selectedChanged(Selected());
}

/// Made once: a screen reader knows an entry that opens a menu only in the first menu that had it.
void ConstructorStrip::BuildChipMenu() {
  mnElement_ = new QMenu(this);
  mnElement_->setObjectName(QStringLiteral("mnElement"));
  mnElement_->setLayoutDirection(QGuiApplication::layoutDirection());
  mnElement_->addMenu(vbInsertLeft->menu());
  mnElement_->addMenu(bnInsertRight->menu());
  const auto add = [this](QPushButton* button, Keys keys) {
    TellKeys(mnElement_->addAction(button->text(), button, &QPushButton::click), keys);
  };
  mnElement_->addSeparator();
  add(bnMoveLeft, Keys::kMoveLeft);
  add(bnMoveRight, Keys::kMoveRight);
  mnElement_->addSeparator();
  add(bnDeletePattern, Keys::kDelete);
}

/// The selected element if it is a text, else null.
ConstrItem* ConstructorStrip::SelectedText() {
  if (Selected() < 0) return nullptr;
  ConstrItem& item = constructor_.ArrConstr[static_cast<std::size_t>(Selected())];
  return item.ItemType == kText ? &item : nullptr;
}

void ConstructorStrip::EditText() {
  const ConstrItem* before = SelectedText();
  if (before == nullptr) return;
  const std::string text = GetTextToInsert_(before->ItemText);
  ConstrItem* item = SelectedText();  // a tool for the disabled can reach behind the dialog
  if (text.empty() || item == nullptr || item->ItemText == text) return;
  emit aboutToChange();
  emit elementsChanged();
  item->ItemText = text;
  tabConstructor->SetChipText(Selected(), text);
  emit selectedChanged(Selected());
}

void ConstructorStrip::bnDeletePattern_Click() {
  if (tabConstructor->count() == 0) return;
  emit aboutToChange();
  emit elementsChanged();
  const int index = Selected();
  constructor_.DeleteArrConstrItem(static_cast<std::size_t>(index));
  {
    const QSignalBlocker quiet(tabConstructor);
    tabConstructor->removeTab(index);
  }
  emit selectedChanged(Selected());
}
