#pragma once

class QWidget;

/// The last control in `part` that Tab comes to; `part` itself if it has none.
QWidget* LastOnTab(QWidget& part);

/// Lets Tab come to the controls of `part` next after `before`, in the order of their making. Parts
/// that are made late would come last of all.
void PutBehind(QWidget& before, QWidget& part);
