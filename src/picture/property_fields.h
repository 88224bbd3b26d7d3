#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QWidget>
#include <functional>

/// A control for the value of a property.
struct PropertyField {
  QWidget* control = nullptr;
  std::function<QVariant()> value;
  std::function<void(const QVariant&)> show;
};

/// Each makes a field that calls `changed` whenever its value has changed, by the user or by
/// `show`.
namespace property_fields {
using Changed = std::function<void()>;

PropertyField Check(const QString& text, const Changed& changed);
PropertyField Number(int least, int most, const QString& suffix, const Changed& changed);
/// A list of which each entry stands for its number in `values`, or for its place.
PropertyField Choice(const QStringList& texts, const Changed& changed,
                     const QList<int>& values = {});
PropertyField Line(const Changed& changed);
/// A line with a button that chooses a picture among the files.
PropertyField File(const Changed& changed);
/// A button that chooses a colour, and one that takes it away.
PropertyField Colour(const Changed& changed);
/// Two lists, across and down, for a Qt::Alignment; its Qt::AlignAbsolute stays as it was shown.
PropertyField Alignment(const Changed& changed);
}  // namespace property_fields
