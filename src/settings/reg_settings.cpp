#include "settings/reg_settings.h"

#include <charconv>

#include "trace/err_trace.h"

namespace mRegSettings {

std::int32_t ToInteger(std::string_view text) {
  std::int32_t value = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, value);
  if (error == std::errc::invalid_argument || rest != end) {
    throw Failure(kTypeMismatch, "Type mismatch");
  }
  if (error == std::errc::result_out_of_range) throw Failure(kOverflow, "Overflow");
  return value;
}

std::int16_t ToShort(std::int64_t number) {
  if (number != static_cast<std::int16_t>(number)) throw Failure(kOverflow, "Overflow");
  return static_cast<std::int16_t>(number);
}

std::string ReadText(SettingsStore& store, const Setting& setting) {
  return ErrTrace::inner(
      "mRegSettings.ReadText(section,key)", ErrTrace::args(setting.section, setting.key), [&] {
        std::string value = store.GetSetting(setting.section, setting.key, setting.default_text);
        if (value.size() > kLongestText) {
          throw Failure(kInvalidPropertyValue, "Invalid property value");
        }
        return value;
      });
}

std::int32_t ReadInteger(SettingsStore& store, const Setting& setting) {
  const std::string value = ReadText(store, setting);
  return ErrTrace::inner("mRegSettings.ReadInteger(section,key,value)",
                         ErrTrace::args(setting.section, setting.key, value),
                         [&] { return ToInteger(value); });
}

std::int32_t ReadInteger(SettingsStore& store, const Setting& setting, std::int32_t least,
                         std::int32_t most) {
  const std::int32_t value = ReadInteger(store, setting);
  return ErrTrace::inner("mRegSettings.CheckRange(section,key,value)",
                         ErrTrace::args(setting.section, setting.key, value), [&] {
                           if (value < least || value > most) {
                             throw Failure(kInvalidPropertyValue, "Invalid property value");
                           }
                           return value;
                         });
}

bool ReadCheck(SettingsStore& store, const Setting& setting) {
  return ReadInteger(store, setting, 0, 1) == 1;
}

void DeleteSetting(SettingsStore& store, std::string_view section, std::string_view key) {
  ErrTrace::inner("mRegSettings.DeleteSetting(section,key)", ErrTrace::args(section, key), [&] {
    if (!store.DeleteSetting(section, key)) {
      throw Failure(kInvalidCall, "Invalid procedure call or argument");
    }
  });
}

void DeleteSetting(SettingsStore& store, std::string_view section) {
  ErrTrace::inner("mRegSettings.DeleteSetting(section)", ErrTrace::args(section), [&] {
    if (!store.DeleteSetting(section)) {
      throw Failure(kInvalidCall, "Invalid procedure call or argument");
    }
  });
}

void Flush(SettingsStore& store) {
  ErrTrace::inner("mRegSettings.Flush", [&] {
    const StoreProblem problem = store.Flush();
    if (problem) throw Failure(kPathFileAccess, problem.text, problem.error);
  });
}

void CheckReadable(SettingsStore& store) {
  ErrTrace::inner("mRegSettings.CheckReadable", [&] {
    const StoreProblem problem = store.ReadProblem();
    if (problem) throw Failure(kPathFileAccess, problem.text, problem.error);
  });
}

void SaveVersion(SettingsStore& store, const ProgramVersion& version, std::string_view app_path) {
  ErrTrace::inner("mRegSettings.SaveVersion", [&] {
    const auto save = [&](std::string_view section, std::string_view key, std::string_view value) {
      if (store.GetSetting(section, key, "") != value) store.SaveSetting(section, key, value);
    };
    save("Version", "Major", std::to_string(version.Major));
    save("Version", "Minor", std::to_string(version.Minor));
    save("Version", "Revision", std::to_string(version.Revision));
    save("Path", "AppPath", app_path);
    Flush(store);
  });
}

}  // namespace mRegSettings
