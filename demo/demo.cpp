// The demonstration: drives the real window over a folder of sample files, by mouse and keyboard on
// its widgets, as a user would. Prints the files before and after and leaves a picture of each
// step. Usage: quorvane_demo [folder for the pictures]

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QPixmap>
#include <QPushButton>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>
#include <stdexcept>

#include "demo/sample_files.h"
#include "platform/qt/text_qt.h"
#include "window/main_window.h"
#include "window/program.h"

namespace {

class Demo {
 public:
  Demo(Form1& window, const QString& pictures) : window_(window), pictures_(pictures) {}

  void Run(const std::string& folder) {
    window_.resize(1180, 760);
    window_.show();
    if (!QTest::qWaitForWindowExposed(&window_)) throw std::runtime_error("no window appeared");
    Picture("the window at its first start");

    Type("fdSourceFolder", text::ToQt(folder));
    Press("bnLoadFileList");
    Picture("the files are listed, by folder");

    SelectElement(0);
    Pick("cmbCutFile", QStringLiteral("Remove Text"));
    Type("fdCutFileText", QStringLiteral("IMG_"));
    Insert("bnInsertRight", QStringLiteral("_ (underscore)"));
    Insert("bnInsertRight", QStringLiteral("<Parent folder name>"));
    SelectElement(4);
    Pick("cmbCaseExt", QStringLiteral("lowercase"));
    Picture("the pattern of the new names is laid out");

    Press("bnPreview");
    Picture("each new name stands beside the old one");
    Press("bnRename");
    Picture("the files are renamed");
  }

 private:
  template <class Widget>
  Widget* Find(const char* name) {
    auto* found = window_.findChild<Widget*>(QLatin1String(name));
    if (!found) throw std::runtime_error(std::string("no control ") + name);
    return found;
  }

  void Press(const char* button) {
    auto* found = Find<QPushButton>(button);
    if (!found->isEnabled()) throw std::runtime_error(std::string(button) + " is off");
    QTest::mouseClick(found, Qt::LeftButton);
  }

  void Type(const char* field, const QString& t) {
    auto* found = Find<QLineEdit>(field);
    found->setFocus();
    found->selectAll();
    QTest::keyClicks(found, t);
    QTest::keyClick(found, Qt::Key_Tab);
  }

  void Pick(const char* box, const QString& entry) {
    auto* found = Find<QComboBox>(box);
    const int wanted = found->findText(entry);
    found->setFocus();
    while (found->currentIndex() < wanted) QTest::keyClick(found, Qt::Key_Down);
    if (found->currentText() != entry) throw std::runtime_error("no such entry");
  }

  void SelectElement(int index) {
    auto* strip = Find<QTabBar>("tabConstructor");
    QTest::mouseClick(strip, Qt::LeftButton, {}, strip->tabRect(index).center());
  }

  void Insert(const char* button, const QString& entry) {
    for (QAction* action : Find<QPushButton>(button)->menu()->actions()) {
      if (action->text().remove(QLatin1Char('&')) == entry) return action->trigger();
    }
    throw std::runtime_error("no such element");
  }

  void Picture(const char* what) {
    QCoreApplication::processEvents();
    const QString file = QStringLiteral("%1/step-%2.png").arg(pictures_).arg(++step_);
    if (!window_.grab().save(file)) throw std::runtime_error("no picture could be written");
    std::printf("Step %d: %s.\n", step_, what);
  }

  Form1& window_;
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
