#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/settings_store.h"

/// A store without a disk, which notes the order of the writes.
struct MemorySettings : SettingsStore {
  std::string GetSetting(std::string_view section, std::string_view key,
                         std::string_view default_text = {}) override {
    read.push_back(std::string(key));
    const auto found = values.find({std::string(section), std::string(key)});
    return found == values.end() ? std::string(default_text) : found->second;
  }

  void SaveSetting(std::string_view section, std::string_view key,
                   std::string_view value) override {
    written.push_back(std::string(key) + "=" + std::string(value));
    values[{std::string(section), std::string(key)}] = value;
  }

  [[nodiscard]] bool DeleteSetting(std::string_view section, std::string_view key) override {
    return values.erase({std::string(section), std::string(key)}) > 0;
  }

  [[nodiscard]] bool DeleteSetting(std::string_view section) override {
    const auto is_in = [&](const auto& entry) {
      return (entry.first.first + "\\").starts_with(std::string(section) + "\\");
    };
    return std::erase_if(values, is_in) > 0;
  }

  [[nodiscard]] StoreProblem Flush() override { return ++flushes, problem; }
  [[nodiscard]] bool CanBeRead() const override { return true; }
  [[nodiscard]] StoreProblem ReadProblem() override { return problem; }

  std::map<std::pair<std::string, std::string>, std::string> values;
  std::vector<std::string> read;     ///< keys, in the order of the reads
  std::vector<std::string> written;  ///< "key=text", in the order of the writes
  int flushes = 0;
  StoreProblem problem;
};
