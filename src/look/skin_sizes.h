#pragma once

#include <QStyle>
#include <optional>

class QStyleOptionComplex;

/// The measures of the controls under the skin, and where their parts lie. None: as the style
/// below has it.
namespace skin {

std::optional<int> MetricOf(QStyle::PixelMetric metric, const QWidget* widget);
std::optional<QSize> SizeOf(QStyle::ContentsType type, const QStyleOption& option,
                            const QSize& contents, const QWidget* widget);
std::optional<QRect> PartOf(QStyle::SubElement part, const QStyleOption& option,
                            const QWidget* widget);
std::optional<QRect> PartOf(QStyle::ComplexControl control, const QStyleOptionComplex& option,
                            QStyle::SubControl part);

}  // namespace skin
