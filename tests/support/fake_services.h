#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/services.h"
#include "platform/system_facts.h"
#include "support/memory_files.h"
#include "support/memory_settings.h"
#include "trace/failure.h"

/// A clock that moves only when it is told to, or by a step at each look.
struct FakeClock : Clock {
  std::int64_t Milliseconds() override { return now_ms += step_ms; }
  LocalTime Now() override { return {2024, 3, 9, 7, 5, 2}; }
  std::optional<LocalTime> ToLocal(std::int64_t unix_seconds) override {
    return LocalTime{2000 + static_cast<int>(unix_seconds), 1, 2, 3, 4, 5};
  }

  std::int64_t now_ms = 0, step_ms = 0;
};

/// Counts how often events ran, and does what a user would do at that moment.
struct FakeEvents : EventPump {
  void LetEventsRun() override {
    ++count;
    if (on_events) on_events();
  }

  int count = 0;
  std::function<void()> on_events;
};

struct FakePrompts : Prompts {
  void Tell(std::string_view message, PromptIcon icon) override {
    told.emplace_back(message);
    icons += icon == PromptIcon::kCritical ? 'x' : '!';
    if (on_tell) on_tell();
  }
  bool Ask(std::string_view question, PromptIcon icon) override {
    return Tell(question, icon), answer;
  }
  PromptAnswer AskOrCancel(std::string_view title, std::string_view question,
                           PromptIcon icon) override {
    return Tell(std::string(title).append(": ").append(question), icon), stop_answer;
  }

  std::vector<std::string> told;
  std::function<void()> on_tell;
  bool answer = false;  ///< to a question: Yes
  PromptAnswer stop_answer = PromptAnswer::kNo;
  std::string icons;  ///< of each, '!' an exclamation mark, 'x' a stop sign
};

struct FakeTypeNames : TypeNames {
  std::string TypeName(std::string_view extension) override {
    return extension == ".txt" ? "Text file" : "";
  }
};

/// English numbers, German months: one has a letter beyond ASCII.
struct PlainLocale : LocaleFacts {
  std::string MonthName(int month) const override {
    return month == 1 ? "Januar" : month == 2 ? "Februar" : month == 3 ? "März" : "Monat";
  }
  std::string ShortMonthName(int month) const override {
    return MonthName(month).substr(0, month == 3 ? 4 : 3);
  }
  std::string DecimalPoint() const override { return "."; }
  std::string ThousandsSeparator() const override { return ","; }
};

/// A machine of which all is known, unless a test takes it away.
struct FakeSystemFacts : SystemFacts {
  std::vector<std::string> SystemFolders() override { return system_folders; }
  LocalTime Now() override {
    return broken ? throw Failure(kTypeMismatch, "no clock") : LocalTime{2024, 3, 9, 7, 5, 2};
  }
  std::string ComputerName() override { return "attic"; }
  SystemName System() override { return {"Test System 1", "2.3", "patch 4"}; }
  std::string ProgramPath() override { return "/opt/q/quorvane"; }
  std::optional<std::uint64_t> ProgramSize() override { return 1234567; }
  std::string ProgramVersion() override { return "1.2.3"; }
  std::optional<std::uint64_t> FreeBytes(std::string_view path) override {
    if (broken) throw Failure(kTypeMismatch, "no volume");
    return path == "/" ? std::optional(std::uint64_t{1536001}) : std::nullopt;
  }
  std::optional<std::uint32_t> VolumeSerial(std::string_view) override { return 0x00AB12CD; }
  std::optional<std::string> FileSystemName(std::string_view) override { return "ext4"; }
  std::size_t NameBytes(std::string_view folder) override { return folder == "/out/" ? 6 : 255; }

  std::vector<std::string> system_folders;
  bool broken = false;
};

struct FakeFolders : Folders {
  std::string Documents() override { return documents; }
  std::string Home() override { return "/home/me"; }
  std::string documents;
};

/// Writes down what it is asked for.
class FakeShell : public Shell {
 public:
  void ShowInFolder(std::string_view path, const ShellAnswer& to) override {
    to(Take("show ", path));
  }
  void ShowProperties(std::string_view path, const ShellAnswer& to) override {
    to(Take("properties ", path));
  }
  void OpenFile(std::string_view path, const ShellAnswer& to) override { to(Take("open ", path)); }
  ShellResult OpenLink(std::string_view link) override { return Take("link ", link); }

  ShellResult answer = kShellDone;
  bool broken = false;
  std::vector<std::string> asked;

 private:
  ShellResult Take(std::string what, std::string_view where) {
    if (broken) throw Failure(kTypeMismatch, "no desktop");
    asked.push_back(what.append(where));
    return answer;
  }
};

/// A whole system in memory, each part to be set and asked by the test; handed on as `services`.
struct FakeServices {
  MemoryFiles files;
  FakeClock clock;
  FakeSystemFacts facts;
  FakeEvents events;
  PlainLocale locale;
  FakeTypeNames type_names;
  FakeFolders folders;
  FakePrompts prompts;
  FakeShell shell;
  MemorySettings settings;

  /// The same system over other files, by another clock or in another language.
  Services With(FileSystem& its_files, Clock& its_clock, LocaleFacts& its_locale) {
    return {its_files,  its_clock, facts,   events, its_locale,
            type_names, folders,   prompts, shell,  settings};
  }

  Services services = With(files, clock, locale);
};
