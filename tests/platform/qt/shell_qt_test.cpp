#include "platform/qt/shell_qt.h"

#include <gtest/gtest.h>

TEST(FileLink, EscapesWhatALinkCanNotHold) {
  const struct {
    const char* path;
    const char* link;
  } table[] = {
      {"/home/anna/a-b_c.~1", "file:///home/anna/a-b_c.~1"},
      {"/a b/50% #1?", "file:///a%20b/50%25%20%231%3F"},
      {"/M\xC3\xA4rz", "file:///M%C3%A4rz"},
      {"/bad\xFF", "file:///bad%FF"},
      {"/a,b;c&d", "file:///a%2Cb%3Bc%26d"},
  };
  for (const auto& row : table) EXPECT_EQ(FileLink(row.path).toStdString(), row.link);
}
