#pragma once

class QLineEdit;

/// Shows in `field` whether its masks can be understood: a "[" without "]" puts a warning sign at
/// its right end, whose words are the field's tooltip and description too for as long. Called when
/// the field has its own tooltip.
void WatchMasks(QLineEdit* field);
