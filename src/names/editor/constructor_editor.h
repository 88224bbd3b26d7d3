#pragma once

#include <QWidget>
#include <array>

#include "names/constructor.h"
#include "names/editor/date_pane.h"

class Card;
class ConstructorStrip;
class CounterPane;
class NumberField;
class QPushButton;
class QStackedWidget;
class TransformPane;

/// The editor of the constructor: the strip of elements, and below it the options of the selected
/// one. The element is the store; the controls are a view of it, filled anew at each selection.
class ConstructorEditor : public QWidget {
  Q_OBJECT

 public:
  /// `constructor` and the services must outlive the editor.
  ConstructorEditor(Constructor& constructor, const PaneServices& services,
                    QWidget* parent = nullptr);

  /// Lets the number field that is being edited hand over its number. Every command does this
  /// first.
  void CommitFocusedField();

  /// Whether a field shows a number that can't be taken; a command that goes by the numbers would
  /// not do what the user sees. Says so, with the focus in that field.
  bool TellRefusedNumber();

  Card* fraConstructor;
  ConstructorStrip* strip;
  QPushButton* Command4;
  TransformPane* pbFileName;
  TransformPane* pbExt;
  TransformPane* pbParentFolderName;
  DatePane* pbFileDate;
  DatePane* pbTodayDate;
  CounterPane* pbCounter;
  QWidget* pbDot;

 signals:
  /// A control's value differs from what it held, or the elements changed: the names in the list
  /// no longer fit.
  void optionChanged();
  /// "Conflicts..." was pressed.
  void conflictsClicked();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void BuildConstructorCard(const PaneServices& services);
  void BuildPanes(const PaneServices& services);
  NumberField* RefusedField() const;
  void ShowOptionsPane(ItemType kind);
  void tabConstructor_SelectedChanged(int index);
  void ShowItem(ItemType kind);
  ConstrItem* Shown();

  Constructor& constructor_;
  Prompts& prompts_;
  QStackedWidget* panes_;
  int shown_ = -1;  ///< the element that the controls show
};
