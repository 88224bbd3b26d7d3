#pragma once

class QWidget;

/// Gives the window `frm` and its controls, whose own weights stay, the font of `lblFontContainer`,
/// the hidden label of `Form1`. A label without a font of its own has none to give, nor is there
/// one before the main window: `frm` then keeps its font and follows the desktop's.
void ApplyFormFont(QWidget& frm);
