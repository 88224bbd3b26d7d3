#pragma once

#include <QString>

#include "look/look.h"

/// A drawing that the style sheet shows. It is drawn while the program is built, light and dark, at
/// one, two and three device pixels a logical one, and stands in the program from then on.
struct SheetPicture {
  const char* name;
  Drawing drawing;
  Role role;
  int size;

  /// Its file among the program's resources, without the folder; the name with "@2x" is how Qt
  /// finds the sharper one.
  QString FileName(bool dark, int scale = 1) const {
    const QString mark = scale == 1 ? QString() : QStringLiteral("@%1x").arg(scale);
    return QLatin1String(name) + (dark ? QStringLiteral("-dark") : QStringLiteral("-light")) +
           mark + QStringLiteral(".png");
  }
};

inline constexpr SheetPicture kSheetPictures[] = {
    {"tick", Drawing::kTick, Role::kAccentText, 16},
    {"tickDisabled", Drawing::kTick, Role::kDisabled, 16},
    {"down", Drawing::kDown, Role::kText, 16},
    {"downDisabled", Drawing::kDown, Role::kDisabled, 16},
    {"left", Drawing::kLeft, Role::kText, 16},
    {"leftDisabled", Drawing::kLeft, Role::kDisabled, 16},
    {"right", Drawing::kRight, Role::kText, 16},
    {"rightDisabled", Drawing::kRight, Role::kDisabled, 16},
    {"downSmall", Drawing::kDown, Role::kText, 12},
    {"downSmallDisabled", Drawing::kDown, Role::kDisabled, 12},
    {"warning", Drawing::kWarning, Role::kWarn, 40},
    {"critical", Drawing::kWarning, Role::kFailed, 40},
};
