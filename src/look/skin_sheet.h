#pragma once

#include <QString>

/// The style sheet in the colours of `Look::Current()`. Ticks and arrows are written as pictures,
/// at 1, 2 and 3 pixels a logical one, into the folder `picture_folder`; with an empty folder name
/// the sheet does without them.
QString SkinSheet(const QString& picture_folder);
