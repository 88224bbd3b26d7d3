#pragma once

#include <QWidget>

#include "names/constructor.h"
#include "platform/services.h"

class Card;
class ConstructorStrip;
class ExampleLabel;
class NumberField;
class OptionPane;
class QPushButton;
class QStackedWidget;

/// The editor of the constructor: the strip of elements, and below it the options of the selected
/// one. The element is the store; the controls are a view of it, filled anew at each selection.
class ConstructorEditor : public QWidget {
  Q_OBJECT

 public:
  /// `constructor` and the services must outlive the editor.
  ConstructorEditor(Constructor& constructor, const Services& services, QWidget* parent = nullptr);

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
  /// "Conflicts..." was pressed.
  void conflictsClicked();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void BuildConstructorCard();
  void BuildPanes();
  NumberField* RefusedField() const;
  OptionPane* PaneOf(ItemType kind) const;
  void tabConstructor_SelectedChanged(int Item);
  ConstrItem* Shown();

  Constructor& constructor_;
  const Services& services_;
  QStackedWidget* panes_;
  QWidget* pbDot;
  int shown_ = -1;  ///< the element that the controls show
};
