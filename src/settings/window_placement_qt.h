#pragma once

#include <QObject>
#include <QSize>
#include <functional>
#include <string>

#include "platform/settings_store.h"
#include "settings/window_placement.h"

class QWidget;

/// Gives a window its stored placement when it is shown for the first time, and stores it, on disk,
/// each time it is hidden: closed, ended as a dialog, or destroyed while it could be seen. A
/// failure is reported, and the window opens and closes all the same.
///
/// A window whose screen has gone comes back into sight.
///
/// Where the window system doesn't let a program place its windows (Wayland), size and state
/// return, and the stored place isn't touched.
///
/// A window whose size follows from what it shows tells that size: it gets it each time it is
/// shown, over its parent, until the user gives it another, which alone is stored and stays.
///
///     new WindowPlacement(store, *this, "Form8");  // in the window's constructor
class WindowPlacement : public QObject {
 public:
  /// Belongs to `window`, a top-level one, and ends with it; `store` outlives both. `frm` is the
  /// name in the table of placed windows; `own_size` is asked when the window is shown.
  WindowPlacement(SettingsStore& store, QWidget& window, std::string frm,
                  std::function<QSize()> own_size = nullptr);

  bool eventFilter(QObject* watched, QEvent* event) override;

  /// Stores the placement of a window that is seen and about to close, for one that has more to do
  /// behind that; the hiding then doesn't store it again.
  void Form_Unload();

 private:
  void Shown();
  void Form_Load();
  void KeepInSight();
  void GiveOwnSize();

  SettingsStore& store_;
  QWidget& window_;
  const std::string frm_;
  const std::function<QSize()> own_size_;  ///< null: none
  QSize given_;                            ///< the last own size
  bool loaded_ = false;
  bool stored_ = true;  ///< since it was shown
  bool sized_ = false;  ///< by the user
};
