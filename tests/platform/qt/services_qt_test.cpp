#include "platform/qt/services_qt.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QMessageBox>
#include <QTimer>

#include "names/date_format.h"
#include "platform/qt/shell_qt.h"
#include "platform/qt/text_qt.h"
#include "support/keys.h"

TEST(LocaleFacts, NamesTheMonthsInTheLanguageOfTheUser) {
  const std::tuple<QLocale, const char*, const char*> table[] = {
      {QLocale(QLocale::German, QLocale::Germany), "d. mmmm yyyy", "9. M\u00E4rz 2024"},
      {QLocale(QLocale::Japanese, QLocale::Japan), "yyyy mmmm dd", "2024 3\u6708 09"},
      {QLocale(QLocale::Japanese, QLocale::Japan), "mmm", "3\u6708"},
      {QLocale::c(), "dd mmm yy", "09 Mar 24"}};
  for (const auto& [locale, format, march] : table) {
    EXPECT_EQ(FormatDate(format, 2024, 3, 9, QtLocaleFacts(locale)), march);
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

TEST(QtPrompts, TakeOnlyYesForYesAndCancelOnlyWhereItIsOffered) {
  using enum PromptAnswer;
  const std::tuple<int, bool, PromptAnswer> table[] = {
      {0, true, kYes}, {Qt::Key_Return, false, kNo}, {Qt::Key_Escape, false, kCancel}};
  QtPrompts prompts;
  for (const auto& [key, yes, answer] : table) {
    const auto press = [key = key] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      key == 0 ? box->button(QMessageBox::Yes)->click() : Press(box, key);
    };
    QTimer::singleShot(0, press);
    EXPECT_EQ(prompts.Ask("Really?", PromptIcon::kExclamation), yes) << key;
    QTimer::singleShot(0, press);
    EXPECT_EQ(prompts.AskOrCancel("Stopped", "Again?", PromptIcon::kCritical), answer) << key;
  }
}

TEST(FileLink, EscapesWhatALinkCanNotHold) {
  EXPECT_EQ(FileLink("/a-b_c.~1 /50% #1?/,;&/M\xC3\xA4rz\xFF").toStdString(),
            "file:///a-b_c.~1%20/50%25%20%231%3F/%2C%3B%26/M%C3%A4rz%FF");
}

TEST(TextQt, BringsEveryByteBack) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
  using namespace std::string_literals;
  for (const auto& name :
       {""s, "Gra\u00E7a \U0001F950"s, "cut\xC3"s, "\xED\xA0\x80\xC0\x80"s, all}) {
    EXPECT_EQ(text::FromQt(text::ToQt(name)), name);
  }
}

TEST(TextQt, ShowsWhatNoFontHasAsAReplacementAndKeepsTheRest) {
  const std::pair<std::string_view, const char*> table[] = {
      {"a\nb\tc\x7F\xFFz", "a�b�c��z"},
      {"next\u0085line\u202Eleft", "next�line�left"},
      {"\U0001F950 a\u00A0b\u2027c", "\U0001F950 a\u00A0b\u2027c"},
      {"a\u200B\u200E\u200F\u061C\u2060\uFEFF\u2066\u2069z", "a��������z"},
      // Joiners: of a burning heart, a Persian and a Latin word, at the end of an Indic one.
      {"\u2764\uFE0F\u200D\U0001F525", "\u2764\uFE0F\u200D\U0001F525"},
      {"\u0645\u06CC\u200C\u062F a\u200Db", "\u0645\u06CC\u200C\u062F a\u200Db"},
      {"\u0D7B\u0D28\u0D4D\u200D.x", "\u0D7B\u0D28\u0D4D\u200D.x"},
      // Those that join nothing: at the ends, beside a blank or a dot, after one another.
      {"\u200Da\u200C", "�a�"},
      {"a\u200D b\u200C.x \u200Dc", "a� b�.x �c"},
      {"a\u200D\u200Cb\u200D\xFF", "a��b��"}};
  for (const auto& [name, expected] : table) {
    const QString shown = text::Shown(name);
    EXPECT_EQ(shown, QString::fromUtf8(expected));
    EXPECT_EQ(shown.size(), text::ToQt(name).size()) << "marks stand at places of the text";
  }
  EXPECT_EQ(text::ShownLines("a\u202Eb\r\n\nc\td\n"), QStringLiteral("a�b\n\nc�d\n"));
}
