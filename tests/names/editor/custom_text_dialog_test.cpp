#include "names/editor/custom_text_dialog.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>

#include "support/fake_services.h"
#include "support/memory_settings.h"

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
    FakePrompts prompts;
    MemorySettings settings;
    Form5 dialog(prompts, settings, nullptr);
    dialog.show();
    dialog.fdText->setText(row.typed);
    dialog.bnOK->click();
    EXPECT_EQ(dialog.Text(), row.text);
    EXPECT_EQ(dialog.isVisible(), !row.told.empty());
    EXPECT_EQ(dialog.fdText->text(), row.typed);
    const std::string told = prompts.told.empty() ? "" : prompts.told[0];
    EXPECT_EQ(told.substr(0, row.told.size()), row.told);
    EXPECT_EQ(told.empty(), row.told.empty());

    Form5 other(prompts, settings, nullptr);
    other.show();
    other.fdText->setText(row.typed);
    other.bnCancel->click();
    EXPECT_FALSE(other.isVisible());
    EXPECT_EQ(other.Text(), "");
  }
}
