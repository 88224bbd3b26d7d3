#pragma once

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <functional>
#include <map>
#include <ranges>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files.h"
#include "platform/name_pattern.h"
#include "platform/text.h"

/// A file system in memory: paths and their contents. Refuses what the real one refuses. A file
/// that was written to, or another in its place, is told by its content.
class MemoryFiles : public FileSystem {
 public:
  std::map<std::string, std::string> contents;
  std::set<std::string> folders;
  std::map<std::string, std::string> folder_links;  ///< entries that lead to a folder, and which
  bool case_blind = false;                          ///< takes "a" and "A" for one name
  std::function<bool(std::string_view operation, std::string_view path)> fails;
  std::function<void()> in_copy;  ///< what happens between the pieces of a copy
  int exists_calls = 0;
  std::set<std::string> locked;  ///< folders that can't be listed

  /// `path` with its folder as it is stored, and its name too if something is there.
  std::string Real(std::string_view path) const {
    const bool is_way = path.ends_with("/.") || path.ends_with("/..");
    return is_way ? RealFolder(path) : Stored(Target(path));
  }

  bool Exists(std::string_view path) override {
    ++exists_calls;
    const std::string_view name = path.substr(path.rfind('/') + 1);
    if (name == "." || name == "..") return true;
    if (IsThere(Real(path))) return true;
    if (!HasWildcards(name)) return false;
    const std::string folder = RealFolder(path.substr(0, path.size() - name.size())) + "/";
    return AnyEntry([&](std::string_view other) {
      return other.starts_with(folder) && other.rfind('/') + 1 == folder.size() &&
             FitsPattern(other.substr(folder.size()), name);
    });
  }

