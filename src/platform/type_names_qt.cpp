#include "platform/type_names_qt.h"

#include <QMimeType>

#include "platform/text_qt.h"

namespace {

// Numbered extensions (".000001" on) must not make the table grow with the list.
constexpr std::size_t kMostNames = 4096;

std::string LookUp(const QMimeDatabase& database, std::string_view extension) {
  // A bare extension would read as a hidden file's name, so it gets a name in front.
  const QString name = QLatin1Char('x') + text::ToQt(extension);
  const QMimeType type = database.mimeTypeForFile(name, QMimeDatabase::MatchExtension);
  return type.isDefault() ? std::string() : text::FromQt(type.comment());
}

}  // namespace

std::string QtTypeNames::TypeName(std::string_view extension) {
  if (extension.empty()) return {};
  std::string key(extension);
  if (const auto known = names_.find(key); known != names_.end()) return known->second;
  if (names_.size() >= kMostNames) names_.clear();
  return names_[std::move(key)] = LookUp(database_, extension);
}
