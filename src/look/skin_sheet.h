#pragma once

#include <QString>

/// The style sheet in the colours of `Look::Current()`, for the application's font. Its ticks and
/// arrows are resources of the program, see `SheetPicture`.
QString SkinSheet();