  std::optional<FileFacts> Look(std::string_view path) override {
    const std::string real = Real(path);
    if (path == "/" || folders.contains(real)) return FileFacts{EntryKind::kFolder, 0, 0};
    if (!contents.contains(real)) return {};
    return FileFacts{EntryKind::kFile, contents[real].size(), 1'000'000'000, PrintOf(real)};
  }

  std::optional<FileIdentity> Identify(std::string_view path) override {
    const std::string real = Real(path);
    if (!contents.contains(real)) return {};
    return Identity(real);
  }

  std::optional<FolderIdentity> IdentifyFolder(std::string_view path) override {
    const std::string real = RealFolder(path);
    if (!folders.contains(real)) return std::nullopt;
    return FolderIdentity{1, std::hash<std::string>()(real), made_[real]};
  }
  void ExpectFolder(std::string_view, const FolderIdentity&) override {}
  void WatchCopies(const CopyWatch&) override {}
  std::string ResolveFolder(std::string_view path) override {
    const std::size_t name = path.rfind('/') + 1;
    const std::string real = RealFolder(path.substr(0, name));
    return folders.contains(real) ? (real + "/").append(path.substr(name)) : std::string(path);
  }
  bool IsSameEntry(std::string_view a, std::string_view b) override {
    const std::string real = Real(a);
    return real == Real(b) && IsThere(real);
  }
  bool IsVeryFile(std::string_view path, const FileIdentity& file) override {
    const std::string real = Real(path);
    return contents.contains(real) && Identity(real) == file;
  }

  bool List(std::string_view path, const GoOn& go_on, FolderEntries& entries) override {
    const std::string listed(path.substr(0, path.size() - 1));
    if (locked.contains(listed)) return No(EACCES);
    if (!folders.contains(listed)) return No(ENOENT);
    const auto add = [&](const std::string& entry, EntryKind kind) {
      if (!entry.starts_with(path) || entry.find('/', path.size()) != entry.npos) return;
      entries.entries.push_back({std::string_view(entry).substr(path.size()), kind});
    };
    for (const std::string& folder : folders) add(folder, EntryKind::kFolder);
    for (const auto& [file, content] : contents) add(file, EntryKind::kFile);
    return go_on();
  }

  using FileSystem::MoveFile;
  bool MoveFile(std::string_view from, std::string_view to, const GoOn&,
                Fingerprint* moved) override {
    const auto source = contents.find(Real(from));
    if (Fails("move", from)) return No(EIO);
    if (source == contents.end()) return No(ENOENT);
    const std::string target = Target(to);
    if (moved) *moved = PrintOf(source->first);
    if (source->first == target) return true;
    if (!IsSameEntry(from, to) && !Fits(target)) return false;
    const std::string old = source->first;
    Rekey(contents, old, target), Rekey(inodes_, old, target), Rekey(folder_links, old, target);
    return true;
  }

  /// Only what MoveFile would not have been asked, since the name is taken, is no use of it.
  Attempt RenameKnown(std::string_view from, std::string_view to, Fingerprint known) override {
    const std::string target = Real(to);
    if (known == 0 || Real(from) == target) return Attempt::kLookFirst;
    if (IsThere(target)) No(EEXIST);
    return !IsThere(target) && MoveFile(from, to, {}) ? Attempt::kDone : Attempt::kFailed;
  }

  bool CopyFile(std::string_view from, std::string_view to, const GoOn& go_on,
                CopyIdentities* copied) override {
    const std::string source = Real(from);
    const std::string target = Target(to);
    if (Fails("copy", from)) return No(EIO);
    if (!contents.contains(source) || contents[source].starts_with("-> ")) return No(ENOENT);
    if (!Fits(target)) return false;
    if (in_copy) in_copy();
    if (go_on && !go_on()) return No(ECANCELED);
    contents[target] = contents[source];
    inodes_[target] = ++last_inode_;
    if (copied != nullptr) *copied = {Identity(source), Identity(target)};
    return true;
  }

  bool DeleteMadeFile(std::string_view path, const FileIdentity& made) override {
    if (Fails("delete", path) || !IsVeryFile(path, made)) return No(kNotTheCopy);
    inodes_.erase(Real(path));
    return contents.erase(Real(path)) > 0;
  }
  bool CreateDirectory(std::string_view path) override {
    const std::string target = Target(path);
    if (Fails("create", path)) return No(EIO);
    if (path.starts_with('/') && !Fits(target)) return false;
    made_[target] = ++last_inode_;
    return folders.insert(target).second;
  }
  bool DeleteMadeFolder(std::string_view path, const FolderIdentity& made) override {
    const std::string real = Real(path);
    const auto inside = [&](const std::string& entry) { return entry.starts_with(real + "/"); };
    return !Fails("delete", path) && IdentifyFolder(path) == made && !AnyEntry(inside) &&
           folders.erase(real) > 0;
  }
  int Problem() const override { return problem_; }

 private:
  template <class Map>
  static void Rekey(Map& map, const std::string& from, const std::string& to) {
    auto node = map.extract(from);
    if (node.empty()) return;
    node.key() = to;
    map.insert(std::move(node));
  }
  bool No(int problem) {
    problem_ = problem;
    return false;
  }
  bool Fails(std::string_view operation, std::string_view path) {
    return fails && fails(operation, path);
  }
  bool IsThere(const std::string& real) const {
    return contents.contains(real) || folders.contains(real);
  }
  template <class Test>
  bool AnyEntry(const Test& test) const {
    return std::ranges::any_of(folders, test) ||
           std::ranges::any_of(std::views::keys(contents), test);
  }
  /// The entry of that name as it is stored; the name as given when there is none.
  std::string Stored(const std::string& path) const {
    if (!case_blind || IsThere(path)) return path;
    std::string stored = path;
    AnyEntry([&](const std::string& other) {
      return text::EqualIgnoringCase(other, path) && (stored = other, true);
    });
    return stored;
  }
  /// A folder's path, with or without its closing separator, as it is stored; without it.
  std::string RealFolder(std::string_view path) const {
    std::string real;
    for (const std::string_view name : text::Split(path, "/")) {
      if (name.empty() || name == ".") continue;
      const bool up = name == ".." && folders.contains(real);
      real = up ? real.substr(0, real.rfind('/')) : Stored((real + "/").append(name));
      const auto link = folder_links.find(real);
      if (link != folder_links.end()) real = link->second;
    }
    return real;
  }
  /// Where something new of that name would stand.
  std::string Target(std::string_view path) const {
    const std::size_t name = path.rfind('/') + 1;
    const bool plain = folder_links.empty() && !case_blind && path.find("/.") == path.npos;
    if (plain || name == 0) return std::string(path);
    return (RealFolder(path.substr(0, name)) + "/").append(path.substr(name));
  }
  bool Fits(const std::string& target) {
    using namespace std::string_view_literals;
    const std::size_t end = target.rfind('/');
    const std::string_view name = std::string_view(target).substr(end + 1);
    const bool is_name = name != "" && name != "." && name != ".." && name.find('\0') == name.npos;
    if (!is_name) return No(EINVAL);
    if (name.size() > 255) return No(ENAMETOOLONG);
    if (IsThere(Stored(target))) return No(EEXIST);
    return folders.contains(target.substr(0, end)) || No(ENOENT);
  }
  Fingerprint PrintOf(const std::string& real) {
    return contents[real].starts_with("-> ") ? 0 : FingerprintOf(Identity(real));
  }
  FileIdentity Identity(const std::string& real) {
    std::uint64_t& inode = inodes_[real];
    if (inode == 0) inode = ++last_inode_;
    const auto changed = static_cast<std::int64_t>(std::hash<std::string>()(contents[real]));
    return {1, inode, contents[real].size(), changed, 0};
  }

  std::map<std::string, std::uint64_t> inodes_;
  std::map<std::string, std::int64_t> made_;  ///< serials of the folders made by CreateDirectory
  std::uint64_t last_inode_ = 0;
  int problem_ = 0;
};
