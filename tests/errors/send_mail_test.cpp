#include "errors/send_mail.h"

#include <gtest/gtest.h>

#include "support/fake_services.h"

TEST(SendMail, WritesTheLinkOfAMessage) {
  const struct {
    mMain::Mail mail;
    const char* link;
  } table[] = {
      {{"a@b"}, "mailto:a@b"},
      {{""}, "mailto:"},
      {{"a@b", "Quorvane v1.0 Error report"},
       "mailto:a@b?Subject=Quorvane%20v1.0%20Error%20report"},
      {{"a@b", "R&D 100%"}, "mailto:a@b?Subject=R%26D%20100%"},
      {{"a@b", "one\r\ntwo\rthree\nfour\n\r"},
       "mailto:a@b?Subject=one%0D%0Atwo%0Dthree%0Afour%0A%0D"},
      {{"a@b", "", "text"}, "mailto:a@b?Body=text%0D%0A"},
      {{"a@b", "s", "b c", "c & d", "e@f", "/a b.txt"},
       "mailto:a@b?Subject=s&Body=b%20c%0D%0A&CC=c & d&BCC=e@f&Attacth=\"/a b.txt\""},
  };
  for (const auto& row : table) EXPECT_EQ(mMain::MailLink(row.mail), row.link);
}

TEST(SendMail, OpensTheLinkAndDoesNotLookAtTheResult) {
  FakeShell shell;
  shell.answer = kShellNoAssociation;
  mMain::SendMail(shell, {"a@b", "x y"});
  EXPECT_EQ(shell.asked, std::vector<std::string>{"link mailto:a@b?Subject=x%20y"});
}
