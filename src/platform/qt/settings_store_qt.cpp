#include "platform/qt/settings_store_qt.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <cerrno>

#include "platform/file_handle.h"
#include "platform/qt/settings_names_qt.h"
#include "platform/qt/text_qt.h"
#include "platform/settings_file.h"

// What QSettings of Qt 6.4 does by itself (qtbase/src/corelib/io/qsettings.cpp,
// QConfFileSettingsPrivate::syncConfFile): a writer holds a QLockFile beside the file, reads the
// file again when its size or time has changed, lays its own changes over that, and writes the
// whole through QSaveFile without direct write. QSaveFile (qsavefile.cpp, commit) writes a
// temporary file beside the file, syncs it and renames it over the file. So a reader, and a start
// after a crash, finds the old file or the new one. A lock left by a crash is stale and ignored.

namespace {

using settings_file::Place;

std::string Bytes(const QString& path) {
  return QFile::encodeName(path).toStdString();
}

StoreProblem Problem(std::string_view what, const QString& path, int error) {
  return {std::string(what) + ": " + text::FromQt(path), error};
}

/// No problem when `path` leads to a file or to nothing.
StoreProblem ExaminePlace(const QString& path) {
  const Place place = settings_file::Look(Bytes(path));
  if (place.kind == Place::kUnreachable) {
    return Problem("The settings file can't be reached", path, place.error);
  }
  if (place.kind != Place::kOther) return {};
  return Problem("In the place of the settings is no file", path, place.error);
}

/// QSettings makes a lock file for a write, and waits for ever where that can't be.
StoreProblem ExamineLock(const QString& path) {
  const QString lock = path + QStringLiteral(".lock");
  if (!settings_file::IsBlocked(Bytes(lock))) return {};
  return Problem("In the place of the lock of the settings is no file", lock, EEXIST);
}

/// No settings of ours come near it, and QSettings takes seconds for more.
bool IsTooLarge(const QString& path) {
  constexpr qint64 kMostBytes = 8 * 1024 * 1024;
  return QFileInfo(path).size() > kMostBytes;
}

StoreProblem Read(const QString& path, QByteArray& content) {
  if (StoreProblem problem = ExaminePlace(path)) return problem;
  if (IsTooLarge(path)) {
    content = QByteArray(1, '\0');  // not sound, whatever is in it
    return {};
  }
  const FileHandle handle = OpenRegularFile(Bytes(path));
  if (!handle && errno == ENOENT) return {};
  QFile file;
  if (handle && file.open(handle.get(), QIODevice::ReadOnly)) content = file.readAll();
  if (handle && file.error() == QFileDevice::NoError) return {};
  return Problem("The settings file can't be read", path, errno);
}

/// Whether every line is a comment, a section or a setting, and the last one is whole. That is how
/// QSettings writes; it never breaks a setting over two lines.
bool IsSound(const QByteArray& content) {
  if (content.isEmpty()) return true;
  if (content.contains('\0') || !content.endsWith('\n')) return false;
  for (const QByteArray& raw : content.split('\n')) {
    const QByteArray line = raw.trimmed();
    if (line.isEmpty() || line.startsWith(';')) continue;
    if (line.startsWith('[') ? !line.endsWith(']') : line.indexOf('=') < 1) return false;
  }
  return true;
}

bool KeepCopy(const QString& path) {
  constexpr int kMostCopies = 1000;
  const QString first = path + QStringLiteral(".damaged");
  for (int i = 1; i <= kMostCopies; ++i) {
    const QString copy = i == 1 ? first : first + QString::number(i);
    if (QFile::copy(path, copy)) return true;
    if (!QFileInfo::exists(copy)) return false;
  }
  return false;
}

int ErrorOfWriting(const QString& path, std::size_t size) {
  return settings_file::ErrorOfWriting(Bytes(path), size);
}

}  // namespace

QString SettingsPath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/Quorvane/Quorvane.conf");
}

