#include <algorithm>
#include <limits>

#include "common/path_text.h"
#include "rename/journal_records.h"

namespace journal {
namespace {

/// Takes the parts of a body; what isn't there, or can't be, makes it bad.
class Parts {
 public:
  explicit Parts(std::string_view body) : rest_(body) {}

  std::uint64_t Fixed(std::size_t size) {
    std::uint64_t value = 0;
    const std::string_view bytes = Bytes(size);
    for (std::size_t i = bytes.size(); i-- > 0;) {
      value = value << 8 | static_cast<unsigned char>(bytes[i]);
    }
    return value;
  }
  std::uint64_t Number() {
    std::uint64_t value = 0;
    for (int shift = 0; shift < 64; shift += 7) {
      const std::uint64_t next = Fixed(1);
      value |= (next & 0x7F) << shift;
      if ((next & 0x80) == 0) return value;
    }
    good_ = false;
    return 0;
  }
  std::uint64_t Number(std::uint64_t most) {
    const std::uint64_t value = Number();
    good_ = good_ && value <= most;
    return good_ ? value : 0;
  }
  std::string Text() { return std::string(Bytes(Number())); }
  std::int64_t Time() { return static_cast<std::int64_t>(Fixed(8)); }
  FileIdentity Entry() {
    FileIdentity file;
    file.device = Number();
    file.inode = Number();
    file.born_ns = Time();
    return file;
  }
  FileIdentity File() {
    FileIdentity file = Entry();
    file.size = Number();
    file.modified_ns = Time();
    return file;
  }
  Place OnePlace(std::size_t folders) {
    Place place;
    place.folder = static_cast<std::uint32_t>(Number(std::numeric_limits<std::uint32_t>::max()));
    place.name = Text();
    good_ = good_ && place.folder < folders && IsSoundName(place.name);
    return place;
  }
  bool Good() const { return good_; }
  bool AllTaken() const { return good_ && rest_.empty(); }

 private:
  std::string_view Bytes(std::uint64_t size) {
    good_ = good_ && size <= rest_.size();
    if (!good_) return {};
    const std::string_view bytes = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return bytes;
  }

  std::string_view rest_;
  bool good_ = true;
};

/// Reads records one after the other.
class Reader {
 public:
  Reader(const JournalFile& file, Sink& sink) : file_(file), sink_(sink) {}

  /// The body of the next record; false when no whole one follows.
  bool Next() {
    at_ += taken_;
    taken_ = 0;
    if (!Have(1)) return false;
    std::uint64_t size = 0;
    std::size_t head = 0;
    for (int shift = 0; shift < 28; shift += 7) {
      if (!Have(head + 1)) return false;
      const auto next = static_cast<unsigned char>(Seen()[head++]);
      size |= std::uint64_t{next & 0x7Fu} << shift;
      if ((next & 0x80) == 0) break;
    }
    // Zeros, as a power cut may leave them, are no record of nothing.
    if (size == 0 || size > kLongestBody || !Have(head + size + 4)) return false;
    body_ = Seen().substr(head, size);
    if (Parts(Seen().substr(head + size, 4)).Fixed(4) != Crc(body_)) return false;
    taken_ = head + size + 4;
    return true;
  }

  /// False when it tells what can't be.
  bool Tell() {
    Parts parts(body_);
    const auto kind = static_cast<Kind>(parts.Fixed(1));
    if (passes_ == 0 && kind != Kind::kPass) return false;
    switch (kind) {
      case Kind::kPass:
        return TellPass(parts);
      case Kind::kFolder:
        return TellFolder(parts);
      case Kind::kOperation:
        return TellOperation(parts);
      case Kind::kWhole:
        return TellWhole(parts);
      case Kind::kEnd:
        return TellOutcome(parts) && parts.AllTaken() && (sink_.End(), true);
      case Kind::kIncomplete:
        return parts.AllTaken() && (sink_.Incomplete(), true);
    }
    return false;
  }

  bool HasFirstBytes() {
    if (!Have(kFirstBytes.size()) || !Seen().starts_with(kFirstBytes)) return false;
    at_ += kFirstBytes.size();
    return true;
  }
  std::uint64_t At() const { return at_; }
  /// Not all that stands there could be read.
  bool Short() const { return short_; }

 private:
  static constexpr std::size_t kPiece = 1024 * 1024;

