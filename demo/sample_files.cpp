#include "demo/sample_files.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr const char* kNames[] = {
    "Photos/2024 Lisbon/IMG_4021.JPG",
    "Photos/2024 Lisbon/IMG_4022.JPG",
    "Photos/2024 Lisbon/IMG_4023 Breakfast at Gra\xC3\xA7"
    "a \xF0\x9F\xA5\x90.JPG",
    "Photos/2024 Lisbon/IMG_4024.JPG",
    "Photos/2024 Lisbon/IMG_4027 Tram 28.JPG",
    "Photos/2024 Lisbon/Alfama walk/IMG_4102 View from the Miradouro before the storm.JPG",
    "Photos/2024 Lisbon/Alfama walk/IMG_4103.JPG",
    "Photos/2024 Lisbon/Alfama walk/IMG_4106 Azulejos.PNG",
    "Photos/Scans/IMG_0007 Wedding.TIF",
    "Photos/Scans/Letter 1958, page 1.TIFF",
    "Songs/01 - \xC3\x89tude.MP3",
    "Songs/02 - Fado de madrugada.MP3",
    "Papers/r\xE9sum\xE9 (Latin-1).PDF",
    "Papers/Tax return 2023.PDF",
    "Papers/README",
};

std::string Printable(const std::string& name) {
  const bool is_utf8 = fs::path(name).native().find('\xE9') == std::string::npos;
  if (is_utf8) return name;
  std::string shown;
  for (const char c : name) {
    char buffer[8];
    std::snprintf(buffer, sizeof buffer, "\\x%02X", static_cast<unsigned char>(c));
    shown += (c & 0x80) != 0 ? std::string(buffer) : std::string(1, c);
  }
  return shown;
}

}  // namespace

std::string MakeSampleFiles() {
  std::string root = (fs::temp_directory_path() / "quorvane-demo-XXXXXX").string();
  if (::mkdtemp(root.data()) == nullptr) throw std::runtime_error("no folder in " + root);
  MakeSampleFilesIn(root);
  return root + "/";
}

void MakeSampleFilesIn(const std::string& folder) {
  for (const char* name : kNames) {
    const fs::path path = fs::path(folder) / name;
    fs::create_directories(path.parent_path());
    std::ofstream(path) << "This file was made as \"" << name << "\".\n";
  }
}

void PrintTree(const std::string& heading, const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_directory()) names.push_back(entry.path().string().substr(folder.size()));
  }
  std::sort(names.begin(), names.end());
  std::printf("\n%s\n", heading.c_str());
  for (const std::string& name : names) std::printf("  %s\n", Printable(name).c_str());
}
