#include "errors/send_mail.h"

#include <gtest/gtest.h>

#include "support/fake_services.h"

TEST(SendMail, OpensTheLinkOfAMessageAndDoesNotLookAtTheResult) {
  const struct {
    mMain::Mail mail;
    const char* link;
  } table[] = {
      {{""}, "link mailto:"},
      {{"a@b", "R&D 100%\r\nx\ry\n"}, "link mailto:a@b?Subject=R%26D%20100%%0D%0Ax%0Dy%0A"},
      {{"a@b", "", "text"}, "link mailto:a@b?Body=text%0D%0A"},
      {{"a@b", "s", "b c", "c & d", "e@f", "/a b.txt"},
       "link mailto:a@b?Subject=s&Body=b%20c%0D%0A&CC=c & d&BCC=e@f&Attacth=\"/a b.txt\""},
  };
  FakeShell shell;
  shell.answer = kShellNoAssociation;
  for (const auto& row : table) {
    mMain::SendMail(shell, row.mail);
    EXPECT_EQ(shell.asked.back(), row.link);
  }
}
