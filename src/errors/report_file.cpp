#include "errors/report_file.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <optional>
#include <system_error>
#include <thread>

#include "common/path_text.h"
#include "common/size_text.h"
#include "platform/append_file.h"
#include "platform/build_facts.h"
#include "platform/system_facts.h"

namespace ErrTrace {
namespace {

constexpr std::string_view kNewLine = "\r\n";
constexpr int kWaitMs = 200;
constexpr int kPatienceMs = 1000;

/// A line of the file; a fact that can't be had leaves it short, not the report unsaved.
template <class Fact>
std::string Line(std::string_view label, Fact&& fact) {
  std::string line(label);
  try {
    line += fact();
  } catch (...) {
  }
  return line.append(kNewLine);
}

std::string YesNo(bool value) {
  return value ? "True" : "False";
}

/// The lines behind the report's own text.
std::string Surroundings(const ReportSources& sources) {
  SystemFacts& facts = sources.services.facts;
  const LocaleFacts& locale = sources.services.locale;
  const auto program = [&] { return facts.ProgramPath(); };
  const auto program_folder = [&] {
    const std::string path = program();
    return path.substr(0, std::min(path.rfind(kNative.separator), path.size()));
  };
  const std::string folder = ReportFolder(sources.services.folders);
  const auto free_space = [&](const std::string& path) {
    return mCommon::GetFreeSpace(facts, locale, path);
  };
  return Line("Program path: ", program_folder) +
         Line("Error report path: ", [&] { return mScanCD::NormalizePath(folder); }) +
         Line("Free space (Program): ", [&] { return free_space(program_folder()); }) +
         Line("Free space (Error): ", [&] { return free_space(folder); }) +
         Line("File name : ", [&] { return std::string(mMain::LastFolderName(program())); }) +
         Line("File size : ", [&] { return mCommon::GetFileExeSize(facts, locale, true); }) +
         Line("Manifest: ", [&] { return YesNo(sources.flags.gHasManifestFile); }) +
         Line("M6: ", [&] { return YesNo(sources.flags.gHasRuntimeFile); }) + Line("OS: ", [&] {
           const SystemName system = facts.System();
           return system.name + " build " + system.build + " (" + system.pack + ")\r\n\r\n";
         });
}

/// What goes by when the other program has written; some shares answer so for a lock.
bool IsHeldByAnother(int error) {
  return error == EWOULDBLOCK || error == EBUSY || error == ETXTBSY;
}

std::optional<AppendFile> OpenPatiently(const std::string& path, const Wait& wait) {
  std::optional<AppendFile> file = AppendFile::Open(path);
  for (int waited = 0; !file && IsHeldByAnother(errno) && waited < kPatienceMs; waited += kWaitMs) {
    wait(kWaitMs);
    file = AppendFile::Open(path);
  }
  return file;
}

void Save(std::string_view name, std::string_view report, const ReportSources& sources) {
  const std::string folder = ReportFolder(sources.services.folders);
  std::error_code ignored;
  std::filesystem::create_directories(folder, ignored);
  std::string path(name);
  if (name.find(kNative.separator) == name.npos) path = mScanCD::NormalizePath(folder) + path;
  std::optional<AppendFile> file = OpenPatiently(path, sources.wait);
  if (!file) return;
  std::string text = file->Existed() ? "\r\n \r\n" : "";
  text.append(report).append(kNewLine).append(Surroundings(sources));
  file->Append(text);
}

}  // namespace

std::string ReportFolder(Folders& folders) {
  return mScanCD::NormalizePath(folders.Documents()) + build_facts::kTitle;
}

void SaveErrorReport(std::string_view pFileName, std::string_view report,
                     const ReportSources& sources) noexcept {
  if (report.empty()) return;
  try {
    Save(pFileName, report, sources);
  } catch (...) {
    // The user still gets the message; there is nowhere left to write this down.
  }
}

}  // namespace ErrTrace

Wait SystemWait() {
  return [](int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  };
}
