#pragma once

#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QRect>

/// A frame drawn into `target`, of which only what is in `room` is seen; sharp at any scale.
void PaintFrame(QPainter& painter, const QImage& frame, const QRect& target, const QRect& room);

/// The mark of a picture that can't be shown, quiet, in the middle of `room`.
void PaintBroken(QPainter& painter, const QRect& room, const QPalette& palette);

/// The mark that a picture waits to be played, over the middle of it; seen on light and on dark.
void PaintPlay(QPainter& painter, const QRect& room);

/// An outline around a picture that has the keyboard; the styles' own would tint the picture, or
/// leave it as it is.
void PaintFocus(QPainter& painter, const QRect& room, const QPalette& palette);
