#pragma once

#include <QSettings>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "platform/settings_store.h"

/// The file of the settings: `$XDG_CONFIG_HOME/Quorvane/Quorvane.conf`, in ~/.config when that
/// isn't set to an absolute path.
QString SettingsPath();

/// The store over one file; a link that leads to it stays a link.
///
/// A file with lines that aren't settings, or whose last line is cut, is damaged: what can be read
/// is used, and the first change keeps a copy beside the file, "Quorvane.conf.damaged" (with a
/// number behind it when that name is taken). Where no copy can be made the file isn't written.
/// What is no file (a folder, a fifo, a device) is neither opened nor written.
class QtSettingsStore : public SettingsStore {
 public:
  explicit QtSettingsStore(const QString& path = SettingsPath());

  std::string GetSetting(std::string_view section, std::string_view key,
                         std::string_view default_text = {}) override;
  void SaveSetting(std::string_view section, std::string_view key, std::string_view value) override;
  [[nodiscard]] bool DeleteSetting(std::string_view section, std::string_view key) override;
  [[nodiscard]] bool DeleteSetting(std::string_view section) override;
  [[nodiscard]] StoreProblem Flush() override;
  [[nodiscard]] bool CanBeRead() const override { return can_be_read_; }
  [[nodiscard]] StoreProblem ReadProblem() override;

 private:
  bool Holds(const QString& name) const;
  StoreProblem Write();
  StoreProblem News(const StoreProblem& problem);

  QString path_;
  bool can_be_read_ = false;
  std::optional<QSettings> file_;  ///< for reading; none while there is nothing to open
  /// What the file does not hold yet, by the full name; nothing for a deleted key.
  std::map<QString, std::optional<QString>> changes_;
  std::set<std::pair<int, std::string>> told_;  ///< causes; the text of those without an errno
};
