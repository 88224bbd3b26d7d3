#include <gtest/gtest.h>

#include "window/application.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  Application application(argc, argv);
  return RUN_ALL_TESTS();
}
