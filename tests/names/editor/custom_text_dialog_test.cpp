#include "names/editor/custom_text_dialog.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>

#include "support/fake_services.h"

TEST(CustomTextDialog, AcceptsWhatANameCanHoldUnlessCancelled) {
  const struct {
    QString typed;
    std::string text;
    std::string told;  ///< the beginning of the message; empty: none
  } table[] = {{QStringLiteral("summer"), "summer", ""},
               {QStringLiteral("   "), "   ", ""},
               {QString(), "", "The text field is empty."},
               {QStringLiteral("a:b"), "", "A filename cannot contain"}};
  for (const auto& row : table) {
    SCOPED_TRACE(row.typed.toStdString());
    FakeServices fakes;
    for (const bool ok : {true, false}) {
      Form5 dialog(fakes.prompts, fakes.settings, nullptr);
      dialog.show();
      dialog.fdText->setText(row.typed);
      (ok ? dialog.bnOK : dialog.bnCancel)->click();
      EXPECT_EQ(dialog.Text(), ok ? row.text : "");
      EXPECT_EQ(dialog.isVisible(), ok && !row.told.empty());
      EXPECT_EQ(dialog.fdText->text(), row.typed);
    }
    ASSERT_EQ(fakes.prompts.told.size(), row.told.empty() ? 0u : 1u);
    for (const std::string& told : fakes.prompts.told) EXPECT_TRUE(told.starts_with(row.told));
  }
}
