#include <gtest/gtest.h>

#include <QBuffer>
#include <QTemporaryFile>
#include <QUiLoader>
#include <QWidget>
#include <memory>

#include "tests/picture/gif_writer.h"

TEST(PicturePlugin, MakesThePictureOfAUiFile) {
  QTemporaryFile gif;
  ASSERT_TRUE(gif.open());
  gif.write(Gif({1, 1}, {{0, 0, "r"}, {0, 0, "g"}}));
  gif.close();
  QByteArray form = R"(<ui version="4.0"><class>F</class><widget class="QWidget" name="F">
    <widget class="AnimatedPicture" name="p">
      <property name="speed"><number>70</number></property>
      <property name="loops"><enum>AnimatedPicture::Count</enum></property>
      <property name="scaleMode"><enum>AnimatedPicture::Fill</enum></property>
      <property name="alignment"><set>Qt::AlignBottom|Qt::AlignRight</set></property>
      <property name="source"><string>GIF</string></property>
    </widget></widget></ui>)";
  form.replace("GIF", gif.fileName().toUtf8());
  QBuffer file(&form);
  file.open(QIODevice::ReadOnly);
  QUiLoader loader;
  loader.clearPluginPaths();
  loader.addPluginPath(QStringLiteral(PICTURE_PLUGINS));
  const std::unique_ptr<QWidget> made(loader.load(&file));
  ASSERT_NE(made, nullptr) << loader.errorString().toStdString();
  auto* picture = made->findChild<QWidget*>(QStringLiteral("p"));
  ASSERT_STREQ(picture->metaObject()->className(), "AnimatedPicture");
  const std::pair<const char*, int> kExpected[] = {
      {"speed", 70},    {"loops", 3},
      {"scaleMode", 2}, {"alignment", Qt::AlignBottom | Qt::AlignRight},
      {"playing", 1},   {"frame", 0}};
  for (const auto& [property, value] : kExpected) {
    const QVariant read = picture->property(property);
    EXPECT_EQ(qstrcmp(property, "alignment") == 0 ? static_cast<int>(read.value<Qt::Alignment>())
                                                  : read.toInt(),
              value)
        << property;
  }
}