QtSettingsStore::QtSettingsStore(const QString& path) : path_(path) {
  QByteArray content;
  can_be_read_ = !Read(path_, content);
  if (can_be_read_ && !IsTooLarge(path_)) file_.emplace(path_, QSettings::NativeFormat);
}

bool QtSettingsStore::Holds(const QString& name) const {
  const auto change = changes_.find(name);
  return change != changes_.end() ? change->second.has_value() : file_ && file_->contains(name);
}

std::string QtSettingsStore::GetSetting(std::string_view section, std::string_view key,
                                        std::string_view default_text) {
  const QString name = settings_names::Key(section, key);
  if (!Holds(name)) return std::string(default_text);
  const auto change = changes_.find(name);
  if (change != changes_.end()) return settings_names::Restored(*change->second);
  // A bare comma that somebody typed into the file makes a list of a text.
  return settings_names::Restored(file_->value(name).toStringList().join(QStringLiteral(", ")));
}

void QtSettingsStore::SaveSetting(std::string_view section, std::string_view key,
                                  std::string_view value) {
  changes_[settings_names::Key(section, key)] = settings_names::Stored(value);
}

bool QtSettingsStore::DeleteSetting(std::string_view section, std::string_view key) {
  const QString name = settings_names::Key(section, key);
  if (!Holds(name)) return false;
  changes_[name] = std::nullopt;
  return true;
}

bool QtSettingsStore::DeleteSetting(std::string_view section) {
  const QString group = settings_names::Group(section);
  QStringList names = file_ ? file_->allKeys() : QStringList();
  for (const auto& change : changes_) names += change.first;
  bool found = false;
  for (const QString& name : names) {
    const bool in = name.startsWith(group + u'/') || name.startsWith(group + u'.');
    if (!in || !Holds(name)) continue;
    found = true;
    changes_[name] = std::nullopt;
  }
  return found;
}

StoreProblem QtSettingsStore::Flush() {
  if (changes_.empty()) return {};
  if (const StoreProblem problem = Write()) return News(problem);
  changes_.clear();
  return {};
}

StoreProblem QtSettingsStore::Write() {
  QByteArray content;
  if (StoreProblem problem = Read(path_, content)) return problem;
  if (StoreProblem problem = ExamineLock(path_)) return problem;
  std::size_t size = static_cast<std::size_t>(content.size());
  if (!IsSound(content) && !KeepCopy(path_)) {
    return Problem("The settings file is damaged, and no copy of it can be kept", path_,
                   ErrorOfWriting(path_, size));
  }
  if (IsTooLarge(path_)) QFile::resize(path_, 0);  // its copy is kept
  file_.emplace(path_, QSettings::NativeFormat);
  can_be_read_ = true;
  // The status of an object stays bad for ever, and a damaged file that it reads makes it so; that
  // of a second object over the same file tells of this write alone.
  QSettings writer(path_, QSettings::NativeFormat);
  for (const auto& [name, value] : changes_) {
    value ? writer.setValue(name, *value) : writer.remove(name);
    constexpr std::size_t kMostBytes = 12;  // of one unit in the file: "%EF%BB%BF"
    size += kMostBytes * static_cast<std::size_t>(name.size() + (value ? value->size() : 0));
  }
  writer.sync();
  if (writer.status() == QSettings::AccessError) {
    return Problem("The settings file can't be written", path_, ErrorOfWriting(path_, size));
  }
  settings_file::SyncFolderOf(Bytes(path_));
  return {};
}

StoreProblem QtSettingsStore::ReadProblem() {
  QByteArray content;
  if (const StoreProblem problem = Read(path_, content)) return News(problem);
  return IsSound(content) ? StoreProblem()
                          : News(Problem("The settings file is damaged", path_, 0));
}

/// One cause is one errno, whatever it stood in the way of.
StoreProblem QtSettingsStore::News(const StoreProblem& problem) {
  const bool is_new = told_.emplace(problem.error, problem.error == 0 ? problem.text : "").second;
  return is_new ? problem : StoreProblem();
}
