#include "look/skin_sizes.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QPushButton>
#include <QStatusBar>
#include <QToolTip>
#include <algorithm>

#include "look/skin_parts.h"

namespace skin {

namespace {

constexpr int kFieldPadding = 6;
constexpr int kBoxText = 8;  ///< where the text of a combo box begins
constexpr int kArrowAir = 4;
constexpr int kIndicatorGap = 5;
constexpr QMargins kCheckMargins(4, 2, 4, 2);
constexpr int kMenuArrow = 12;
constexpr int kHeaderPadding = 6;
constexpr int kTabGap = 3, kTabPadding = 11 + kEdge;
constexpr int kOptionTabGap = 4, kOptionTabPadding = 10, kUnderline = 2;
constexpr int kThickness = 12;  ///< of a scroll bar
constexpr int kLeastSlider = 32;

QRect Mirrored(const QStyleOption& option, const QRect& part) {
  return QStyle::visualRect(option.direction, option.rect, part);
}

QSize SizeOfButton(const QStyleOption& option, QSize contents, const QWidget* widget) {
  const ButtonMeasures measures = MeasuresOf(FormOf(widget));
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  if (button != nullptr && (button->features & QStyleOptionButton::HasMenu)) {
    contents.rwidth() -= kMenuArrow;
  }
  if (button != nullptr && IsPrimary(option, widget)) {
    QFont heavy = widget->font();
    const auto wide = [&] {
      return QFontMetrics(heavy).size(Qt::TextShowMnemonic, button->text).width();
    };
    contents.rwidth() -= wide();
    heavy.setWeight(QFont::DemiBold);
    contents.rwidth() += wide();
  }
  const bool in_row = widget != nullptr && qobject_cast<QDialogButtonBox*>(widget->parent());
  constexpr int kLeastInRow = 66;
  if (in_row) contents.setWidth(std::max(contents.width(), kLeastInRow));
  return {contents.width() + 2 * (measures.padding + kEdge),
          std::max(contents.height(), Tall(measures.height)) + 2 * kEdge};
}

QSize SizeOfToolButton(const QSize& contents, const QWidget* widget) {
  constexpr int kAir = 3;
  const ButtonForm form = FormOf(widget);
  const ButtonMeasures measures = MeasuresOf(form);
  if (form == ButtonForm::kInField) return contents + QSize(kAir, kAir);
  return {contents.width() + kAir + 2 * (measures.padding + kEdge),
          std::max(contents.height(), Tall(measures.height)) + kAir + 2 * kEdge};
}

QSize SizeOfCheckBox(const QSize& contents) {
  constexpr int kSlack = 1;
  return QSize(contents.width() + kSlack + SignSize() + kIndicatorGap,
               std::max({contents.height(), SignSize(), Tall(18)}))
      .grownBy(kCheckMargins);
}

QSize SizeOfTab(const QStyleOptionTab& tab, const QSize& contents, const QWidget* widget) {
  if (TabsFormOf(widget) == TabsForm::kOptions) {
    constexpr int kIconAir =
        6;  // with as much room at the other side, the text stays in the middle
    const int icon = tab.icon.isNull() ? 0 : tab.iconSize.width() + kIconAir;
    return {contents.width() + icon + 2 * kOptionTabPadding + kOptionTabGap,
            std::max(contents.height(), Tall(22)) + kUnderline};
  }
  return {contents.width() + 2 * kTabPadding + kTabGap,
          std::max(contents.height(), Tall(23)) + 2 * kEdge};
}

QSize SizeOfMenuItem(const QStyleOptionMenuItem& item, const QSize& contents) {
  constexpr int kSeparator = 9, kAround = 32, kAbove = 8, kKeysGap = 12;
  if (item.menuItemType == QStyleOptionMenuItem::Separator) return {contents.width(), kSeparator};
  const int keys = item.text.contains(u'\t') ? kKeysGap : 0;
  return {contents.width() + kAround + MenuMarkRoom(item) + keys, contents.height() + kAbove};
}

QSize SizeOfHeading(const QStyleOptionHeader& heading) {
  constexpr int kMargin = 2;
  const QSize text = heading.fontMetrics.size(0, heading.text);
  const int high = text.height() + 2 * kMargin;
  const int arrow = heading.sortIndicator == QStyleOptionHeader::None ? 0 : high + kMargin;
  return {text.width() + 2 * kMargin + arrow + 2 * kHeaderPadding + kEdge, high + kEdge};
}

QRect TabText(const QStyleOption& option, const QWidget* widget) {
  if (TabsFormOf(widget) == TabsForm::kOptions) {
    const int top = Focused(option) ? kFocusEdge : 0;
    return option.rect.adjusted(kOptionTabPadding, top, -kOptionTabPadding - kOptionTabGap,
                                -kUnderline);
  }
  return option.rect.adjusted(kTabPadding, kEdge, -kTabPadding - kTabGap, -kEdge);
}

QRect PagesPart(QStyle::SubElement part, const QStyleOptionTabWidgetFrame& option,
                const QWidget* widget) {
  const bool framed = TabsFormOf(widget) == TabsForm::kFolders;
  if (part == QStyle::SE_TabWidgetTabBar) {
    return Mirrored(option, QRect(option.rect.topLeft(), option.tabBarSize) & option.rect);
  }
  QRect pane = option.rect;
  // The selected tab lies over the line below it.
  pane.setTop(std::max(option.tabBarSize.height() - kEdge, 0));
  if (part == QStyle::SE_TabWidgetTabPane) return pane;
  return framed ? pane.adjusted(kEdge, kEdge, -kEdge, -kEdge) : pane.adjusted(0, kEdge, 0, 0);
}

QRect CheckBoxPart(QStyle::SubElement part, const QStyleOption& option) {
  const QRect inside = option.rect.marginsRemoved(kCheckMargins);
  if (part == QStyle::SE_CheckBoxContents) {
    return Mirrored(option, inside.adjusted(SignSize() + kIndicatorGap, 0, 0, 0));
  }
  const QPoint above(0, (inside.height() - SignSize()) / 2);
  return Mirrored(option, QRect(inside.topLeft() + above, QSize(SignSize(), SignSize())));
}

QRect ComboPart(const QStyleOptionComplex& option, QStyle::SubControl part) {
  const QRect& box = option.rect;
  const int edge = Focused(option) ? kFocusEdge : kEdge;
  const int width = SignSize() + kArrowAir;
  const QRect arrow(box.right() + 1 - edge - width, box.top() + edge, width,
                    box.height() - 2 * edge);
  if (part == QStyle::SC_ComboBoxArrow) return Mirrored(option, arrow);
  const QRect text(QPoint(box.left() + kBoxText, arrow.top()),
                   QPoint(box.right() - 2 * kEdge - width, arrow.bottom()));
  return Mirrored(option, text);
}

QRect ScrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part) {
  const bool flat = bar.orientation == Qt::Horizontal;
  const int room = flat ? bar.rect.width() : bar.rect.height();
  const qint64 range = qint64{bar.maximum} - bar.minimum;
  int size = room;
  if (range > 0) size = static_cast<int>(qint64{room} * bar.pageStep / (range + bar.pageStep));
  size = std::clamp(size, std::min(kLeastSlider, room), room);
  const int at = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                 room - size, bar.upsideDown);
  const auto stretch = [&](int from, int to) {
    const QRect along = flat ? QRect(from, 0, to - from, bar.rect.height())
                             : QRect(0, from, bar.rect.width(), to - from);
    return Mirrored(bar, along.translated(bar.rect.topLeft()));
  };
  switch (part) {
    case QStyle::SC_ScrollBarSlider:
      return stretch(at, at + size);
    case QStyle::SC_ScrollBarSubPage:
      return stretch(0, at);
    case QStyle::SC_ScrollBarAddPage:
      return stretch(at + size, room);
    case QStyle::SC_ScrollBarGroove:
      return bar.rect;
    default:
      return {};
  }
}

}  // namespace

