#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/folders.h"
#include "platform/shell.h"
#include "platform/system_facts.h"
#include "trace/failure.h"

/// A machine of which all is known, unless a test takes it away.
class FakeSystemFacts : public SystemFacts {
 public:
  LocalTime Now() override {
    if (broken) throw Failure(kTypeMismatch, "no clock");
    return {2024, 3, 9, 7, 5, 2};
  }
  std::string ComputerName() override { return "attic"; }
  SystemName System() override { return {"Test System 1", "2.3", "patch 4"}; }
  std::string ProgramPath() override { return "/opt/q/quorvane"; }
  std::optional<std::uint64_t> ProgramSize() override { return program_size; }
  std::string ProgramVersion() override { return "1.2.3"; }
  std::optional<std::uint64_t> FreeBytes(std::string_view path) override {
    if (broken) throw Failure(kTypeMismatch, "no volume");
    return path == "/" ? free_bytes : std::nullopt;
  }
  std::optional<std::uint32_t> VolumeSerial(std::string_view) override { return 0x00AB12CD; }
  std::optional<std::string> FileSystemName(std::string_view) override { return "ext4"; }

  std::optional<std::uint64_t> program_size = 1234567;
  std::optional<std::uint64_t> free_bytes = 1536001;
  bool broken = false;
};

class FakeFolders : public Folders {
 public:
  explicit FakeFolders(std::string documents) : documents_(std::move(documents)) {}
  std::string Documents() override { return documents_; }

 private:
  std::string documents_;
};

/// Writes down what it is asked for.
class FakeShell : public Shell {
 public:
  ShellResult ShowInFolder(std::string_view path) override { return Take("show ", path); }
  ShellResult OpenFile(std::string_view path) override { return Take("open ", path); }
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
