// Draws the pictures of the manual, or one of those of README.md, from the real window at work over
// sample files. Usage: quorvane_manual_pictures manual|light|dark SAMPLES PICTURES, the two being
// folders; tools/draw_manual calls it.

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <cstdio>
#include <cstring>
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

void DrawManual(Form1& window, const std::string& folder, const QString& pictures) {
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

/// The names as they are going to be, in the light; the files as they are then, in the dark.
void DrawWindow(Form1& window, const std::string& folder, const QString& picture, bool renamed) {
  Driver driver(window);
  driver.Show({1060, 560});
  driver.Type("fdSourceFolder", text::ToQt(folder + "Photos/"));
  driver.Type("fdIncludeMask", QStringLiteral("IMG_*"));
  driver.Type("fdExcludeMask", QStringLiteral("*breakfast*"));  // its emoji needs a font
  driver.Press("bnLoadFileList");
  driver.SelectElement(2);
  driver.Pick("cmbCaseExt", QStringLiteral("lowercase"));
  driver.SelectElement(0);
  driver.Pick("cmbCutFile", QStringLiteral("Remove N characters from the start"));
  driver.Type("fdCutFileN", QString::number(std::strlen("IMG_4021")));
  driver.Insert("vbInsertLeft", QStringLiteral("<Counter>"));
  driver.Insert("vbInsertLeft", QStringLiteral("  (space)"));
  driver.Insert("vbInsertLeft", QStringLiteral("<Parent folder name>"));
  driver.Press("bnPreview");
  if (renamed) driver.Press("bnRename");
  driver.Picture(picture);
}

QPalette DarkDesktop() {
  return QPalette(Qt::white, Qt::darkGray, Qt::gray, Qt::black, Qt::gray, Qt::white, Qt::black);
}

void Draw(QApplication& application, const QString& what, const std::string& samples,
          const QString& pictures) {
  const bool dark = what == QLatin1String("dark");
  if (dark) QApplication::setPalette(DarkDesktop());
  MakeSampleFilesIn(samples);
  Program program(application);
  if (what == QLatin1String("manual")) return DrawManual(program.MainWindow(), samples, pictures);
  DrawWindow(program.MainWindow(), samples, pictures + u'/' + what + QStringLiteral(".png"), dark);
}

}  // namespace

int main(int argc, char** argv) {
  // The user's own settings are neither read nor written.
  const QTemporaryDir settings;
  qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
  QApplication application(argc, argv);
  try {
    if (argc != 4) throw std::runtime_error("what, an empty folder, and where the pictures go");
    Draw(application, QString::fromLocal8Bit(argv[1]), std::string(argv[2]) + "/",
         QString::fromLocal8Bit(argv[3]));
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "The pictures: %s.\n", failure.what());
    return 1;
  }
  return 0;
}
