// The demonstration: drives the real window over a folder of sample files, by mouse and keyboard on
// its widgets, as a user would. Prints the files before and after and leaves a picture of each
// step. Usage: quorvane_demo [folder for the pictures]

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

class Demo {
 public:
  Demo(Form1& window, const QString& pictures) : driver_(window), pictures_(pictures) {}

  void Run(const std::string& folder) {
    driver_.Show({1180, 760});
    Picture("the window at its first start");

    driver_.Type("fdSourceFolder", text::ToQt(folder));
    driver_.Press("bnLoadFileList");
    Picture("the files are listed, by folder");

    driver_.SelectElement(0);
    driver_.Pick("cmbCutFile", QStringLiteral("Remove Text"));
    driver_.Type("fdCutFileText", QStringLiteral("IMG_"));
    driver_.Insert("bnInsertRight", QStringLiteral("_ (underscore)"));
    driver_.Insert("bnInsertRight", QStringLiteral("<Parent folder name>"));
    driver_.SelectElement(4);
    driver_.Pick("cmbCaseExt", QStringLiteral("lowercase"));
    Picture("the pattern of the new names is laid out");

    driver_.Press("bnPreview");
    Picture("each new name stands beside the old one");
    driver_.Press("bnRename");
    Picture("the files are renamed");
  }

 private:
  void Picture(const char* what) {
    driver_.Picture(QStringLiteral("%1/step-%2.png").arg(pictures_).arg(++step_));
    std::printf("Step %d: %s.\n", step_, what);
  }

  Driver driver_;
  QString pictures_;
  int step_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  // The user's own settings are neither read nor written.
  const QTemporaryDir settings;
  qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
  QApplication application(argc, argv);
  const QString pictures = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::currentPath();
  try {
    Program program(application);
    const std::string folder = MakeSampleFiles();
    PrintTree("Before, in " + folder, folder);
    Demo(program.MainWindow(), pictures).Run(folder);
    PrintTree("After, in " + folder, folder);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "The demonstration ended early: %s.\n", failure.what());
    return 1;
  }
  return 0;
}