  std::string_view Seen() const { return std::string_view(piece_).substr(at_ - piece_at_); }
  /// Whether `size` bytes stand at `at_`; then Seen has them.
  bool Have(std::size_t size) {
    if (at_ + size <= piece_at_ + piece_.size()) return true;
    piece_ = file_.Read(at_, kPiece);
    piece_at_ = at_;
    const std::uint64_t left = file_.Size() - std::min(at_, file_.Size());
    short_ = short_ || piece_.size() < std::min<std::uint64_t>(kPiece, left);
    return size <= piece_.size();
  }

  bool TellPass(Parts& parts) {
    PassFacts pass;
    pass.mark.machine = parts.Text();
    pass.mark.boot = parts.Text();
    pass.mark.user = parts.Number();
    pass.mark.process = parts.Number();
    pass.mark.started = parts.Number();
    pass.began = parts.Time();
    pass.work = static_cast<Work>(parts.Number(static_cast<std::uint64_t>(Work::kPutBack)));
    pass.output_mode = static_cast<int>(parts.Number(255));
    pass.source_folder = parts.Text();
    pass.wanted = parts.Number();
    if (!parts.AllTaken()) return false;
    ++passes_;
    sink_.Begin(pass);
    return true;
  }

  bool TellFolder(Parts& parts) {
    const std::string path = parts.Text();
    const FileIdentity entry = parts.Entry();
    if (!parts.AllTaken() || !IsSoundFolder(path)) return false;
    ++folders_;
    sink_.Folder(path, {entry.device, entry.inode, entry.born_ns});
    return true;
  }

  bool TellOutcome(Parts& parts) {
    const std::uint64_t outcome = parts.Number(kDoneAndMade);
    const FileIdentity made = outcome == kDoneAndMade ? parts.File() : FileIdentity();
    if (!parts.Good()) return false;
    if (outcome == kDoneAndMade) sink_.After(Outcome::kDone, made);
    if (outcome == 1 || outcome == 2) sink_.After(static_cast<Outcome>(outcome), {});
    return true;
  }

  bool TellOperation(Parts& parts) {
    if (!TellOutcome(parts)) return false;
    Operation operation;
    operation.action =
        static_cast<Action>(parts.Number(static_cast<std::uint64_t>(Action::kRemoveFolder)));
    operation.file = parts.Fixed(8);
    operation.from = parts.OnePlace(folders_);
    if (HasTarget(operation.action)) operation.to = parts.OnePlace(folders_);
    if (!parts.AllTaken()) return false;
    sink_.Before(operation);
    return true;
  }

  bool TellWhole(Parts& parts) {
    const FileIdentity source = parts.File();
    const CopyIdentities copied{source, parts.File()};
    return parts.AllTaken() && (sink_.CopyIsWhole(copied), true);
  }

  const JournalFile& file_;
  Sink& sink_;
  std::string piece_;
  std::uint64_t piece_at_ = 0, at_ = 0;
  std::size_t taken_ = 0;  ///< of the last record, from `at_` on
  bool short_ = false;
  std::string_view body_;
  std::size_t passes_ = 0, folders_ = 0;
};

}  // namespace

bool IsSoundName(std::string_view name) {
  return !name.empty() && name != "." && name != ".." &&
         name.find(kNative.separator) == name.npos && name.find('\0') == name.npos;
}

bool IsSoundFolder(std::string_view path) {
  if (!mMain::IsAbsolutePath(path) || !path.ends_with(kNative.separator)) return false;
  path.remove_prefix(kNative.rootLength);
  while (!path.empty()) {
    const std::size_t end = path.find(kNative.separator);
    if (!IsSoundName(path.substr(0, end))) return false;
    path.remove_prefix(end + 1);
  }
  return true;
}

ReadTo Read(const JournalFile& file, Sink& sink, const GoOn& go_on) {
  constexpr int kAsked = 1000;
  constexpr int kMostRecords = 20'000'000;  // each may be a file, which takes some memory
  ReadTo read;
  Reader reader(file, sink);
  if (file.Size() > kLongestFile) return read;
  if (!reader.HasFirstBytes()) {
    read.sound = kFirstBytes.starts_with(file.Read(0, kFirstBytes.size()));
    return read;
  }
  for (int i = 1; reader.Next(); ++i) {
    if (i > kMostRecords || !reader.Tell() || (i % kAsked == 0 && !go_on())) return read;
  }
  if (reader.Short()) return read;
  read.end = reader.At();
  read.whole = read.end == file.Size();
  read.sound = true;
  return read;
}

}  // namespace journal
