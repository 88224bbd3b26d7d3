#include "platform/journal_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <filesystem>
#include <mutex>

#include "platform/posix/syscalls.h"

namespace {

/// Not more often: each one makes the disk write down all renames up to then too.
constexpr std::chrono::milliseconds kBetweenSyncs(500);

bool IsOwn(const struct stat& facts, mode_t kind) {
  return (facts.st_mode & S_IFMT) == kind && facts.st_uid == ::geteuid();
}

/// The folder, not reached through a link of its name, if nobody else can put files there.
FileHandle OpenFolder(const std::string& path) {
  FileHandle handle(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat facts;
  if (!handle || ::fstat(handle.get(), &facts) != 0) return {};
  if (IsOwn(facts, S_IFDIR) && (facts.st_mode & (S_IWGRP | S_IWOTH)) == 0) return handle;
  errno = EPERM;
  return {};
}

/// Folders of the user's state are the user's alone: freedesktop's base directories tell to make
/// what is missing with mode 0700.
void MakeFolders(const std::filesystem::path& path) {
  if (path.has_parent_path() && path.parent_path() != path) {
    struct stat facts;
    if (::stat(path.parent_path().c_str(), &facts) != 0) MakeFolders(path.parent_path());
  }
  ::mkdir(path.c_str(), 0700);
}

bool IsOwnAlone(const struct stat& facts) {
  return IsOwn(facts, S_IFREG) && facts.st_nlink == 1 && (facts.st_mode & 0077) == 0;
}

/// 0, or errno when another has it. Where there are no locks, none is needed (flock(2)).
int Lock(int file) {
  const int error = ErrorOf([&] { return ::flock(file, LOCK_EX | LOCK_NB); });
  return error == EWOULDBLOCK ? error : 0;
}

/// What the thread that syncs has in common with the journal; it may outlive it, on a disk that
/// doesn't answer.
struct Shared {
  FileHandle file, folder;
  std::mutex mutex;
  std::condition_variable changed;
  bool wanted = false, ended = false;
};

void SyncUntilEnded(const std::shared_ptr<Shared>& shared) {
  ::fsync(shared->folder.get());  // a new name is on the disk only then (fsync(2), Notes)
  std::unique_lock lock(shared->mutex);
  for (;;) {
    shared->changed.wait(lock, [&] { return shared->wanted || shared->ended; });
    if (shared->ended) return;
    shared->wanted = false;
    lock.unlock();
    ::fdatasync(shared->file.get());
    lock.lock();
    shared->changed.wait_for(lock, kBetweenSyncs, [&] { return shared->ended; });
  }
}

/// A machine that has no thread left goes without.
void StartThread(const std::shared_ptr<Shared>& shared) {
  auto held = std::make_unique<std::shared_ptr<Shared>>(shared);
  pthread_t thread;
  const auto run = [](void* taken) -> void* {
    const std::unique_ptr<std::shared_ptr<Shared>> own(
        static_cast<std::shared_ptr<Shared>*>(taken));
    SyncUntilEnded(*own);
    return nullptr;
  };
  if (::pthread_create(&thread, nullptr, run, held.get()) != 0) return;
  held.release();
  ::pthread_detach(thread);
}

class PosixJournalFile final : public JournalFile {
 public:
  PosixJournalFile(FileHandle file, FileHandle folder, std::string name, std::uint64_t size)
      : shared_(std::make_shared<Shared>()), name_(std::move(name)), size_(size) {
    shared_->file = std::move(file);
    shared_->folder = std::move(folder);
  }
  PosixJournalFile& operator=(PosixJournalFile&&) = delete;
  ~PosixJournalFile() override {
    // The lock goes at once, and not when the thread has seen the end.
    ::flock(File(), LOCK_UN);
    const std::lock_guard lock(shared_->mutex);
    shared_->ended = true;
    shared_->changed.notify_all();
  }

  bool Append(std::string_view bytes) override {
    const ssize_t done = Uninterrupted([&] { return ::write(File(), bytes.data(), bytes.size()); });
    if (done == static_cast<ssize_t>(bytes.size())) {
      size_ += bytes.size();
      return true;
    }
    const int error = done < 0 ? errno : ENOSPC;
    if (done > 0) CutTo(size_);
    errno = error;
    return false;
  }

  void Sync() override {
    if (!begun_) {
      begun_ = true;
      StartThread(shared_);
    }
    const std::lock_guard lock(shared_->mutex);
    shared_->wanted = true;
    shared_->changed.notify_all();
  }

  std::uint64_t Size() const override { return size_; }

  std::string Read(std::uint64_t at, std::size_t size) const override {
    std::string bytes(size, '\0');
    const ssize_t got =
        Uninterrupted([&] { return ::pread(File(), bytes.data(), size, static_cast<off_t>(at)); });
    bytes.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return bytes;
  }

  bool CutTo(std::uint64_t size) override {
    if (ErrorOf([&] { return ::ftruncate(File(), static_cast<off_t>(size)); }) != 0) return false;
    size_ = size;
    return true;
  }

  bool Remove() override {
    struct stat here, open;
    const int folder = shared_->folder.get();
    const bool is_it = ::fstatat(folder, name_.c_str(), &here, AT_SYMLINK_NOFOLLOW) == 0 &&
                       ::fstat(File(), &open) == 0 && here.st_dev == open.st_dev &&
                       here.st_ino == open.st_ino;
    return is_it && ::unlinkat(folder, name_.c_str(), 0) == 0;
  }

 private:
  int File() const { return shared_->file.get(); }

  const std::shared_ptr<Shared> shared_;
  const std::string name_;
  std::uint64_t size_;
  bool begun_ = false;
};

std::unique_ptr<JournalFile> Own(FileHandle file, FileHandle folder, const std::string& name) {
  struct stat facts;
  if (::fstat(file.get(), &facts) != 0) return nullptr;
  errno = EPERM;
  if (!IsOwnAlone(facts)) return nullptr;
  errno = Lock(file.get());
  if (errno != 0) return nullptr;
  return std::make_unique<PosixJournalFile>(std::move(file), std::move(folder), name,
                                            static_cast<std::uint64_t>(facts.st_size));
}

}  // namespace

std::string JournalFolder() {
  const auto absolute = [](const char* variable) -> std::string {
    const char* value = std::getenv(variable);
    return value != nullptr && *value == '/' ? value : "";
  };
  std::string folder = absolute("XDG_STATE_HOME");
  if (!folder.empty()) return folder + "/Quorvane";
  folder = absolute("HOME");
  return folder.empty() ? "" : folder + "/.local/state/Quorvane";
}

std::unique_ptr<JournalFile> JournalFile::Make(const std::string& folder, const std::string& name) {
  MakeFolders(folder);
  FileHandle handle = OpenFolder(folder);
  if (!handle) return nullptr;
  constexpr int kHow = O_RDWR | O_APPEND | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  FileHandle file(Uninterrupted([&] { return ::openat(handle.get(), name.c_str(), kHow, 0600); }));
  if (!file) return nullptr;
  return Own(std::move(file), std::move(handle), name);
}

/// What is no file isn't opened: a fifo can wait for ever, and a device do anything.
std::unique_ptr<JournalFile> JournalFile::Take(const std::string& path) {
  const std::filesystem::path whole = path;
  const std::string name = whole.filename();
  FileHandle folder = OpenFolder(whole.parent_path());
  struct stat facts;
  if (!folder || ::fstatat(folder.get(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0) {
    return nullptr;
  }
  errno = EPERM;
  if (!IsOwnAlone(facts)) return nullptr;
  constexpr int kHow = O_RDWR | O_APPEND | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  FileHandle file(Uninterrupted([&] { return ::openat(folder.get(), name.c_str(), kHow); }));
  return file ? Own(std::move(file), std::move(folder), name) : nullptr;
}

std::vector<std::string> JournalFile::Names(const std::string& folder, std::string_view ending) {
  std::vector<std::string> names;
  FileHandle handle = OpenFolder(folder);
  const int listed = handle ? ::fcntl(handle.get(), F_DUPFD_CLOEXEC, 0) : -1;
  DIR* const entries = listed == -1 ? nullptr : ::fdopendir(listed);
  if (entries == nullptr) return names;
  while (const struct dirent* entry = ::readdir(entries)) {
    std::string name = entry->d_name;
    if (name.ends_with(ending)) names.push_back(std::move(name));
  }
  ::closedir(entries);
  return names;
}
