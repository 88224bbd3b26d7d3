#pragma once

#include <QStatusBar>

#include "core/run_state.h"

class QFrame;
class QLabel;
class QProgressBar;
class QPushButton;

/// The line at the foot of the main window: what runs, how far it is, the total, what the last
/// pass did, and the two links that are always in reach.
class StatusBar : public QStatusBar {
  Q_OBJECT

 public:
  explicit StatusBar(QWidget* parent = nullptr);

  /// Shows the panes as they stand; costs next to nothing where nothing has changed.
  void ShowPanes(const StatusPanes& panes);

  /// Whether the links can be followed.
  void EnableElements(bool pEnable);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  void aboutAsked();
  void helpAsked();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void FitStyle();

  QLabel* paneStatus;
  QProgressBar* paneProgress;
  QFrame* rule;
  QLabel* paneTotal;
  QLabel* lbResult;  ///< takes the rest, and is elided when that is too little
  QPushButton* bnAbout;
  QPushButton* bnHelp;
};
