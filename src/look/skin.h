#pragma once

#include <QPalette>

class QApplication;

/// Gives the whole program its look: the colours of `Look::Current()`, the application's palette,
/// and one style over it, so that message boxes and file dialogs match. The desktop's own palette
/// decides between light and dark. Off: the desktop's style and palette.
/// May be called again at any time, and costs little where nothing has changed.
///
/// Widgets ask for more by dynamic properties of value true, set before they are shown:
///   card          QFrame: a card
///   title         QLabel: title of a card
///   muted         QLabel: a note
///   strong        QLabel: 600 weight
///   command       QPushButton: one of the command row
///   primary       QPushButton: the next command; `update` after a change
///   narrow        QPushButton, QToolButton: a caption of one to three signs
///   link          QPushButton, QToolButton: flat, as a link
///   optionPages   QTabWidget: text tabs with an underline, no frame (else folder tabs on a card)
///   scroll        QToolButton: an arrow that scrolls
///   offers        QListView: a list below a field, as that of a combo box
///   rule          QFrame of shape HLine or VLine: a line of one pixel
void ApplySkin(QApplication& application, bool skin_on);

/// Lets all controls measure themselves anew, as with another style: some keep their sizes over a
/// change of the application's font, and all heights of the skin go by that.
void MeasureAnew();

/// Whether a palette is a dark one: its window text is lighter than its window.
bool IsDark(const QPalette& palette);

/// The palette of the look that was chosen last.
QPalette SkinPalette();
