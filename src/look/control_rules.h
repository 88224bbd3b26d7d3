#pragma once

class QCoreApplication;

/// What holds for every control of the program, those of Qt's own dialogs and tooltips included:
///   - the wheel changes a combo box or a number box only while that has the focus, and never
///     turns to another tab; elsewhere it scrolls what lies around the control
///   - Enter presses the push button that has the focus
///   - a label that was not told what its text is shows it as plain text, so that no name of a
///     file is taken for markup; a tooltip is such a label
/// Called once for `application`, before its first window.
void SetControlRules(QCoreApplication& application);
