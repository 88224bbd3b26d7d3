#include "platform/posix/files_posix.h"

#include <fcntl.h>
#include <signal.h>

#include <utility>

#include "platform/name_pattern.h"
#include "platform/posix/entry_names.h"
#include "platform/posix/file_copy.h"
#include "platform/posix/file_move.h"
#include "platform/posix/folder_handles.h"
#include "platform/posix/folder_listing.h"

namespace {

class PosixFileSystem final : public FileSystem {
 public:
  explicit PosixFileSystem(Syscalls calls) : calls_(std::move(calls)) {
    // Past a size limit, or into a broken pipe, a write shall fail and not end us (signal(7)).
    ::signal(SIGXFSZ, SIG_IGN);
    ::signal(SIGPIPE, SIG_IGN);
  }

  bool Exists(std::string_view path) override {
    const Place place = folders_.ForLook(path);
    if (!place || place.name.empty()) return false;
    return IsThere(place) || (HasWildcards(place.name) && AnyFits(place));
  }

  std::optional<FileFacts> Look(std::string_view path) override {
    const Place place = folders_.ForLook(path);
    if (!place) return std::nullopt;
    // "/" has no last name: it is the folder itself (AT_EMPTY_PATH, see statx(2)).
    struct statx facts;
    const int error =
        place.name.empty() ? LookInto(calls_, place.at(), facts) : LookAt(calls_, place, facts);
    if (error != 0) return std::nullopt;
    const FileIdentity identity = IdentityOf(facts);
    return FileFacts{S_ISDIR(facts.stx_mode) ? EntryKind::kFolder : EntryKind::kFile, identity.size,
                     identity.modified_ns, S_ISREG(facts.stx_mode) ? FingerprintOf(identity) : 0};
  }

  std::optional<FileIdentity> Identify(std::string_view path) override {
    const Place place = folders_.ForLook(path);
    struct statx facts;
    if (!place || place.name.empty() || LookAt(calls_, place, facts) != 0) return std::nullopt;
    return IdentityOf(facts);
  }

  std::optional<FolderIdentity> IdentifyFolder(std::string_view path) override {
    const auto folder = folders_.Open(path, FolderHandles::Trust::kNow);
    if (!folder) return std::nullopt;
    return folder->identity;
  }

  void ExpectFolder(std::string_view folder, const FolderIdentity& identity) override {
    folders_.Expect(folder, identity);
  }

  std::string ResolveFolder(std::string_view path) override {
    const std::size_t name = path.rfind('/') + 1;
    const auto folder =
        name == 0 ? nullptr : folders_.Open(path.substr(0, name), FolderHandles::Trust::kNow);
    std::string resolved = folder ? folders_.PathOf(*folder) : std::string();
    if (resolved.empty()) return std::string(path);
    if (!resolved.ends_with('/')) resolved += '/';
    return resolved.append(path.substr(name));
  }

  bool IsSameEntry(std::string_view a, std::string_view b) override {
    const auto [first, second] = Places(a, b);
    if (!first || !second || !first.folder->IsSameAs(*second.folder)) return false;
    if (first.name == second.name) return IsThere(first);
    return AreOneEntry(calls_, first, second);
  }

  bool IsVeryFile(std::string_view path, const FileIdentity& file) override {
    const Place place = folders_.ForChange(path);
    struct statx facts;
    return place && LookAt(calls_, place, facts, true) == 0 && IdentityOf(facts) == file;
  }

  bool List(std::string_view path, const GoOn& go_on, FolderEntries& entries) override {
    const auto folder = folders_.Open(path, FolderHandles::Trust::kNow);
    if (folder) return Done(ListFolder(calls_, *folder, go_on, entries));
    entries = {};
    return Done(folders_.Problem());
  }

  bool MoveFile(std::string_view from, std::string_view to, const GoOn& go_on,
                Fingerprint* moved) override {
    const auto [source, target] = Places(from, to);
    if (!source || !target) return Done(folders_.Problem());
    Fingerprint file = 0;
    if (!Done(move_.Move(source, target, go_on, file))) return false;
    if (file == 0) folders_.Forget(from);
    if (moved) *moved = file;
    return true;
  }

  Attempt RenameKnown(std::string_view from, std::string_view to, Fingerprint known) override {
    if (known == 0) return Attempt::kLookFirst;
    const auto [source, target] = Places(from, to);
    const int error = source && target ? move_.AtOnce(source, target, known) : folders_.Problem();
    if (error == kNotAtOnce) return Attempt::kLookFirst;
    return Done(error) ? Attempt::kDone : Attempt::kFailed;
  }

