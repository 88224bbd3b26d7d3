#include "filelist/name_pieces_qt.h"

#include <utility>

#include "filelist/changed_part.h"
#include "platform/qt/text_qt.h"

namespace {

constexpr QChar kEllipsis(0x2026);

NamePieces Cut(std::string_view name, const std::vector<TextRange>& marked) {
  NamePieces pieces;
  // Shown as a whole: whether a sign is seen depends on its neighbours too.
  const QString shown = text::Shown(name);
  qsizetype from = 0;
  const auto add = [&](std::size_t begin, std::size_t end, bool mark) {
    if (begin == end) return;
    const qsizetype length = text::ToQt(name.substr(begin, end - begin)).size();
    pieces.push_back({shown.mid(from, length), mark});
    from += length;
  };
  std::size_t at = 0;
  for (const TextRange& range : marked) {
    add(at, range.begin, false);
    add(range.begin, range.end, true);
    at = range.end;
  }
  add(at, name.size(), false);
  return pieces;
}

/// Neighbours of one kind become one run, which is painted and outlined as a whole.
void Append(NamePieces& pieces, NamePiece piece) {
  if (!pieces.empty() && pieces.back().marked == piece.marked) {
    pieces.back().text += piece.text;
  } else {
    pieces.push_back(std::move(piece));
  }
}

/// Characters `from` to `to` of the joined text.
void AddPart(const NamePieces& pieces, qsizetype from, qsizetype to, NamePieces& out) {
  qsizetype start = 0;
  for (const NamePiece& piece : pieces) {
    const qsizetype begin = qMax(from - start, qsizetype{0});
    const qsizetype end = qMin(to - start, piece.text.size());
    if (begin < end) Append(out, {piece.text.mid(begin, end - begin), piece.marked});
    start += piece.text.size();
  }
}

/// Where `elided` has the sign that stands for what `whole` lacks; the name may hold such a sign
/// itself.
qsizetype PlaceOfEllipsis(const QString& elided, const QString& whole) {
  for (qsizetype i = elided.indexOf(kEllipsis); i >= 0; i = elided.indexOf(kEllipsis, i + 1)) {
    if (whole.startsWith(QStringView(elided).left(i)) &&
        whole.endsWith(QStringView(elided).mid(i + 1))) {
      return i;
    }
  }
  return -1;
}

}  // namespace

NamePieces MarkGone(std::string_view old_name, std::string_view new_name) {
  return Cut(old_name, FindChangedPart(old_name, new_name).gone);
}

NamePieces MarkNew(std::string_view old_name, std::string_view new_name) {
  return Cut(new_name, FindChangedPart(old_name, new_name).come);
}

QString Join(const NamePieces& pieces) {
  QString joined;
  for (const NamePiece& piece : pieces) joined += piece.text;
  return joined;
}

NamePieces ElideMiddle(const NamePieces& pieces, const QFontMetrics& metrics, int width) {
  const QString whole = Join(pieces);
  const QString elided = metrics.elidedText(whole, Qt::ElideMiddle, width);
  if (elided == whole) return pieces;
  const qsizetype place = PlaceOfEllipsis(elided, whole);
  if (place < 0) return {{elided, false}};
  const qsizetype tail = whole.size() - (elided.size() - place - 1);
  NamePieces hidden;
  AddPart(pieces, place, tail, hidden);
  bool marked = false;
  for (const NamePiece& piece : hidden) marked = marked || piece.marked;
  NamePieces out;
  AddPart(pieces, 0, place, out);
  Append(out, {QString(kEllipsis), marked});
  AddPart(pieces, tail, whole.size(), out);
  return out;
}
