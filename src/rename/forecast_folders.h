#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files.h"

/// The folders that a forecast meets, each by one number however its path is written: those of the
/// disk, and those that the run would make.
class ForecastFolders {
 public:
  static constexpr int kNone = -1;

  explicit ForecastFolders(FileSystem& files) : files_(files) {}

  /// The folder that `path`, with or without its closing separator, leads to; kNone when it leads
  /// to none.
  int Of(std::string_view path);

  /// From now on `name` is a folder in `parent`.
  void Make(int parent, std::string_view name);
  /// The made folder of that name in `parent`, else kNone.
  int Made(int parent, std::string_view name);

  /// Whether a made folder in `parent` fits the pattern (FitsPattern).
  bool MadeFits(int parent, std::string_view pattern) const;

  /// `name` in the folder, as a path of the disk; "" in a folder that is still to be made.
  std::string DiskPath(int folder, std::string_view name) const;

  /// Whether the folder takes both names for one, be something there or not.
  bool AreOne(int folder, std::string_view a, std::string_view b);

 private:
  struct Folder {
    std::string path;  ///< as the system resolves it, with its closing separator
    int parent;        ///< of a made one
    bool on_disk;
    std::optional<bool> case_blind;  ///< once it was asked
  };
  int OnDisk(std::string_view path);
  int Below(std::string_view path);
  bool IsCaseBlind(int folder);
  std::optional<bool> SeenCaseBlind(const std::string& path);

  FileSystem& files_;
  std::vector<Folder> folders_;
  std::map<std::pair<std::uint64_t, std::uint64_t>, int> by_inode_;
  std::multimap<int, std::pair<std::string, int>> made_;  ///< by parent: name and number
};
