#pragma once

#include <QWidget>

#include "names/constructor.h"
#include "platform/services.h"

class Card;
class ConstructorStrip;
struct ElementKind;
class ExampleLabel;
class Later;
class NumberField;
class OptionPane;
class QPushButton;
class QStackedWidget;

/// The editor of the constructor: the strip of elements, and below it the options of the selected
/// one. The element is the store; the controls are a view of it, filled anew at each selection.
class ConstructorEditor : public QWidget {
  Q_OBJECT

 public:
  /// `constructor` and the services must outlive the editor. The panes that don't show yet may be
  /// made `later`.
  ConstructorEditor(Constructor& constructor, const Services& services, QWidget* parent = nullptr,
                    Later* later = nullptr);

  /// Makes the panes that are still missing.
  void MakePanes();

  /// Does what the command `id` of an insert menu is for; nothing for any other number.
  void Execute(int id);

  /// Lets the number field that is being edited hand over its number. Every command does this
  /// first.
  void CommitFocusedField();

  /// Whether a field shows a number that can't be taken; a command that goes by the numbers would
  /// not do what the user sees. Says so, with the focus in that field.
  bool TellRefusedNumber();

  Card* fraConstructor;
  ConstructorStrip* strip;
  ExampleLabel* lbExample;  ///< what becomes of one file of the list
  QPushButton* Command4;

 signals:
  /// A control's value differs from what it held, or the elements changed: the names in the list
  /// no longer fit.
  void optionChanged();
  /// A number was handed over; until then an edited one doesn't count.
  void numberTaken();
  /// A command was picked in a menu. It is for the owner to send it on, with all other commands.
  void commandPicked(int id);
  /// Has all its controls by now.
  void paneMade(QWidget* pane);
  /// "Conflicts..." was pressed.
  void conflictsClicked();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void BuildConstructorCard();
  NumberField* RefusedField() const;
  OptionPane* FindPane(ItemType kind) const;
  /// Made at the first call; null for a kind without options.
  OptionPane* PaneOf(ItemType kind);
  OptionPane* Made(const ElementKind& kind);
  /// That of the kinds without options; made at the first call.
  QWidget* EmptyPane();
  /// The last control before those of the pane of `kind`, as Tab goes.
  QWidget* LastBefore(const ElementKind& kind) const;
  void tabConstructor_SelectedChanged(int Item);
  ConstrItem* Shown();

  Constructor& constructor_;
  const Services& services_;
  QStackedWidget* panes_;
  QWidget* pbDot = nullptr;
  int shown_ = -1;  ///< the element that the controls show
};
