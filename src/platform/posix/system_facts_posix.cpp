#include <limits.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <sstream>

#include "platform/build_facts.h"
#include "platform/system_facts.h"

namespace {

/// Those of the Filesystem Hierarchy Standard that hold the system and nothing of its users.
constexpr const char* kSystemFolders[] = {"/usr",   "/etc", "/boot", "/bin",  "/sbin", "/lib",
                                          "/lib64", "/opt", "/dev",  "/proc", "/sys"};

/// The value of one line NAME=value; the value may stand in quotes, with "\" before a sign that a
/// shell would take for its own (os-release(5)).
std::string Unquoted(std::string_view value) {
  if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'')) {
    value = value.substr(1, value.size() - 2);
  }
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] == '\\' && i + 1 < value.size()) ++i;
    text += value[i];
  }
  return text;
}

/// The name that the distribution gives itself for people to read.
std::string PrettyName() {
  for (const char* path : {"/etc/os-release", "/usr/lib/os-release"}) {
    std::ifstream file(path);
    constexpr std::string_view kKey = "PRETTY_NAME=";
    for (std::string line; std::getline(file, line);) {
      if (line.starts_with(kKey)) return Unquoted(std::string_view(line).substr(kKey.size()));
    }
  }
  return {};
}

std::optional<struct statvfs> Volume(std::string_view path) {
  struct statvfs facts = {};
  if (::statvfs(std::string(path).c_str(), &facts) != 0) return std::nullopt;
  return facts;
}

class PosixSystemFacts final : public SystemFacts {
 public:
  std::vector<std::string> SystemFolders() override {
    std::vector<std::string> folders;
    for (const char* path : kSystemFolders) {
      if (::access(path, F_OK) == 0) folders.emplace_back(path);
    }
    return folders;
  }

  LocalTime Now() override { return clock_->Now(); }

  std::string ComputerName() override {
    std::array<char, HOST_NAME_MAX + 1> name = {};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
  }

  SystemName System() override {
    struct utsname kernel = {};
    if (::uname(&kernel) != 0) return {PrettyName(), {}, {}};
    std::string name = PrettyName();
    if (name.empty()) name = kernel.sysname;
    return {std::move(name), kernel.release, kernel.version};
  }

  std::string ProgramPath() override {
    std::array<char, PATH_MAX> path;
    const ssize_t length = ::readlink(kSelf, path.data(), path.size());
    if (length <= 0) return {};
    std::string_view text(path.data(), static_cast<std::size_t>(length));
    // So the link reads after an update has replaced the program's file (proc(5)).
    constexpr std::string_view kGone = " (deleted)";
    if (text.ends_with(kGone)) text.remove_suffix(kGone.size());
    return std::string(text);
  }

  std::optional<std::uint64_t> ProgramSize() override {
    struct stat facts = {};
    if (::stat(kSelf, &facts) != 0) return std::nullopt;
    return static_cast<std::uint64_t>(facts.st_size);
  }

  std::string ProgramVersion() override { return build_facts::kVersion; }

  std::optional<std::uint64_t> FreeBytes(std::string_view path) override {
    const auto volume = Volume(path);
    if (!volume) return std::nullopt;
    return std::uint64_t{volume->f_bavail} * volume->f_frsize;
  }

  std::optional<std::uint32_t> VolumeSerial(std::string_view path) override {
    const auto volume = Volume(path);
    if (!volume) return std::nullopt;
    return static_cast<std::uint32_t>(volume->f_fsid);
  }

  /// Each line of mountinfo tells the device as major:minor in its third field and the kind of
  /// file system behind a field that is "-" (proc(5)).
  std::optional<std::string> FileSystemName(std::string_view path) override {
    struct stat facts = {};
    if (::stat(std::string(path).c_str(), &facts) != 0) return std::nullopt;
    const std::string device =
        std::to_string(major(facts.st_dev)) + ":" + std::to_string(minor(facts.st_dev));
    std::ifstream mounts("/proc/self/mountinfo");
    for (std::string line; std::getline(mounts, line);) {
      std::istringstream fields(line);
      std::string field;
      for (int i = 0; i < 3; ++i) fields >> field;
      if (field != device) continue;
      while (fields >> field && field != "-") continue;
      if (fields >> field) return field;
    }
    return std::nullopt;
  }

  std::size_t NameBytes(std::string_view folder) override {
    while (!folder.empty()) {
      if (const auto volume = Volume(folder)) {
        return volume->f_namemax != 0 ? volume->f_namemax : kUsualNameBytes;
      }
      const bool closed = folder.ends_with('/');
      folder = folder.substr(0, closed ? folder.size() - 1 : folder.rfind('/') + 1);
    }
    return kUsualNameBytes;
  }

 private:
  static constexpr const char* kSelf = "/proc/self/exe";
  std::unique_ptr<Clock> clock_ = MakeSystemClock();
};

}  // namespace

std::unique_ptr<SystemFacts> MakeSystemFacts() {
  return std::make_unique<PosixSystemFacts>();
}
