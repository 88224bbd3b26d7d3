#include "window/application.h"
#include "window/program.h"

int main(int argc, char** argv) {
  Application application(argc, argv);
  return mMain::Main(application);
}
