#include "demo/driver.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPixmap>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace {

constexpr qsizetype kMostColours = 256;  // that one byte tells apart

QList<QRgb> MostUsedColours(const QImage& image) {
  std::map<QRgb, int> uses;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) ++uses[image.pixel(x, y)];
  }
  std::vector<std::pair<int, QRgb>> most;
  for (const auto& [colour, count] : uses) most.emplace_back(-count, colour);
  std::ranges::sort(most);
  QList<QRgb> colours;
  for (const auto& [count, colour] : most) colours.append(colour);
  return colours.mid(0, kMostColours);
}

}  // namespace

void Driver::Show(const QSize& size) {
  window_.resize(size);
  window_.show();
  if (!QTest::qWaitForWindowExposed(&window_)) throw std::runtime_error("no window appeared");
}

void Driver::Press(const char* button) {
  auto* found = Find<QAbstractButton>(button);
  if (!found->isEnabled()) throw std::runtime_error(std::string(button) + " is off");
  QTest::mouseClick(found, Qt::LeftButton);
}

void Driver::Type(const char* field, const QString& t) {
  auto* found = Find<QLineEdit>(field);
  found->setFocus();
  found->selectAll();
  QTest::keyClicks(found, t);
  QTest::keyClick(found, Qt::Key_Tab);
}

void Driver::Pick(const char* box, const QString& entry) {
  auto* found = Find<QComboBox>(box);
  const int wanted = found->findText(entry);
  found->setFocus();
  while (found->currentIndex() < wanted) QTest::keyClick(found, Qt::Key_Down);
  if (found->currentText() != entry) throw std::runtime_error("no such entry");
}

void Driver::SelectElement(int index) {
  auto* strip = Find<QTabBar>("tabConstructor");
  QTest::mouseClick(strip, Qt::LeftButton, {}, strip->tabRect(index).center());
}

void Driver::Insert(const char* button, const QString& entry) {
  for (QAction* action : Find<QPushButton>(button)->menu()->actions()) {
    if (action->text().remove(QLatin1Char('&')) == entry) return action->trigger();
  }
  throw std::runtime_error("no such element");
}

void Driver::Picture(const QString& file, const QRect& part) {
  QCoreApplication::processEvents();
  const QImage seen = window_.grab(part.isNull() ? window_.rect() : part).toImage();
  // Few colours make a window; the rest are steps at the edges of its texts.
  const QImage small =
      seen.convertToFormat(QImage::Format_Indexed8, MostUsedColours(seen), Qt::AvoidDither);
  if (!small.save(file, "PNG", 0)) throw std::runtime_error("no picture could be written");
}
