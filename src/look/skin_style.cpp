#include "look/skin_style.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QHeaderView>
#include <QIcon>
#include <QLabel>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabBar>

#include "look/look.h"
#include "look/skin_draw.h"
#include "look/skin_parts.h"
#include "look/skin_sizes.h"

namespace {

/// The colour of a label's text; none: that of all texts.
std::optional<Role> RoleOf(const QLabel& label) {
  if (skin::Asks(&label, "title")) return Role::kGroupText;
  const bool in_bar = qobject_cast<const QStatusBar*>(label.parent()) != nullptr;
  if (in_bar || skin::Asks(&label, "muted")) return Role::kMuted;
  return {};
}

bool IsHeavy(const QLabel& label) {
  return skin::Asks(&label, "title") || skin::Asks(&label, "strong");
}

void Polish(QLabel& label) {
  if (const auto role = RoleOf(label)) {
    QPalette palette;
    // The second is that of a label within a list.
    for (const auto part : {QPalette::WindowText, QPalette::Text}) {
      palette.setColor(part, Look::Current().Colour(*role));
      palette.setColor(QPalette::Disabled, part, Look::Current().Colour(Role::kDisabled));
    }
    label.setPalette(palette);
  }
  if (!IsHeavy(label)) return;
  QFont font;  // all else is still that of what it lies in
  font.setWeight(QFont::DemiBold);
  label.setFont(font);
}

void Polish(QAbstractItemView& view) {
  QPalette palette;
  palette.setColor(QPalette::Highlight, Look::Current().Colour(Role::kSel));
  palette.setColor(QPalette::HighlightedText, Look::Current().Colour(Role::kText));
  view.setPalette(palette);
  // The frame and its rounded corners are painted over the whole view.
  view.viewport()->setAutoFillBackground(false);
}

bool IsRule(const QWidget& widget) {
  return skin::Asks(&widget, "rule");
}

/// As thin as it is drawn.
void SetThin(QWidget& rule, bool thin) {
  const int most = thin ? skin::kEdge : QWIDGETSIZE_MAX;
  const auto& frame = static_cast<const QFrame&>(rule);
  if (frame.frameShape() == QFrame::HLine) rule.setMaximumHeight(most);
  if (frame.frameShape() == QFrame::VLine) rule.setMaximumWidth(most);
}

}  // namespace

SkinStyle::SkinStyle(const QString& below) : QProxyStyle(below) {}

void SkinStyle::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  if (auto* label = qobject_cast<QLabel*>(widget)) {
    Polish(*label);
  } else if (auto* header = qobject_cast<QHeaderView*>(widget)) {
    header->viewport()->setAutoFillBackground(false);
    header->viewport()->setAttribute(Qt::WA_Hover);
  } else if (auto* view = qobject_cast<QAbstractItemView*>(widget)) {
    Polish(*view);
  } else if (qobject_cast<QTabBar*>(widget) != nullptr ||
             qobject_cast<QAbstractButton*>(widget) != nullptr ||
             qobject_cast<QComboBox*>(widget) != nullptr ||
             qobject_cast<QScrollBar*>(widget) != nullptr) {
    // The style below may want neither; a bar shows what lies behind its handle.
    widget->setAttribute(Qt::WA_Hover);
    widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
  } else if (IsRule(*widget)) {
    SetThin(*widget, true);
  }
}

void SkinStyle::unpolish(QWidget* widget) {
  if (auto* label = qobject_cast<QLabel*>(widget)) {
    if (RoleOf(*label)) label->setPalette({});
    if (IsHeavy(*label)) label->setFont({});
  } else if (auto* view = qobject_cast<QAbstractItemView*>(widget)) {
    if (qobject_cast<QHeaderView*>(view) == nullptr) view->setPalette({});
    view->viewport()->setAutoFillBackground(true);
  } else if (IsRule(*widget)) {
    SetThin(*widget, false);
  }
  QProxyStyle::unpolish(widget);
}

int SkinStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
  const auto own = skin::MetricOf(metric, widget);
  return own ? *own : QProxyStyle::pixelMetric(metric, option, widget);
}

int SkinStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* answer) const {
  switch (hint) {
    case SH_ComboBox_Popup:
    case SH_ComboBox_PopupFrameStyle:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_EtchDisabledText:
      return 0;
    default:
      return QProxyStyle::styleHint(hint, option, widget, answer);
  }
}

QIcon SkinStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                              const QWidget* widget) const {
  if (icon != SP_MessageBoxWarning && icon != SP_MessageBoxCritical) {
    return QProxyStyle::standardIcon(icon, option, widget);
  }
  constexpr int kSize = 40;
  const Role role = icon == SP_MessageBoxWarning ? Role::kWarn : Role::kFailed;
  QIcon sign;
  for (const qreal scale : {1.0, 2.0, 3.0}) {
    sign.addPixmap(Look::Current().Picture(Drawing::kWarning, role, kSize, scale));
  }
  return sign;
}

QSize SkinStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                  const QSize& contents, const QWidget* widget) const {
  if (type == CT_ItemViewItem && skin::IsOffers(widget)) {
    constexpr int kPadding = 6;
    const QSize text = QProxyStyle::sizeFromContents(type, option, contents, widget);
    return {text.width() + 2 * kPadding, std::max(text.height(), skin::Tall(24))};
  }
  const auto own = option ? skin::SizeOf(type, *option, contents, widget) : std::nullopt;
  return own ? *own : QProxyStyle::sizeFromContents(type, option, contents, widget);
}

QRect SkinStyle::subElementRect(SubElement part, const QStyleOption* option,
                                const QWidget* widget) const {
  if (part == SE_ItemViewItemText && skin::IsOffers(widget)) {
    constexpr int kPadding = 6;
    return option->rect.adjusted(kPadding, 0, -kPadding, 0);
  }
  const auto own = skin::PartOf(part, *option, widget);
  return own ? *own : QProxyStyle::subElementRect(part, option, widget);
}

QRect SkinStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                SubControl part, const QWidget* widget) const {
  const auto own = skin::PartOf(control, *option, part);
  return own ? *own : QProxyStyle::subControlRect(control, option, part, widget);
}

void SkinStyle::drawPrimitive(PrimitiveElement part, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  if (skin::Draw(part, *option, *painter, widget)) return;
  QProxyStyle::drawPrimitive(part, option, painter, widget);
}

void SkinStyle::drawControl(ControlElement part, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
  if (skin::Draw(part, *option, *painter, widget, *this)) return;
  QProxyStyle::drawControl(part, option, painter, widget);
}

void SkinStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
  if (skin::Draw(control, *option, *painter, widget, *this)) return;
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}
