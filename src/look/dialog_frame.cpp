#include "look/dialog_frame.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "look/fitted_button.h"
#include "look/form_font.h"
#include "look/handlers.h"
#include "look/look.h"
#include "platform/qt/text_qt.h"
#include "settings/window_placement_qt.h"

namespace {

constexpr FittedButton::Measures kButton{
    .air = 24, .least = measure::kDialogButton, .weight = QFont::DemiBold};

/// Wrapped texts need the more height the narrower they are; a layout's own answer forgets them.
class WholeDialog : public QVBoxLayout {
 public:
  using QVBoxLayout::QVBoxLayout;
  QSize minimumSize() const override {
    const QSize least = QVBoxLayout::minimumSize();
    if (!hasHeightForWidth()) return least;
    return least.expandedTo({0, minimumHeightForWidth(least.width())});
  }
};

}  // namespace

DialogFrame::DialogFrame(std::string_view name, const QString& title, Buttons buttons,
                         QWidget* parent)
    : QDialog(parent), body_(new QVBoxLayout), foot_(new QHBoxLayout) {
  setObjectName(text::ToQt(name));
  setWindowTitle(title);
  auto* column = new WholeDialog(this);
  column->setContentsMargins(measure::kDialogMargin, measure::kDialogMargin, measure::kDialogMargin,
                             measure::kDialogMargin);
  column->setSpacing(measure::kDialogMargin);
  column->addLayout(body_, 1);
  column->addLayout(foot_);
  foot_->setSpacing(measure::kBlockGap);
  foot_->addStretch();
  bnOK = NewButton("bnOK", tr("&OK"));
  bnOK->setDefault(true);
  OnSignal(bnOK, &QPushButton::clicked, this, Handler("bnOK_Click"), [this] { bnOK_Click(); });
  if (buttons == Buttons::kOk) return;
  bnCancel = NewButton("bnCancel", tr("&Cancel"));
  OnSignal(bnCancel, &QPushButton::clicked, this, Handler("bnCancel_Click"), [this] { reject(); });
}

void DialogFrame::KeepPlacement(SettingsStore& settings, std::function<QSize()> own_size) {
  new WindowPlacement(settings, *this, text::FromQt(objectName()), std::move(own_size));
}

std::string DialogFrame::Handler(std::string_view procedure) const {
  return text::FromQt(objectName()).append(".").append(procedure);
}

void DialogFrame::setVisible(bool visible) {
  if (visible) ApplyFormFont(*this);
  QDialog::setVisible(visible);
}

void DialogFrame::showEvent(QShowEvent* event) {
  // Made before the body, the buttons would come first when going from control to control, and to
  // who reads the window aloud.
  QWidget* last = previousInFocusChain();
  for (int at = 0; at < foot_->count(); ++at) {
    auto* button = qobject_cast<QPushButton*>(foot_->itemAt(at)->widget());
    if (button == nullptr) continue;
    if (last != button) setTabOrder(last, button);
    button->raise();
    last = button;
  }
  QDialog::showEvent(event);
}

QPushButton* DialogFrame::AddButton(const char* name, const QString& caption) {
  QPushButton* button = NewButton(name, caption);
  foot_->removeWidget(button);
  foot_->insertWidget(foot_->indexOf(bnOK), button);
  return button;
}

QPushButton* DialogFrame::NewButton(const char* name, const QString& caption) {
  auto* button = new FittedButton(caption, kButton, this);
  button->setObjectName(QLatin1String(name));
  foot_->addWidget(button);
  return button;
}
