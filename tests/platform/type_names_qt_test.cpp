#include "platform/type_names_qt.h"

#include <gtest/gtest.h>

TEST(QtTypeNames, NamesAKnownExtensionInAnyLetterCaseAndNoOther) {
  QtTypeNames names;
  const std::string picture = names.TypeName(".jpg");
  EXPECT_FALSE(picture.empty());
  EXPECT_NE(picture, names.TypeName(".txt"));
  EXPECT_EQ(names.TypeName(".JPG"), picture);
  EXPECT_EQ(names.TypeName(".jpg"), picture) << "the second look must give what the first gave";
  for (const char* unknown : {"", ".", ".nosuchtype", ".bad\xFF", ".000001"}) {
    EXPECT_EQ(names.TypeName(unknown), "") << unknown;
  }
}
