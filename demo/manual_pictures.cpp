// Draws the pictures of the manual, from the real window at work over sample files.
// Usage: quorvane_manual_pictures SAMPLES PICTURES; tools/draw_manual calls it.

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <cstdio>
#include <stdexcept>

#include "demo/driver.h"
#include "demo/sample_files.h"
#include "platform/qt/text_qt.h"
#include "window/main_window.h"
#include "window/program.h"

namespace {

constexpr int kAround = 8;

/// Where the widgets stand in their window, with a little of what is around.
QRect Around(std::initializer_list<QWidget*> widgets) {
  QRect place;
  for (QWidget* widget : widgets) {
    place |= QRect(widget->mapTo(widget->window(), QPoint()), widget->size());
  }
  return place.adjusted(-kAround, -kAround, kAround, kAround);
}

void Draw(Form1& window, const std::string& folder, const QString& pictures) {
  Driver driver(window);
  const auto name = [&](const char* picture) {
    return QStringLiteral("%1/%2.png").arg(pictures, QLatin1String(picture));
  };
  const auto part = [&](const char* widget) { return driver.Find<QWidget>(widget); };
  driver.Show({1000, 560});
  driver.Type("fdSourceFolder", text::ToQt(folder));
  driver.Type("fdIncludeMask", QStringLiteral("*.jpg *.tif*"));
  driver.Type("fdExcludeMask", QStringLiteral("*breakfast*"));
  driver.Press("bnLoadFileList");
  driver.Picture(name("folder"), Around({part("TabControl2")}));

  driver.SelectElement(0);
  driver.Pick("cmbCutFile", QStringLiteral("Remove Text"));
  driver.Type("fdCutFileText", QStringLiteral("IMG_"));
  driver.Insert("bnInsertRight", QStringLiteral("_ (underscore)"));
  driver.Insert("bnInsertRight", QStringLiteral("<Counter>"));
  driver.Picture(name("elements"), Around({part("fraConstructor"), part("pbCounter")}));

  auto* list = driver.Find<QAbstractItemView>("ReportControl1");
  list->model()->setData(list->model()->index(2, 4), 0, Qt::CheckStateRole);
  driver.Press("bnPreview");
  driver.Picture(name("window"));
  driver.Press("bnRename");
  driver.Picture(name("done"), Around({list}));
}

}  // namespace

int main(int argc, char** argv) {
  // The user's own settings are neither read nor written.
  const QTemporaryDir settings;
  qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
  QApplication application(argc, argv);
  try {
    if (argc != 3) throw std::runtime_error("an empty folder, and where the pictures go");
    const std::string samples = std::string(argv[1]) + "/";
    MakeSampleFilesIn(samples);
    Program program(application);
    Draw(program.MainWindow(), samples, QString::fromLocal8Bit(argv[2]));
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "The pictures of the manual: %s.\n", failure.what());
    return 1;
  }
  return 0;
}
