#include "common/drives.h"

#include <algorithm>
#include <cstdio>
#include <optional>

#include "common/language.h"
#include "platform/text.h"
#include "trace/err_trace.h"

namespace mScanCD {

bool FileExist(FileSystem& files, std::string_view FilePath) {
  return ErrTrace::inner("mScanCD.FileExist(FilePath)", ErrTrace::args(FilePath),
                         [&] { return files.Exists(FilePath); });
}

bool FolderExist(FileSystem& files, std::string_view folderPath, PathStyle style) {
  return ErrTrace::inner("mScanCD.FolderExist(folderPath)", ErrTrace::args(folderPath), [&] {
    return text::Length(folderPath) == style.rootLength ||
           (!folderPath.ends_with(style.separator) && files.Look(folderPath).has_value());
  });
}

}  // namespace mScanCD

namespace DriveStuff {

std::vector<std::string> GetDriveNames(FileSystem& files, PathStyle style) {
  return ErrTrace::inner("DriveStuff.GetDriveNames", [&] {
    if (style == kPosix) return std::vector<std::string>{"/"};
    std::vector<std::string> roots;
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
      const std::string root = std::string(1, letter) + ":\\";
      if (files.Look(root)) roots.push_back(root);
    }
    return roots;
  });
}

namespace {

std::string SerialText(std::uint32_t serial) {
  char text[16];
  std::snprintf(text, sizeof text, "%04X-%04X", serial >> 16, serial & 0xFFFF);
  return text;
}

}  // namespace

std::optional<std::string> GetDriveInfo(FileSystem& files, std::string_view strDrive, int iType,
                                        SystemFacts* facts) {
  return ErrTrace::inner("DriveStuff.GetDriveInfo(strDrive,iType)", ErrTrace::args(strDrive, iType),
                         [&]() -> std::optional<std::string> {
                           if (iType == 2 && files.Look(strDrive)) return std::string();
                           if (iType == 3 && facts != nullptr)
                             return facts->FileSystemName(strDrive);
                           if (iType != 1 || facts == nullptr) return std::nullopt;
                           const auto serial = facts->VolumeSerial(strDrive);
                           return serial ? std::optional(SerialText(*serial)) : std::nullopt;
                         });
}

}  // namespace DriveStuff

namespace mDrive {

std::string_view FileManager3(FileSystem& files, std::string_view pName, bool pIsFile,
                              bool pCheckPath, PathStyle style) {
  return ErrTrace::inner(
      "mDrive.FileManager3(pName,pIsFile)", ErrTrace::args(pName, pIsFile),
      [&]() -> std::string_view {
        using namespace mLanguageGobals;
        const std::string drive = text::ToUpper(text::Left(pName, style.rootLength));
        const std::vector<std::string> roots = DriveStuff::GetDriveNames(files, style);
        if (std::find(roots.begin(), roots.end(), drive) == roots.end()) return kDriveNotPresent;
        if (!DriveStuff::GetDriveInfo(files, drive, 2)) return kNoDisk;
        if (pCheckPath && !mScanCD::FolderExist(files, pName, style)) {
          return pIsFile ? kFileNotFound : kFolderNotFound;
        }
        return "";
      });
}

}  // namespace mDrive

namespace mMain {

namespace {

/// A text in which one folder can stand under several paths; comparing it would mislead.
bool Winds(std::string_view path, PathStyle style) {
  for (const char* level : {"", ".", ".."}) {
    const std::string winding = style.separator + std::string(level) + style.separator;
    if (path.find(winding) != path.npos) return true;
  }
  return false;
}

}  // namespace

std::optional<std::string> FolderOf(FileSystem& files, std::string_view path, PathStyle style) {
  if (path.empty()) return std::nullopt;
  std::string whole(path);
  if (!IsAbsolutePath(path, style)) {
    whole.insert(0, files.ResolveFolder(std::string(".") + style.separator));
  }
  if (files.IdentifyFolder(whole)) {
    whole = mScanCD::NormalizePath(whole, style);
  } else if (files.Look(whole)) {
    whole.resize(whole.rfind(style.separator) + 1);
  } else {
    return std::nullopt;
  }
  return Winds(whole, style) ? files.ResolveFolder(whole) : whole;
}

bool FileManager(FileSystem& files, Prompts& prompts, std::string_view pName, PathStyle style) {
  return ErrTrace::inner("mMain.FileManager(pName)", ErrTrace::args(pName), [&] {
    const std::string_view refusal = mDrive::FileManager3(files, pName, true, true, style);
    if (!refusal.empty()) prompts.Tell(refusal, PromptIcon::kCritical);
    return refusal.empty();
  });
}

}  // namespace mMain
