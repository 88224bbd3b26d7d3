#pragma once

#include <QString>
#include <utility>

/// The file or resource to show in the place of `path` on a screen of so many pixels a logical one,
/// and how many pixels a logical one it has: "name@3x.gif" or "name@2x.gif" where there is one (so
/// Qt's own high-resolution pictures are called), else `path` and 1.
std::pair<QString, int> FinestFor(const QString& path, qreal screen);