  bool CopyFile(std::string_view from, std::string_view to, const GoOn& go_on,
                CopyIdentities* copied) override {
    const auto [source, target] = Places(from, to);
    if (!source || !target) return Done(folders_.Problem());
    CopyIdentities both;
    const int error = copy_.Copy(source, target, FileCopy::Purpose::kCopy, go_on, both);
    if (error == 0 && copied) *copied = both;
    return Done(error);
  }

  void WatchCopies(const CopyWatch& watch) override { copy_.watch = watch; }

  bool DeleteMadeFile(std::string_view path, const FileIdentity& made) override {
    const Place place = folders_.ForChange(path);
    if (!place) return Done(folders_.Problem());
    const int error = names_.Remove(place, made, Match::kUnwritten);
    return Done(error == kSourceChanged ? kNotTheCopy : error);
  }

  bool CreateDirectory(std::string_view path) override {
    const Place place = folders_.ForChange(path);
    const bool done = Done(place ? MakeFolder(place) : folders_.Problem());
    if (done) folders_.Unexpect(path);
    return done;
  }

  bool DeleteMadeFolder(std::string_view path, const FolderIdentity& made) override {
    const std::string_view entry = WithoutClosingSeparators(path);
    const Place place = folders_.ForChange(entry);
    if (!place) return Done(folders_.Problem());
    const bool done = Done(RemoveFolder(entry, place, made));
    if (done) folders_.Forget(entry);
    return done;
  }

  int Problem() const override { return problem_; }

  void LookAnew() override { folders_.LookAnew(); }

  void LetFoldersGo() override {
    folders_.ForgetAll();
    ForgetNumberFacts();
  }

 private:
  /// The answer upwards.
  bool Done(int problem) {
    if (problem != 0) problem_ = problem;
    return problem == 0;
  }

  bool IsThere(const Place& place) {
    struct statx facts;
    return LookAt(calls_, place, facts) == 0;
  }

  /// An answer is not the fact: where nothing was, a folder is ours. But if the name was taken in
  /// between, that is somebody else's folder.
  int MakeFolder(const Place& place) {
    struct statx facts;
    const int looked = LookAt(calls_, place, facts);
    if (looked != ENOENT) return looked == 0 ? EEXIST : looked;
    const int error = ErrorOf([&] { return calls_.mkdirat(place.at(), place.c_name(), 0777); });
    if (error == 0 || error == EEXIST) return error;
    return LookAt(calls_, place, facts) == 0 && S_ISDIR(facts.stx_mode) ? 0 : error;
  }

  /// Only an empty folder is moved aside: nobody's files vanish from under a path for a moment.
  int RemoveFolder(std::string_view path, const Place& place, const FolderIdentity& made) {
    const auto folder = folders_.Open(path, FolderHandles::Trust::kNow);
    if (!folder) return folders_.Problem();
    if (!IsExpectedFolder(calls_, *folder, made)) return kFolderReplaced;
    if (const int error = IsEmptyFolder(calls_, *folder)) return error;
    const FolderIdentity& now = folder->identity;
    const int error =
        names_.Remove(place, {now.device, now.inode, 0, 0, now.born_ns}, Match::kSameFile);
    return error == kSourceChanged ? kFolderReplaced : error;
  }

  bool AnyFits(const Place& place) {
    FolderEntries all;
    ListFolder(calls_, *place.folder, {}, all);
    for (const FolderEntries::Entry& entry : all.entries) {
      if (FitsPattern(entry.name, place.name)) return true;
    }
    return false;
  }

  /// Two names in one folder need it opened, and compared, only once.
  std::pair<Place, Place> Places(std::string_view from, std::string_view to) {
    const SplitPath first = Split(from), second = Split(to);
    Place source = folders_.ForChange(first);
    if (!source) return {};
    if (second.folder != first.folder || second.name.find('\0') != second.name.npos) {
      return {std::move(source), folders_.ForChange(second)};
    }
    Place target{source.folder, std::string(second.name)};
    return {std::move(source), std::move(target)};
  }

  const Syscalls calls_;
  FolderHandles folders_{calls_};
  EntryNames names_{calls_};
  FileCopy copy_{calls_, names_};
  FileMove move_{calls_, names_, copy_};
  int problem_ = 0;
};

}  // namespace

std::unique_ptr<FileSystem> MakePosixFileSystem(Syscalls calls) {
  return std::make_unique<PosixFileSystem>(std::move(calls));
}

std::unique_ptr<FileSystem> MakePosixFileSystem() {
  return MakePosixFileSystem(Syscalls());
}
