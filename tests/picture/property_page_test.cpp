#include "picture/picture_property_page.h"

#include <gtest/gtest.h>

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaProperty>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <memory>

#include "tests/picture/gif_writer.h"

namespace {

const QByteArray kThree =
    Gif({4, 2}, {{0, 0, "rrrr/gggg", 150}, {0, 0, "b", 50}, {1, 0, "k", 50}}, 0);

/// All that the page has to edit.
QVariantMap Values(const AnimatedPicture& of) {
  QVariantMap all;
  const QMetaObject& type = AnimatedPicture::staticMetaObject;
  for (int at = type.propertyOffset(); at < type.propertyCount(); ++at) {
    const QMetaProperty property = type.property(at);
    if (!property.isWritable() || !property.isDesignable()) continue;
    all.insert(QLatin1String(property.name()), property.read(&of));
  }
  return all;
}

}  // namespace

TEST(PicturePropertyPage, ChangesThePictureByApplyOnlyAndGivesAllBack) {
  QLocale::setDefault(QLocale::English);
  AnimatedPicture picture;
  picture.setData(kThree);
  picture.setSpeed(50);
  picture.setAlignment(Qt::AlignAbsolute | Qt::AlignRight | Qt::AlignBottom);
  picture.setFrameStyle(QFrame::Box | QFrame::Sunken);
  PicturePropertyPage page(&picture);
  const auto* facts = page.findChild<QLabel*>(QStringLiteral("facts"));
  EXPECT_EQ(
      facts->text().toStdString(),
      "Frames: 3\nSize: 4 × 2 pixels, " + std::to_string(kThree.size()) + " bytes\nLength: 2.50 s");
  const QVariantMap before = Values(picture);
  for (const QString& name : before.keys()) {
    EXPECT_NE(page.findChild<QWidget*>(name), nullptr) << name.toStdString();
  }
  EXPECT_EQ(Values(*page.sample()), before);
  const auto button = [&](QDialogButtonBox::StandardButton which) {
    return page.findChild<QDialogButtonBox*>()->button(which);
  };
  EXPECT_FALSE(button(QDialogButtonBox::Apply)->isEnabled());
  page.findChild<QSpinBox*>(QStringLiteral("speed"))->setValue(200);
  page.findChild<QLineEdit*>(QStringLiteral("accessibleDescription"))->setText(QStringLiteral("x"));
  page.findChild<QSpinBox*>(QStringLiteral("frame"))->setValue(9);
  EXPECT_EQ(Values(picture), before);
  const QVariantMap edited = Values(*page.sample());
  EXPECT_EQ(edited[QStringLiteral("frame")], 2);
  button(QDialogButtonBox::Apply)->click();
  EXPECT_EQ(Values(picture), edited);
  button(QDialogButtonBox::Reset)->click();
  button(QDialogButtonBox::Ok)->click();
  EXPECT_EQ(Values(picture), before);
  picture.play();
  page.findChild<QSpinBox*>(QStringLiteral("speed"))->setValue(300);
  page.apply();
  EXPECT_TRUE(picture.playing()) << "what wasn't edited stays, the frame too";
  page.findChild<QSpinBox*>(QStringLiteral("maxFrames"))->setValue(2);
  EXPECT_EQ(facts->text().toStdString(), "The picture has more than 2 frames.");
}

TEST(PicturePropertyPage, EndsWithItsPictureAndWithItsWindow) {
  for (const bool window_goes : {false, true}) {
    auto window = std::make_unique<QWidget>();
    auto picture = std::make_unique<AnimatedPicture>();
    QTimer::singleShot(0, [&] { window_goes ? window.reset() : picture.reset(); });
    EXPECT_FALSE(PicturePropertyPage::edit(picture.get(), window.get()));
  }
}
