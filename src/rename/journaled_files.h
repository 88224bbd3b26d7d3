#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files.h"
#include "platform/services.h"
#include "rename/journal_records.h"
#include "rename/pump_with.h"

/// The system's files for the length of one pass, with every change told to a journal, before it is
/// made and after.
class JournaledFiles final : public FileSystem {
 public:
  /// Whether what stands at `from`, which is `file`, may be moved.
  using MayMove = std::function<bool(const journal::Place& from, Fingerprint file)>;

  /// All outlive it. Without `may_move` everything may be.
  JournaledFiles(FileSystem& files, journal::Sink& sink, MayMove may_move = {});
  JournaledFiles& operator=(JournaledFiles&&) = delete;
  ~JournaledFiles() override { files_.WatchCopies({}); }

  bool Exists(std::string_view path) override { return files_.Exists(path); }
  std::optional<FileFacts> Look(std::string_view path) override { return files_.Look(path); }
  std::optional<FileIdentity> Identify(std::string_view path) override {
    return files_.Identify(path);
  }
  std::optional<FolderIdentity> IdentifyFolder(std::string_view path) override {
    return files_.IdentifyFolder(path);
  }
  void ExpectFolder(std::string_view folder, const FolderIdentity& identity) override {
    files_.ExpectFolder(folder, identity);
  }
  std::string ResolveFolder(std::string_view path) override { return files_.ResolveFolder(path); }
  bool IsSameEntry(std::string_view a, std::string_view b) override {
    return files_.IsSameEntry(a, b);
  }
  bool IsVeryFile(std::string_view path, const FileIdentity& file) override {
    // Putting back, the original may be a link that was made anew on another device.
    return files_.IsVeryFile(path, file) || (may_move_ && files_.Identify(path) == file);
  }
  bool List(std::string_view path, const GoOn& go_on, FolderEntries& entries) override {
    return files_.List(path, go_on, entries);
  }
  void WatchCopies(const CopyWatch& watch) override { files_.WatchCopies(watch); }
  void LetFoldersGo() override { files_.LetFoldersGo(); }
  void LookAnew() override { files_.LookAnew(); }
  int Problem() const override { return refused_ != 0 ? refused_ : files_.Problem(); }

  using FileSystem::MoveFile;
  bool MoveFile(std::string_view from, std::string_view to, const GoOn& go_on,
                Fingerprint* moved) override;
  Attempt RenameKnown(std::string_view from, std::string_view to, Fingerprint known) override;
  bool CopyFile(std::string_view from, std::string_view to, const GoOn& go_on,
                CopyIdentities* copied) override;
  bool DeleteMadeFile(std::string_view path, const FileIdentity& made) override;
  bool CreateDirectory(std::string_view path) override;
  bool DeleteMadeFolder(std::string_view path, const FolderIdentity& made) override;

 private:
  /// Makes the change by `change`, which answers whether it was done, and tells of it. What can't
  /// be told, since there is no such folder or name, can't be done either: it is only tried.
  template <class Change>
  bool Do(journal::Action action, std::string_view from, std::string_view to, Fingerprint file,
          const Change& change);
  Fingerprint FingerprintAt(std::string_view path);
  /// False where that can't be told.
  bool SetPlace(journal::Place& place, std::string_view path);
  std::optional<std::uint32_t> FolderNumber(std::string_view folder);
  void Forget(std::string_view path);

  FileSystem& files_;
  journal::Sink& sink_;
  const MayMove may_move_;
  std::map<std::string, std::uint32_t, std::less<>> folders_;  ///< by text, with the separator
  /// Of `folders_` the one that was asked last; most operations stay where the last one was.
  const std::pair<const std::string, std::uint32_t>* last_folder_ = nullptr;
  journal::Operation operation_;  ///< told last; kept, so that its names have their memory
  bool told_whole_ = false;       ///< of the operation under way, the copy that it makes
  FileIdentity made_;             ///< and what it made otherwise
  int refused_ = 0;
};

/// Services of a pass that is told to a journal.
struct JournaledServices {
  /// All outlive it. Whenever events run, `before_events` is called first.
  JournaledServices(const Services& plain, journal::Sink& sink, std::function<void()> before_events,
                    JournaledFiles::MayMove may_move = {});

  const Services& Get() const { return services_; }

 private:
  JournaledFiles files_;
  PumpWith pump_;
  Services services_;
};
