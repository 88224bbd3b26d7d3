#include "names/editor/accessible_chips.h"

#include <QAccessibleWidget>
#include <vector>

#include "names/editor/chip_bar.h"

namespace {

/// One chip, known by its place: what stands there may change.
class AccessibleChip : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  AccessibleChip(ChipBar* bar, int index) : bar_(bar), index_(index) {}

  bool isValid() const override { return index_ < bar_->count(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return parent()->window(); }
  QAccessible::Role role() const override { return QAccessible::PageTab; }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(bar_);
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  void setText(QAccessible::Text, const QString&) override {}

  QString text(QAccessible::Text kind) const override {
    if (!isValid()) return {};
    if (kind == QAccessible::Description) return bar_->tabToolTip(index_);
    return kind == QAccessible::Name ? bar_->PlainText(index_) : QString();
  }

  QRect rect() const override {
    const QRect place = bar_->tabRect(index_);
    return {bar_->mapToGlobal(place.topLeft()), place.size()};
  }

  QAccessible::State state() const override {
    QAccessible::State state = parent()->state();
    const bool current = index_ == bar_->currentIndex();
    state.invalid = !isValid();
    state.selectable = true;
    state.selected = current;
    state.focused = current && bar_->hasFocus();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
  }
  QStringList actionNames() const override { return {pressAction(), showMenuAction()}; }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }
  void doAction(const QString& action) override {
    if (!isValid() || !bar_->isEnabled()) return;
    if (action != pressAction() && action != showMenuAction()) return;
    bar_->setCurrentIndex(index_);
    if (action == showMenuAction()) bar_->AskForMenu();
  }

 private:
  ChipBar* bar_;
  int index_;
};

class AccessibleChipBar : public QAccessibleWidget {
 public:
  explicit AccessibleChipBar(ChipBar* bar) : QAccessibleWidget(bar, QAccessible::PageTabList) {}
  ~AccessibleChipBar() override {
    for (const QAccessible::Id chip : chips_) QAccessible::deleteAccessibleInterface(chip);
  }

  int childCount() const override { return Bar()->count(); }

  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    for (int next = static_cast<int>(chips_.size()); next <= index; ++next) {
      chips_.push_back(QAccessible::registerAccessibleInterface(new AccessibleChip(Bar(), next)));
    }
    return QAccessible::accessibleInterface(chips_[static_cast<std::size_t>(index)]);
  }

  int indexOfChild(const QAccessibleInterface* chip) const override {
    for (int i = 0; i < childCount(); ++i) {
      if (child(i) == chip) return i;
    }
    return -1;
  }

  QAccessibleInterface* childAt(int x, int y) const override {
    return child(Bar()->tabAt(Bar()->mapFromGlobal(QPoint(x, y))));
  }
  QAccessibleInterface* focusChild() const override {
    return Bar()->hasFocus() ? child(Bar()->currentIndex()) : nullptr;
  }

  /// What the well shows of it.
  QRect rect() const override {
    const QRect seen = Bar()->rect() & QRect(-Bar()->pos(), Bar()->parentWidget()->size());
    return {Bar()->mapToGlobal(seen.topLeft()), seen.size()};
  }

 private:
  ChipBar* Bar() const { return static_cast<ChipBar*>(widget()); }

  mutable std::vector<QAccessible::Id> chips_;
};

QAccessibleInterface* Make(const QString&, QObject* object) {
  auto* bar = qobject_cast<ChipBar*>(object);
  return bar != nullptr ? new AccessibleChipBar(bar) : nullptr;
}

}  // namespace

void MakeChipsAccessible() {
  static const bool installed = (QAccessible::installFactory(Make), true);
  Q_UNUSED(installed);
}
