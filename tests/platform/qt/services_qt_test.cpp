#include "platform/qt/services_qt.h"

#include <gtest/gtest.h>

#include "names/date_format.h"
#include "platform/qt/shell_qt.h"

TEST(LocaleFacts, NamesTheMonthsInTheLanguageOfTheUser) {
  const struct {
    QLocale locale;
    const char* format;
    const char* march;
  } table[] = {
      {QLocale(QLocale::German, QLocale::Germany), "d. mmmm yyyy", "9. M\u00E4rz 2024"},
      {QLocale(QLocale::Japanese, QLocale::Japan), "yyyy mmmm dd", "2024 3\u6708 09"},
      {QLocale(QLocale::Japanese, QLocale::Japan), "mmm", "3\u6708"},
      {QLocale::c(), "dd mmm yy", "09 Mar 24"},
  };
  for (const auto& row : table) {
    const QtLocaleFacts facts(row.locale);
    EXPECT_EQ(FormatDate(row.format, 2024, 3, 9, facts), row.march)
        << row.locale.name().toStdString();
  }
}

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
