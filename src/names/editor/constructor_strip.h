#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <string_view>

#include "names/constructor.h"
#include "names/element_kinds.h"

class ChipBar;
class QMenu;
class QPushButton;

/// The strip of the constructor's elements and the five buttons that change it. Tab i and item i
/// of `ArrConstr` are always the same element.
class ConstructorStrip : public QWidget {
  Q_OBJECT

 public:
  /// Answers the text of a text element that had `text` until now, empty when the user cancelled.
  using TextSource = std::function<std::string(std::string_view text)>;

  /// `constructor` must outlive the strip.
  ConstructorStrip(Constructor& constructor, TextSource GetTextToInsert, QWidget* parent);

  /// Does what the command `id` of an insert menu is for; nothing for any other number.
  void Execute(int id);

  /// The index of the selected element, -1 when there is none.
  int Selected() const;

  ChipBar* tabConstructor;
  QPushButton* vbInsertLeft;
  QPushButton* bnInsertRight;
  QPushButton* bnMoveLeft;
  QPushButton* bnMoveRight;
  QPushButton* bnDeletePattern;

 signals:
  /// A command of an insert menu was picked.
  void commandPicked(int id);
  /// An element is about to be inserted, moved or deleted.
  void aboutToChange();
  /// The user asked for a change of the elements, so the new names no longer fit.
  void elementsChanged();
  /// Another element is selected, or the selected one stands elsewhere; -1: there is none.
  void selectedChanged(int index);

 private:
  void BuildButtons();
  void BuildChipMenu();
  void ConnectChips();
  QMenu* NewMenu(Side side);
  void Insert(int index, ItemType kind, std::string_view text);
  void Move(int step);
  ConstrItem* SelectedText();
  void EditText();
  void bnDeletePattern_Click();

  Constructor& constructor_;
  TextSource GetTextToInsert_;
  QMenu* mnElement_ = nullptr;  ///< of all commands for the selected chip
};
