#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"

/// How the system names itself.
struct SystemName {
  std::string name;   ///< with its version
  std::string build;  ///< of its kernel
  std::string pack;   ///< what was added to that build
};

/// What most file systems take.
inline constexpr std::size_t kUsualNameBytes = 255;

/// What is known of the machine and of the running program, for its guards and reports. A fact that
/// can't be had is an empty text or nothing.
class SystemFacts {
 public:
  virtual ~SystemFacts() = default;

  /// Whether the program supports this system; so it is on every one that it is built for.
  virtual bool IsSupported() { return true; }

  /// The folders that belong to the system itself and are there, without a closing separator.
  virtual std::vector<std::string> SystemFolders() = 0;

  virtual LocalTime Now() = 0;
  virtual std::string ComputerName() = 0;
  virtual SystemName System() = 0;

  /// The path of the program's file, and its size in bytes.
  virtual std::string ProgramPath() = 0;
  virtual std::optional<std::uint64_t> ProgramSize() = 0;
  /// Major, minor and revision number, parted by points.
  virtual std::string ProgramVersion() = 0;

  /// Of the volume that holds `path`: the bytes that this user may still fill, a number that
  /// tells it from other volumes, and the name of its kind of file system.
  virtual std::optional<std::uint64_t> FreeBytes(std::string_view path) = 0;
  virtual std::optional<std::uint32_t> VolumeSerial(std::string_view path) = 0;
  virtual std::optional<std::string> FileSystemName(std::string_view path) = 0;

  /// How many bytes a name may have in `folder`, or in the nearest one above it that is there;
  /// `kUsualNameBytes` where that can't be known.
  virtual std::size_t NameBytes(std::string_view folder) = 0;
};

/// The facts of this machine.
std::unique_ptr<SystemFacts> MakeSystemFacts();
