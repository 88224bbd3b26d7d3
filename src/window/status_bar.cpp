#include "window/status_bar.h"

#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>

#include "look/accessible_role.h"
#include "look/card.h"
#include "look/elided_label.h"
#include "look/look.h"
#include "look/shortcuts.h"
#include "platform/qt/text_qt.h"

namespace {

constexpr int kBarHeight = 27;
constexpr int kProgressWidth = 220;
constexpr int kProgressHeight = 10;
constexpr int kResultGap = 10;

/// Keeps its height where the bar has a line less for it.
class BarLink : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  bool event(QEvent* event) override {
    const bool done = QPushButton::event(event);
    const auto type = event->type();
    if (type == QEvent::Polish || type == QEvent::StyleChange || type == QEvent::FontChange) {
      setMinimumHeight(sizeHint().height());
    }
    return done;
  }
};

QPushButton* NewLink(const char* name, const QString& caption, const QString& words, Keys keys) {
  auto* button = new BarLink(caption);
  button->setObjectName(QLatin1String(name));
  button->setProperty("link", true);
  button->setFlat(true);
  Explain(button, WithKeys(words, keys));
  QObject::connect(NewShortcut(keys, button), &QShortcut::activated, button, &QPushButton::click);
  return button;
}

/// Sets only what differs: a label repaints at every setText.
void Show(QLabel* label, const std::string& t) {
  const QString shown = text::Shown(t);
  if (label->text() != shown) label->setText(shown);
}

}  // namespace

StatusBar::StatusBar(QWidget* parent)
    : QStatusBar(parent),
      paneStatus(new QLabel),
      paneProgress(new QProgressBar),
      rule(new QFrame),
      paneTotal(new QLabel),
      lbResult(new ElidedLabel("lbResult", Qt::ElideRight, this)),
      bnAbout(NewLink("bnAbout", tr("About"), tr("Which version this is, and where to get help"),
                      Keys::kAbout)),
      bnHelp(NewLink("bnHelp", tr("Help"), tr("Open the manual"), Keys::kHelp)) {
  setObjectName(QStringLiteral("statusBar"));
  paneStatus->setObjectName(QStringLiteral("paneStatus"));
  paneProgress->setObjectName(QStringLiteral("paneProgress"));
  paneProgress->setAccessibleName(tr("Progress"));
  paneProgress->setTextVisible(false);
  paneProgress->setFixedSize(kProgressWidth, kProgressHeight);
  paneTotal->setObjectName(QStringLiteral("paneTotal"));
  for (QLabel* label : {paneStatus, paneTotal}) {
    label->setTextFormat(Qt::PlainText);
    label->setProperty("muted", true);
  }
  SetAccessibleRole(*rule, QAccessible::Separator);
  rule->setFrameShape(QFrame::VLine);
  rule->setProperty("rule", true);

  lbResult->setContentsMargins(kResultGap, 0, 0, 0);

  setSizeGripEnabled(false);
  addWidget(paneStatus);
  addWidget(paneProgress);
  addWidget(rule);
  addWidget(paneTotal);
  addWidget(lbResult, 1);
  addPermanentWidget(bnAbout);
  addPermanentWidget(bnHelp);
  connect(bnAbout, &QPushButton::clicked, this, &StatusBar::aboutAsked);
  connect(bnHelp, &QPushButton::clicked, this, &StatusBar::helpAsked);
  FitStyle();
  ShowPanes(StatusPanes());
}

void StatusBar::FitStyle() {
  // The skin's links stand closer to the edge than the bar's own room below them.
  setContentsMargins(8, 1, 4, Look::Current().SkinOn() ? -1 : 0);
}

void StatusBar::changeEvent(QEvent* event) {
  QStatusBar::changeEvent(event);
  if (event->type() == QEvent::StyleChange) FitStyle();
}

void StatusBar::EnableElements(bool pEnable) {
  bnAbout->setEnabled(pEnable);
  bnHelp->setEnabled(pEnable);
}

QSize StatusBar::sizeHint() const {
  return QStatusBar::sizeHint().expandedTo({0, kBarHeight});
}

void StatusBar::ShowPanes(const StatusPanes& panes) {
  Show(paneStatus, panes.paneStatus);
  Show(paneTotal, panes.paneTotal);
  Show(lbResult, panes.paneResult);
  paneStatus->setVisible(!panes.paneStatus.empty());
  paneProgress->setVisible(panes.progressVisible);
  rule->setVisible(!panes.totalStretched);
  paneProgress->setMaximum(static_cast<int>(panes.progressMax));
  paneProgress->setValue(static_cast<int>(panes.progressValue));
}

void StatusBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Look& look = Look::Current();
  painter.fillRect(rect(), look.Colour(Role::kHead));
  painter.fillRect(QRect(0, 0, width(), 1), look.Colour(Role::kLine));
}