std::optional<int> MetricOf(QStyle::PixelMetric metric, const QWidget* widget) {
  switch (metric) {
    case QStyle::PM_IndicatorWidth:
    case QStyle::PM_IndicatorHeight:
      return SignSize();
    case QStyle::PM_CheckBoxLabelSpacing:
      return kIndicatorGap;
    case QStyle::PM_MenuButtonIndicator:
      return kMenuArrow;
    case QStyle::PM_DefaultFrameWidth:
    case QStyle::PM_MenuPanelWidth:
      return kEdge;
    case QStyle::PM_MenuHMargin:
    case QStyle::PM_MenuVMargin:
      return 4;
    case QStyle::PM_ToolTipLabelFrameWidth:
      return 8;
    case QStyle::PM_ScrollBarExtent:
      return kThickness;
    case QStyle::PM_ScrollBarSliderMin:
      return kLeastSlider;
    case QStyle::PM_TabBarTabHSpace:
    case QStyle::PM_TabBarTabVSpace:
    case QStyle::PM_TabBarTabShiftVertical:
    case QStyle::PM_TabBarTabShiftHorizontal:
      return TabsFormOf(widget) == TabsForm::kOther ? std::optional<int>() : 0;
    default:
      return {};
  }
}

std::optional<QSize> SizeOf(QStyle::ContentsType type, const QStyleOption& option,
                            const QSize& contents, const QWidget* widget) {
  switch (type) {
    case QStyle::CT_PushButton:
      return SizeOfButton(option, contents, widget);
    case QStyle::CT_ToolButton:
      return SizeOfToolButton(contents, widget);
    case QStyle::CT_CheckBox:
      return SizeOfCheckBox(contents);
    case QStyle::CT_LineEdit:
      if (IsInBox(widget)) return QSize(contents.width(), std::max(contents.height(), Tall(20)));
      return QSize(contents.width() + 2 * (kFieldPadding + kEdge),
                   std::max(contents.height(), Tall(24)) + 2 * kEdge);
    case QStyle::CT_ComboBox:
      return QSize(contents.width() + 16 + SignSize(),
                   std::max(contents.height(), Tall(24)) + 2 * kEdge);
    case QStyle::CT_TabBarTab:
      if (TabsFormOf(widget) == TabsForm::kOther) return {};
      return SizeOfTab(static_cast<const QStyleOptionTab&>(option), contents, widget);
    case QStyle::CT_MenuItem:
      return SizeOfMenuItem(static_cast<const QStyleOptionMenuItem&>(option), contents);
    case QStyle::CT_HeaderSection:
      return SizeOfHeading(static_cast<const QStyleOptionHeader&>(option));
    default:
      return {};
  }
}

