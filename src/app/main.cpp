#include <QApplication>

#include "window/program.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  return mMain::Main(application);
}
