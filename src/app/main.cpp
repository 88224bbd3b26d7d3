#include "window/program.h"

int main(int argc, char** argv) {
  return mMain::Main(argc, argv);
}
