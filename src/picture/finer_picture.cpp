#include "picture/finer_picture.h"

#include <QFileInfo>
#include <algorithm>
#include <cmath>

namespace {

constexpr int kFinest = 3;

QString FinerName(const QString& path, int ratio) {
  const QFileInfo info(path);
  const QString dot = info.suffix().isEmpty() ? QString() : QStringLiteral(".");
  return path.chopped(dot.size() + info.suffix().size()) + QStringLiteral("@%1x").arg(ratio) + dot +
         info.suffix();
}

}  // namespace

std::pair<QString, int> FinestFor(const QString& path, qreal screen) {
  for (int ratio = std::min(kFinest, static_cast<int>(std::ceil(screen))); ratio > 1; --ratio) {
    const QString finer = FinerName(path, ratio);
    if (QFileInfo(finer).isFile()) return {finer, ratio};
  }
  return {path, 1};
}
