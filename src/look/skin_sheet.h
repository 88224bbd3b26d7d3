#pragma once

#include <QString>

/// The style sheet in the colours of `Look::Current()`. Its ticks and arrows are resources of the
/// program, see `SheetPicture`.
QString SkinSheet();
