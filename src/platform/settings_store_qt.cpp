#include "platform/settings_store_qt.h"

#include <fcntl.h>

#include <QFile>
#include <QFileInfo>
#include <utility>

#include "platform/settings_names_qt.h"
#include "platform/syscalls.h"
#include "platform/text_qt.h"

// What QSettings of Qt 6.4 does by itself (qtbase/src/corelib/io/qsettings.cpp,
// QConfFileSettingsPrivate::syncConfFile): a writer holds a QLockFile beside the file, reads the
// file again when its size or time has changed, lays its own changes over that, and writes the
// whole through QSaveFile without direct write. QSaveFile (qsavefile.cpp, commit) writes a
// temporary file beside the file, syncs it and renames it over the file. So a reader, and a start
// after a crash, finds the old file or the new one. A lock left by a crash is stale and ignored.

namespace {

QString Program() {
  return QStringLiteral("Quorvane");
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

enum class Condition { kSound, kDamaged, kUnreadable };

Condition Examine(const QString& path) {
  const QFileInfo facts(path);
  if (!facts.exists() && !facts.isSymLink()) return Condition::kSound;
  QFile file(path);
  if (!facts.isFile() || !file.open(QIODevice::ReadOnly)) return Condition::kUnreadable;
  return IsSound(file.readAll()) ? Condition::kSound : Condition::kDamaged;
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

/// The new name is on disk only when its folder is (fsync(2), second paragraph of the notes).
void SyncFolderOf(const QString& path) {
  const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
  const FileHandle handle(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (handle) ::fsync(handle.get());
}

}  // namespace

QtSettingsStore::QtSettingsStore()
    : settings_(QSettings::NativeFormat, QSettings::UserScope, Program(), Program()) {
  // What an administrator keeps in /etc/xdg can't be deleted by the user, so it isn't looked at.
  settings_.setFallbacksEnabled(false);
}

std::string QtSettingsStore::GetSetting(std::string_view section, std::string_view key,
                                        std::string_view default_text) {
  const QString name = settings_names::Key(section, key);
  if (!settings_.contains(name)) return std::string(default_text);
  // A bare comma that somebody typed into the file makes a list of a text.
  return settings_names::Restored(settings_.value(name).toStringList().join(QStringLiteral(", ")));
}

void QtSettingsStore::SaveSetting(std::string_view section, std::string_view key,
                                  std::string_view value) {
  if (!MayChange()) return;
  settings_.setValue(settings_names::Key(section, key), settings_names::Stored(value));
}

bool QtSettingsStore::DeleteSetting(std::string_view section, std::string_view key) {
  const QString name = settings_names::Key(section, key);
  if (!settings_.contains(name)) return false;
  if (MayChange()) settings_.remove(name);
  return true;
}

bool QtSettingsStore::DeleteSetting(std::string_view section) {
  const QString group = settings_names::Group(section);
  const QString below = group + QLatin1Char('.');
  bool found = false;
  for (const QString& one : settings_.childGroups()) {
    if (one != group && !one.startsWith(below)) continue;
    found = true;
    if (MayChange()) settings_.remove(one);
  }
  return found;
}

bool QtSettingsStore::MayChange() {
  if (!refused_.empty()) return false;
  if (looked_at_) return true;
  const QString path = settings_.fileName();
  if (Examine(path) == Condition::kDamaged && !KeepCopy(path)) {
    refused_ = "The settings file is damaged, and no copy of it can be kept: " + text::FromQt(path);
    return false;
  }
  return looked_at_ = true;
}

std::string QtSettingsStore::Flush() {
  looked_at_ = false;
  if (!refused_.empty()) return std::exchange(refused_, {});
  // The status of `settings_` stays bad for ever; that of a second object over the same changes
  // tells of this write alone.
  QSettings writer(QSettings::NativeFormat, QSettings::UserScope, Program(), Program());
  writer.sync();
  if (writer.status() == QSettings::AccessError) {
    return "The settings file can't be written: " + text::FromQt(settings_.fileName());
  }
  SyncFolderOf(settings_.fileName());
  return {};
}

std::string QtSettingsStore::ReadProblem() {
  const QString path = settings_.fileName();
  switch (Examine(path)) {
    case Condition::kSound:
      return {};
    case Condition::kDamaged:
      return "The settings file is damaged: " + text::FromQt(path);
    case Condition::kUnreadable:
      break;
  }
  return "The settings file can't be read: " + text::FromQt(path);
}
