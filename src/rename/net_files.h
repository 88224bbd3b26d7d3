#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/files.h"
#include "rename/journal_records.h"

/// Where the files of a journal stand, all its passes taken together: first as it tells, then as
/// they are found. What is told while files are put back keeps it true.
///
/// A file may stand twice: with its copy, or, when it was being moved to another device, with what
/// was made of it there.
class NetFiles : public journal::Sink {
 public:
  /// What was made of a file.
  struct Twin {
    journal::Place place;
    std::optional<journal::Place> before;  ///< where it stood before its last move
    CopyIdentities both;
    bool moves = false;  ///< to take the file's place
    bool sure = false;   ///< it was done
  };
  struct File {
    journal::Place former;   ///< before the first run
    journal::Place present;  ///< where it stands now
    Fingerprint fingerprint = 0;
    std::vector<journal::Place> earlier;  ///< where it stood in between, the last one last
    std::unique_ptr<Twin> twin;
    std::int16_t problem = 0;  ///< why it could not be put back

    bool IsElsewhere() const;
  };
  struct KnownFolder {
    std::string path;         ///< with its closing separator
    FolderIdentity identity;  ///< without an inode: whichever stands there
  };
  struct MadeFolder {
    journal::Place place;
    FolderIdentity identity;  ///< without an inode where that wasn't told
  };

  // What is told. Places name folders by their numbers in the journal.
  void Begin(const journal::PassFacts& pass) override;
  std::uint32_t Folder(const std::string& path, const FolderIdentity& identity) override;
  void Before(const journal::Operation& operation) override;
  void CopyIsWhole(const CopyIdentities& copied) override { whole_ = copied; }
  void After(journal::Outcome outcome, const FileIdentity& made) override;
  void End() override { ended = true; }
  void Incomplete() override { incomplete = true; }

  /// Looks where each file stands; an operation whose outcome isn't told may have been done or not.
  /// False when `go_on` wanted to stop.
  bool Find(FileSystem& system, const GoOn& go_on);

  /// The same of those that were moved to another device, when they are all that has changed.
  void FindMoved(FileSystem& system);

  /// Has `sink` told, once, of what was found elsewhere than the journal tells, and of folders that
  /// it doesn't tell apart from others.
  void TellFound(journal::Sink& sink);

  /// Whether what stands at `from`, which is `file`, is one of them.
  bool Holds(const journal::Place& from, Fingerprint file) const;

  /// How many numbers of folders the journal has given.
  std::uint32_t FolderCount() const { return static_cast<std::uint32_t>(numbers_.size()); }

  std::string PathOf(const journal::Place& place) const {
    return folders[place.folder].path + place.name;
  }

  // Places in these name folders by their index here.
  std::vector<KnownFolder> folders;
  std::vector<File> files;
  std::vector<MadeFolder> made_folders;
  std::vector<journal::PassFacts> passes;
  std::size_t wanted = 0;  ///< files that runs were to rename, copy or move
  bool ended = false;      ///< the last pass has
  bool incomplete = false;
  std::int64_t written_ns = 0;  ///< when the last of it was, since 1970-01-01 00:00 UTC

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  struct Hit {
    std::size_t file = kNone;
    bool twin = false;
  };
  struct Found {
    journal::Place from, to;
    Fingerprint file = 0;
    std::optional<CopyIdentities> copied;  ///< of what was made of the file at `from`
  };

  journal::Place Known(journal::Place told) const;
  journal::Place Told(journal::Place known) const;
  void Index(const journal::Place& place, std::size_t file);
  Hit At(const journal::Place& place, Fingerprint file) const;
  std::size_t FileAt(const journal::Place& place, Fingerprint file);
  void Apply(bool sure, const FileIdentity& made);
  void Move(bool sure);
  void Delete(bool sure);
  void AddTwin(std::size_t file, bool moves, bool sure);
  void TakeTwinsPlace(File& file);
  void ExpectNoMore(const journal::Place& place);

  bool ExpectFolders(FileSystem& system, const GoOn& go_on);
  bool IsOut(FileSystem& system, std::uint32_t folder);
  void FindBegun(FileSystem& system);
  bool FindFile(FileSystem& system, std::size_t file, bool last);
  void FindTwin(FileSystem& system, std::size_t file, bool last, bool stands);
  std::optional<FileIdentity> LookAt(FileSystem& system, const journal::Place& place,
                                     Fingerprint file) const;
  std::optional<journal::Place> Unfinished(FileSystem& system, Fingerprint file);
  using Fits = std::function<bool(const FileIdentity&, std::string_view name)>;
  std::optional<journal::Place> UnfinishedIn(FileSystem& system, std::uint32_t folder,
                                             const Fits& fits);
  void FindMadeFolders(FileSystem& system);

  std::vector<std::uint32_t> numbers_;  ///< index in `folders` by the journal's number
  std::vector<std::uint32_t> told_as_;  ///< and the last such number by index
  std::unordered_map<std::string, std::uint32_t> by_path_;
  std::unordered_multimap<std::size_t, std::uint32_t> by_place_;  ///< what ever stood there
  std::optional<journal::Operation> under_way_;
  std::optional<CopyIdentities> whole_;
  std::optional<journal::Operation> last_;  ///< whose outcome isn't told
  std::size_t last_file_ = kNone;
  std::unordered_map<std::uint32_t, bool> out_;  ///< IsOut by folder
  std::vector<Found> found_;
  std::vector<MadeFolder> found_folders_;
};
