#pragma once

#include <QSettings>
#include <string>
#include <string_view>

#include "platform/settings_store.h"

/// The store over the platform's own: on freedesktop systems the file
/// `$XDG_CONFIG_HOME/Quorvane/Quorvane.conf` (~/.config when that isn't set), elsewhere what
/// QSettings takes as native.
///
/// A file with lines that aren't settings, or whose last line is cut, is damaged: what can be read
/// is used, and the first change keeps a copy beside the file, "Quorvane.conf.damaged" (with a
/// number behind it when that name is taken). Where no copy can be made the file isn't written.
class QtSettingsStore : public SettingsStore {
 public:
  QtSettingsStore();

  std::string GetSetting(std::string_view section, std::string_view key,
                         std::string_view default_text = {}) override;
  void SaveSetting(std::string_view section, std::string_view key, std::string_view value) override;
  [[nodiscard]] bool DeleteSetting(std::string_view section, std::string_view key) override;
  [[nodiscard]] bool DeleteSetting(std::string_view section) override;
  [[nodiscard]] std::string Flush() override;
  [[nodiscard]] std::string ReadProblem() override;

 private:
  bool MayChange();

  QSettings settings_;
  bool looked_at_ = false;  ///< since the last Flush the file was seen to be sound or copied
  std::string refused_;     ///< why a change since then was not taken
};
