#include "window/about_box.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>

#include "support/fake_services.h"
#include "window/main_window.h"

TEST(AboutBox, AndTheManualOpenByButtonAndKeyAndLinksAreFollowed) {
  FakeServices system;
  system.files.contents = {{"/opt/share/doc/quorvane/manual/index.html", ""}};
  Session session;
  Form1 window(session, system.services);
  window.show();
  std::string texts;
  for (const char* name : {"bnAbout", "bnHelp"}) {
    auto* button = window.findChild<QAbstractButton*>(QLatin1String(name));
    auto* key = button->findChild<QShortcut*>();
    texts += key->key().toString(QKeySequence::PortableText).toStdString() + ", ";
    for (int i = 0; i < 2; ++i) {
      QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<Form10*>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        texts += box->findChild<QLabel*>(QStringLiteral("lbVersion"))->text().toStdString() + ", ";
        for (const char* link : {"lnkWebsite", "lnkSupport"}) {
          box->findChild<QAbstractButton*>(QLatin1String(link))->click();
        }
        box->bnOK->click();
      });
      i == 0 ? button->click() : emit key->activated();
      QCoreApplication::processEvents();
    }
  }
  const std::string version = std::string("Version 1.2.3, with Qt ") + qVersion() + ", ";
  EXPECT_EQ(texts, "Shift+F1, " + version + version + "F1, ");
  const std::string website = "link https://quorvane.example.org/";
  const std::string mail = "link mailto:support@quorvane.example.org";
  const std::string manual = "open /opt/share/doc/quorvane/manual/index.html";
  EXPECT_THAT(system.shell.asked,
              testing::ElementsAre(website, mail, website, mail, manual, manual));
}
