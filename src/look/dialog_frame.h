#pragma once

#include <QDialog>
#include <functional>
#include <string>
#include <string_view>

class QHBoxLayout;
class QPushButton;
class QVBoxLayout;
class SettingsStore;

/// What the dialogs share: a body, and at the foot their buttons, OK the default one, Cancel last
/// and on Esc. Handlers stand in a report under the dialog's name: "Form8.bnOK_Click".
class DialogFrame : public QDialog {
  Q_OBJECT

 public:
  QPushButton* bnOK;
  QPushButton* bnCancel = nullptr;  ///< null where OK is the only way

 protected:
  enum class Buttons { kOk, kOkAndCancel };

  /// `name` is the dialog's own and that of its stored placement.
  DialogFrame(std::string_view name, const QString& title, Buttons buttons, QWidget* parent);

  /// Gives the dialog its stored place and stores it; called by dialogs that keep one. `settings`
  /// outlives the dialog. `own_size` as `WindowPlacement` takes it.
  void KeepPlacement(SettingsStore& settings, std::function<QSize()> own_size = nullptr);

  /// What OK does; a failure in it is reported.
  virtual void bnOK_Click() { accept(); }

  /// The trace string of a handler of this dialog.
  std::string Handler(std::string_view procedure) const;

  /// Takes the font of all windows before it is measured and shown.
  void setVisible(bool visible) override;
  void showEvent(QShowEvent* event) override;

  QVBoxLayout* Body() { return body_; }
  /// The line of the buttons; what is inserted at 0 stands left of them.
  QHBoxLayout* Foot() { return foot_; }
  /// A further button, directly left of OK.
  QPushButton* AddButton(const char* name, const QString& caption);

 private:
  QPushButton* NewButton(const char* name, const QString& caption);

  QVBoxLayout* body_;
  QHBoxLayout* foot_;
};
