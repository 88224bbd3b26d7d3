#pragma once

#include <QFontMetrics>
#include <QString>
#include <string_view>
#include <vector>

/// A name cut up for painting: runs of text with and without a mark, from left to right.
struct NamePiece {
  QString text;
  bool marked = false;
  bool operator==(const NamePiece&) const = default;
};
using NamePieces = std::vector<NamePiece>;

/// The old name, marked where its words are missing in the new one.
NamePieces MarkGone(std::string_view old_name, std::string_view new_name);
/// The new name, marked where its words are not in the old one.
NamePieces MarkNew(std::string_view old_name, std::string_view new_name);

QString Join(const NamePieces& pieces);

/// `pieces` with the middle replaced by "…" where they are wider than `width`; the "…" is marked
/// when it hides something marked, and is one run with its neighbours of the same kind.
NamePieces ElideMiddle(const NamePieces& pieces, const QFontMetrics& metrics, int width);
