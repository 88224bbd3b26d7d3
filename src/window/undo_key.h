#pragma once

#include <QObject>
#include <vector>

class QPushButton;
class QWidget;

/// Whose Ctrl+Z is in a text field of a window: while the run can be undone and nothing was typed
/// in the field since, the run's; else the field's own, which takes its typing back. Outside of
/// text fields the key is the button's anyway.
class UndoKey : public QObject {
  Q_OBJECT

 public:
  /// `undo` starts the undo of the run when it is clicked, and is on while there is one. Belongs to
  /// `window`, and takes the text fields that it has by now.
  UndoKey(QWidget& window, const QPushButton& undo);

  /// Takes those of `part` of the window too, which was made later.
  void Watch(QWidget& part);

  /// A run or its undo has ended: what was typed before no longer counts.
  void RunEnded() { typed_.clear(); }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool WasTyped(const QObject* field) const;

  const QPushButton& undo_;
  std::vector<const QObject*> typed_;  ///< the fields in which something was typed
};
