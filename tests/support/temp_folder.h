#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

/// A new empty folder, gone with all that is in it at the end. Helpers take names relative to it.
class TempFolder {
 public:
  /// In TMPDIR or /tmp unless `parent` is given.
  explicit TempFolder(std::string parent = {}) {
    if (parent.empty()) parent = std::filesystem::temp_directory_path().string();
    path_ = parent + "/qv-test-XXXXXX";
    if (::mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no folder in " + parent);
  }
  TempFolder& operator=(TempFolder&&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::string& path() const { return path_; }
  /// The path of `name` in here; with a closing separator for "".
  std::string operator/(std::string_view name) const { return path_ + '/' + std::string(name); }

  void Write(std::string_view name, std::string_view content) const {
    std::ofstream file(*this / name, std::ios::binary | std::ios::trunc);
    file << content;
    ASSERT_TRUE(file.flush()) << name;
  }

  /// Nothing when it can't be read.
  std::optional<std::string> Read(std::string_view name) const {
    std::ifstream file(*this / name, std::ios::binary);
    if (!file) return std::nullopt;
    std::stringstream content;  // in large pieces: a test may read many megabytes
    content << file.rdbuf();
    return content.str();
  }

  void MakeFolder(std::string_view name) const {
    ASSERT_EQ(::mkdir((*this / name).c_str(), 0755), 0) << name;
  }

  void MakeLink(std::string_view name, const std::string& leads_to) const {
    ASSERT_EQ(::symlink(leads_to.c_str(), (*this / name).c_str()), 0) << name;
  }

  /// Whether anything has that name, a dangling link included.
  bool Has(std::string_view name) const { return Facts(name).st_nlink > 0; }

  /// What lstat tells; all 0 when there is nothing.
  struct stat Facts(std::string_view name) const {
    struct stat facts = {};
    ::lstat((*this / name).c_str(), &facts);
    return facts;
  }

  /// The names of all entries of the subfolder, sorted, temporary ones included.
  std::vector<std::string> List(std::string_view subfolder = {}) const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(*this / subfolder)) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }

  /// All that is in here, by name: contents, "/" for a folder, "-> target" for a link.
  std::map<std::string, std::string> Everything() const {
    std::map<std::string, std::string> all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path_)) {
      const std::string name = entry.path().string().substr(path_.size() + 1);
      all[name] = entry.is_symlink()     ? "-> " + std::filesystem::read_symlink(entry).string()
                  : entry.is_directory() ? "/"
                                         : Read(name).value_or("unreadable");
    }
    return all;
  }

 private:
  std::string path_;
};
