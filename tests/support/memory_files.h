#pragma once

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/name_pattern.h"

/// A file system in memory: paths and their contents. Refuses what the real one refuses, counts
/// its calls, and fails those that a test names. A copy that was written to, or another file in its
/// place, is told from the one that was made by its content.
class MemoryFiles : public FileSystem {
 public:
  std::map<std::string, std::string> contents;
  std::set<std::string> folders;
  std::function<bool(std::string_view operation, std::string_view path)> fails;
  std::function<void()> in_copy;  ///< what happens between the pieces of a copy
  int exists_calls = 0;
  int problem = 0;  ///< of the last List; those of the folders in `locked` are EACCES
  std::set<std::string> locked;

  bool Exists(std::string_view path) override {
    ++exists_calls;
    const std::string_view folder = path.substr(0, path.rfind('/') + 1);
    const std::string_view name = path.substr(folder.size());
    if (!HasWildcards(name)) return IsThere(path);
    const auto fits = [&](std::string_view other) {
      return other.starts_with(folder) && other.rfind('/') + 1 == folder.size() &&
             FitsPattern(other.substr(folder.size()), name);
    };
    return std::any_of(folders.begin(), folders.end(), fits) ||
           std::any_of(contents.begin(), contents.end(),
                       [&](const auto& file) { return fits(file.first); });
  }

  std::optional<FileFacts> Look(std::string_view path) override {
    if (path == "/") return FileFacts{EntryKind::kFolder, 0, 0};
    const auto found = contents.find(std::string(path));
    if (found == contents.end()) return std::nullopt;
    return FileFacts{EntryKind::kFile, found->second.size(), 1'000'000'000};
  }

  std::optional<FolderIdentity> IdentifyFolder(std::string_view path) override {
    if (path.ends_with('/')) path.remove_suffix(1);
    if (!folders.contains(std::string(path))) return std::nullopt;
    return FolderIdentity{1, std::hash<std::string_view>()(path), 0};
  }
  void ExpectFolder(std::string_view, const FolderIdentity&) override {}
  std::string ResolveFolder(std::string_view path) override { return std::string(path); }
  bool IsSameEntry(std::string_view a, std::string_view b) override { return a == b && IsThere(a); }
  bool IsVeryFile(std::string_view path, const FileIdentity& file) override {
    return contents.contains(std::string(path)) && Identity(std::string(path)) == file;
  }

  bool List(std::string_view path, const GoOn& go_on, FolderEntries& entries) override {
    const std::string listed(path.substr(0, path.size() - 1));
    problem = locked.contains(listed) ? EACCES : folders.contains(listed) ? 0 : ENOENT;
    if (problem != 0) return false;
    const auto add = [&](const std::string& entry, EntryKind kind) {
      if (!entry.starts_with(path) || entry.find('/', path.size()) != entry.npos) return;
      entries.entries.push_back({std::string_view(entry).substr(path.size()), kind});
    };
    for (const std::string& folder : folders) add(folder, EntryKind::kFolder);
    for (const auto& [file, content] : contents) add(file, EntryKind::kFile);
    return go_on();
  }

  bool MoveFile(std::string_view from, std::string_view to, const GoOn&) override {
    const auto source = contents.find(std::string(from));
    if (Fails("move", from) || source == contents.end()) return false;
    if (from == to) return true;
    if (!Fits(to)) return false;
    contents[std::string(to)] = source->second;
    inodes_[std::string(to)] = std::exchange(inodes_[source->first], 0);
    contents.erase(source);
    return true;
  }

  bool CopyFile(std::string_view from, std::string_view to, const GoOn& go_on,
                CopyIdentities* copied) override {
    const auto source = contents.find(std::string(from));
    if (Fails("copy", from) || source == contents.end() || !Fits(to)) return false;
    if (in_copy) in_copy();
    if (!go_on()) return false;
    contents[std::string(to)] = source->second;
    inodes_[std::string(to)] = ++last_inode_;
    if (copied != nullptr) {
      *copied = {Identity(std::string(from)), Identity(std::string(to))};
    }
    return true;
  }

  bool DeleteMadeFile(std::string_view path, const FileIdentity& made) override {
    return IsVeryFile(path, made) && contents.erase(std::string(path)) > 0;
  }
  int Problem() const override { return problem; }
  bool CreateDirectory(std::string_view path) override {
    if (path.starts_with('/') && !Fits(path)) return false;
    return folders.insert(std::string(path)).second;
  }
  bool DeleteMadeFolder(std::string_view path, const FolderIdentity& made) override {
    const auto inside = [&](const std::string& entry) {
      return entry.size() > path.size() && entry.starts_with(path) && entry[path.size()] == '/';
    };
    return IdentifyFolder(path) == made && std::none_of(folders.begin(), folders.end(), inside) &&
           std::none_of(contents.begin(), contents.end(),
                        [&](const auto& file) { return inside(file.first); }) &&
           folders.erase(std::string(path)) > 0;
  }

 private:
  bool Fails(std::string_view operation, std::string_view path) {
    return fails && fails(operation, path);
  }
  bool IsThere(std::string_view path) const {
    return contents.contains(std::string(path)) || folders.contains(std::string(path));
  }
  bool Fits(std::string_view to) const {
    return !to.ends_with('/') && !IsThere(to) &&
           folders.contains(std::string(to.substr(0, to.rfind('/'))));
  }
  FileIdentity Identity(const std::string& path) {
    const std::string& content = contents[path];
    return {1, inodes_[path], content.size(),
            static_cast<std::int64_t>(std::hash<std::string>()(content))};
  }

  std::map<std::string, std::uint64_t> inodes_;  ///< of the copies, 0 for every other file
  std::uint64_t last_inode_ = 0;
};