std::optional<QRect> PartOf(QStyle::SubElement part, const QStyleOption& option,
                            const QWidget* widget) {
  const QRect& whole = option.rect;
  switch (part) {
    case QStyle::SE_PushButtonContents: {
      const int aside = MeasuresOf(FormOf(widget)).padding + kEdge;
      return whole.adjusted(aside, kEdge, -aside, -kEdge);
    }
    case QStyle::SE_CheckBoxIndicator:
    case QStyle::SE_CheckBoxClickRect:
    case QStyle::SE_CheckBoxContents:
      return CheckBoxPart(part, option);
    case QStyle::SE_LineEditContents: {
      if (IsInBox(widget)) return whole;
      const int edge = Focused(option) ? kFocusEdge : kEdge;
      return whole.adjusted(kFieldPadding + kEdge, edge, -kFieldPadding - kEdge, -edge);
    }
    case QStyle::SE_ShapedFrameContents:
      if (!Asks(widget, "card") && !IsView(widget)) return {};
      return whole.adjusted(kEdge, kEdge, -kEdge, -kEdge);
    case QStyle::SE_TabBarTabText:
      if (TabsFormOf(widget) == TabsForm::kOther) return {};
      return TabText(option, widget);
    case QStyle::SE_TabWidgetTabBar:
    case QStyle::SE_TabWidgetTabPane:
    case QStyle::SE_TabWidgetTabContents:
      return PagesPart(part, static_cast<const QStyleOptionTabWidgetFrame&>(option), widget);
    case QStyle::SE_HeaderLabel:
      return whole.adjusted(kHeaderPadding, 0, -kHeaderPadding - kEdge, -kEdge);
    case QStyle::SE_ProgressBarGroove:
      return whole;
    case QStyle::SE_ProgressBarContents:
      return whole.adjusted(kEdge, kEdge, -kEdge, -kEdge);
    default:
      return {};
  }
}

std::optional<QRect> PartOf(QStyle::ComplexControl control, const QStyleOptionComplex& option,
                            QStyle::SubControl part) {
  if (control == QStyle::CC_ScrollBar) {
    return ScrollBarPart(static_cast<const QStyleOptionSlider&>(option), part);
  }
  const bool inside = part == QStyle::SC_ComboBoxArrow || part == QStyle::SC_ComboBoxEditField;
  if (control == QStyle::CC_ComboBox && inside) return ComboPart(option, part);
  return {};
}

}  // namespace skin
