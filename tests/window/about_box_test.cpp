#include "window/about_box.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>

#include "support/fake_services.h"
#include "window/main_window.h"

TEST(AboutBox, AndTheManualOpenByButtonAndByKey) {
  FakeServices system;
  Session session;
  Form1 window(session, system.services);
  window.show();
  const auto read_box = [&] {
    auto* box = qobject_cast<Form10*>(QApplication::activeModalWidget());
    system.shell.asked.push_back(
        box->findChild<QLabel*>(QStringLiteral("lbVersion"))->text().toStdString());
    for (const char* button : {"lnkWebsite", "lnkSupport", "bnOK"}) {
      box->findChild<QAbstractButton*>(QLatin1String(button))->click();
    }
  };
  const auto press = [&](const char* name, const char* key) {
    auto* shortcut = window.findChild<QPushButton*>(QLatin1String(name))->findChild<QShortcut*>();
    EXPECT_EQ(shortcut->key().toString(QKeySequence::PortableText), QLatin1String(key));
    emit shortcut->activated();
  };
  window.findChild<QPushButton*>(QStringLiteral("bnHelp"))->click();
  EXPECT_THAT(system.prompts.told, testing::ElementsAre("The specified file was not found."));
  system.files.contents = {{"/opt/share/quorvane/manual/index.html", ""}};
  press("bnHelp", "F1");
  QTimer::singleShot(0, read_box);
  press("bnAbout", "Shift+F1");
  EXPECT_THAT(system.shell.asked,
              testing::ElementsAre("open /opt/share/quorvane/manual/index.html",
                                   std::string("Version 1.2.3, with Qt ") + qVersion(),
                                   "link https://quorvane.example.org/",
                                   "link mailto:support@quorvane.example.org"));
}
