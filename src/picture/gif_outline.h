#pragma once

#include <QByteArray>
#include <QSize>

/// What the blocks of a GIF file tell without a frame of it being decoded.
struct GifOutline {
  bool gif = false;    ///< the bytes begin as a GIF file; else nothing else is told
  bool whole = false;  ///< no frame is cut off by the end of the bytes
  int frames = 0;      ///< the frames that are whole
  qint64 length = 0;   ///< milliseconds that all of them are shown
  qint64 width = 0;    ///< of the canvas, or of what frames reach beyond it
  qint64 height = 0;
};

/// Walks the blocks of `bytes`; the time is that of a walk over them, whatever they hold. A missing
/// trailer is no fault, many writers leave it out; what follows after a block of no known kind is
/// no part of the picture.
GifOutline OutlineOf(const QByteArray& bytes);
