#include "picture/animated_picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <functional>
#include <tuple>

#include "picture/finer_picture.h"
#include "picture/picture_reader.h"
#include "tests/picture/gif_writer.h"

using testing::ElementsAre;

namespace {

/// Lets events run until something holds, or for that long.
bool Wait(const std::function<bool()>& until, int most = 3000) {
  QElapsedTimer time;
  time.start();
  while (!until() && time.elapsed() < most) QApplication::processEvents(QEventLoop::AllEvents, 5);
  return until();
}

/// The letters of what stands on the screen, "." where the background shows.
std::string Seen(AnimatedPicture& picture) {
  const QImage image = picture.grab().toImage();
  std::string letters;
  for (int y = 0; y < image.height(); ++y) {
    if (y > 0) letters += '/';
    for (int x = 0; x < image.width(); ++x) {
      const QColor colour = image.pixelColor(x, y);
      letters += colour == Qt::magenta ? '.'
                 : colour == Qt::red   ? 'r'
                 : colour == Qt::green ? 'g'
                 : colour == Qt::blue  ? 'b'
                 : colour == Qt::black ? 'k'
                                       : '?';
    }
  }
  return letters;
}

QByteArray Many(int frames) {
  const std::vector<GifFrame> two = {{0, 0, "r"}, {0, 0, "g"}};
  std::vector<GifFrame> all;
  for (int at = 0; at < frames; ++at) all.push_back(two[at % 2]);
  return Gif({1, 1}, all);
}

const QByteArray kBlink = Gif({1, 1}, {{0, 0, "r", 2}, {0, 0, "g", 2}}, 0);

const QByteArray kThree = Gif({2, 2}, {{0, 0, "rr/rr", 5}, {1, 1, "g", 7, 1}, {0, 0, "b", 9}});
const QByteArray kCleared = Gif({2, 2}, {{0, 0, "rr/rr"}, {0, 1, "gg", 5, 2}, {0, 0, "b"}});
const QByteArray kFormer = Gif({2, 2}, {{0, 0, "rr/rr"}, {0, 1, "gg", 5, 3}, {0, 0, "b"}});
const struct Row {
  const char* name;
  QByteArray bytes;
  std::vector<std::string> frames;
  int length;
  const char* failure = "";
} kPictures[] = {
    {"one frame", Gif({2, 2}, {{0, 0, "rg/bk"}}), {"rg/bk"}, 50},
    {"frames that stay", kThree, {"rr/rr", "rr/rg", "br/rg"}, 210},
    {"frames that give way", kCleared, {"rr/rr", "rr/gg", "br/.."}, 150},
    {"frames that bring back", kFormer, {"rr/rr", "rr/gg", "br/rr"}, 150},
    {"no time",
     Gif({1, 1}, {{0, 0, "r", 0}, {0, 0, "g", 1}, {0, 0, "b", 2}}),
     {"r", "g", "b"},
     220},
    {"transparent", Gif({2, 1}, {{0, 0, ".r"}, {0, 0, "g."}}), {".r", "gr"}, 100},
    {"1 x 1", Gif({1, 1}, {{0, 0, "b"}}), {"b"}, 50},
    {"no trailer", kThree.chopped(1), {"rr/rr", "rr/rg", "br/rg"}, 210},
    {"cut", kThree.chopped(6), {}, 0, "The picture is cut off in frame 3."},
    {"cut at once", kThree.left(20), {}, 0, "The picture is cut off in frame 1."},
    {"wrong header", "JIF89a" + kThree.mid(6), {}, 0, "This is not a picture of a known format."},
    {"no frames", Gif({1, 1}, {}), {}, 0, "The picture has no frames."},
    {"wide", Gif({4000, 3}, {{0, 0, "r"}}), {}, 0, "The picture is larger than 9,999 pixels."},
    {"far", Gif({2, 2}, {{65000, 0, "r"}}), {}, 0, "The picture is larger than 9,999 pixels."},
    {"many", Many(10'001), {}, 0, "The picture has more than 10,000 frames."},
    {"long", QByteArray(600'000, 'x'), {}, 0, "The picture is larger than 488.28 KiB."},
};

}  // namespace

TEST(AnimatedPicture, ShowsEveryFrameAsItShouldLookOrSaysWhyNot) {
  QLocale::setDefault(QLocale::English);
  for (const Row& row : kPictures) {
    SCOPED_TRACE(row.name);
    AnimatedPicture picture;
    picture.setBackground(Qt::magenta);
    picture.setAutoplay(false);
    picture.setMaxBytes(500'000);
    picture.setMaxPixels(9'999);
    picture.setMaxFrames(10'000);
    picture.setData(row.bytes);
    EXPECT_EQ(picture.failure().toStdString(), row.failure);
    picture.resize(picture.pictureSize().expandedTo({1, 1}));
    EXPECT_EQ(picture.frameCount(), row.frames.size());
    for (int told = 0; told < 2 && picture.animated();
         ++told) {  // by the blocks, then by the reader
      EXPECT_EQ(picture.length(), row.length);
      for (size_t at = 0; at < row.frames.size(); ++at, picture.step()) {
        EXPECT_EQ(Seen(picture), row.frames[at]);
      }
    }
    if (row.frames.size() == 1) {
      EXPECT_EQ(Seen(picture), row.frames[0]);
    }
  }
}

TEST(AnimatedPicture, WalksThroughTenThousandFramesAndKeepsNone) {
  const auto resident = [] {
    QFile file(QStringLiteral("/proc/self/statm"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ')[1].toInt() / 256 : 0;
  };
  AnimatedPicture picture;
  picture.setAutoplay(false);
  picture.setData(Many(10'000));
  EXPECT_EQ(picture.frameCount(), 10'000);
  picture.setFrame(20'000);
  EXPECT_TRUE(Wait([&] { return picture.frame() == 9'999; }));
  std::vector<GifFrame> large(300, {0, 0, "r"});
  picture.setData(Gif({1000, 1000}, large));  // kept, they would be 1.2 GB
  const int before = resident();
  picture.setFrame(299);
  EXPECT_TRUE(Wait([&] { return picture.frame() == 299; }, 20'000));
  EXPECT_LT(resident() - before, 600) << "megabytes; the sanitizers hold some hundred back";
}

TEST(PictureReader, DecodesOnceWhereAllFramesMayBeKept) {
  constexpr int kAll = 3 * 2 * 2 * 4;
  for (const auto& [kept, once] : {std::pair(0, false), {kAll - 1, false}, {kAll, true}}) {
    PictureReader reader(kThree, {.bytes = 9999, .pixels = 9, .frames = 9, .kept = kept});
    std::vector<std::tuple<qint64, int, QImage>> passes[2];
    for (auto& pass : passes) {
      for (reader.Rewind(); reader.Next();) {
        pass.emplace_back(reader.Frame().cacheKey(), reader.Delay(), reader.Frame());
      }
      ASSERT_EQ(pass.size(), 3);
    }
    EXPECT_EQ(passes[0] == passes[1], once) << kept;
  }
}

TEST(AnimatedPicture, StandsInsideOfItsBorder) {
  AnimatedPicture picture;
  QPalette blue;
  blue.setColor(QPalette::WindowText, Qt::blue);
  picture.setPalette(blue);
  picture.setData(Gif({2, 1}, {{0, 0, "rg"}}));
  int told = 0;
  QObject::connect(&picture, &AnimatedPicture::frameStyleChanged, [&] { ++told; });
  for (int time = 0; time < 2; ++time) picture.setFrameStyle(QFrame::Box | QFrame::Plain);
  EXPECT_EQ(told, 1);
  picture.resize(picture.sizeHint());
  EXPECT_EQ(Seen(picture), "bbbb/brgb/bbbb");
}

TEST(AnimatedPicture, MayBeDeletedByWhoeverItTells) {
  const auto deleting = [](auto signal) {
    return [signal](AnimatedPicture* picture, int time) {
      QObject::connect(picture, signal, [picture, time]() mutable {
        if (--time == 0) delete picture;
      });
    };
  };
  const std::function<void(AnimatedPicture*, int)> kSignals[] = {
      deleting(&AnimatedPicture::failed),        deleting(&AnimatedPicture::failureChanged),
      deleting(&AnimatedPicture::sourceChanged), deleting(&AnimatedPicture::playingChanged),
      deleting(&AnimatedPicture::frameChanged),  deleting(&AnimatedPicture::finished)};
  for (const auto& watch : kSignals) {
    for (int time = 1; time <= 8; ++time) {
      const QPointer<AnimatedPicture> picture(new AnimatedPicture);
      watch(picture, time);
      const std::function<void()> kSteps[] = {
          [&] { picture->setSpeed(1000), picture->show(); },
          [&] { picture->setData(kThree); },
          [&] { Wait([&] { return !picture || !picture->playing(); }); },
          [&] { picture->play(); },
          [&] { picture->setMotion(AnimatedPicture::Motion::OnRequest); },
          [&] { picture->play(); },
          [&] { picture->step(); },
          [&] { picture->play(); },
          [&] { picture->stop(); },
          [&] { picture->play(); },
          [&] { picture->setData("x"); },
          [&] { picture->setData({}); },
          [&] { delete picture; }};
      for (const auto& step : kSteps) {
        if (picture != nullptr) step();
      }
    }
  }
}

TEST(AnimatedPicture, PlaysAsOftenAsItIsTold) {
  using Loops = AnimatedPicture::Loops;
  const struct {
    Loops loops;
    int count, repeats, frames;
  } kRows[] = {{Loops::AsFile, 9, -1, 2},
               {Loops::AsFile, 9, 2, 6},
               {Loops::Once, 9, 0, 2},
               {Loops::Count, 3, 0, 6},
               {Loops::Count, -5, 0, 2}};
  for (const auto& row : kRows) {
    AnimatedPicture picture;
    int frames = 0;
    bool finished = false;
    QObject::connect(&picture, &AnimatedPicture::frameChanged, [&] { ++frames; });
    QObject::connect(&picture, &AnimatedPicture::finished, [&] { finished = true; });
    picture.setSpeed(2000);
    EXPECT_EQ(picture.speed(), 1000);
    picture.setLoops(row.loops);
    picture.setLoopCount(row.count);
    picture.setData(Gif({1, 1}, {{0, 0, "r", 5}, {0, 0, "g", 5}}, row.repeats));
    EXPECT_TRUE(picture.playing());
    picture.show();
    EXPECT_TRUE(Wait([&] { return finished; }));
    EXPECT_EQ(frames, row.frames);
    EXPECT_FALSE(picture.playing());
    EXPECT_EQ(picture.frame(), 1);
  }
}

TEST(AnimatedPicture, StandsStillWhileNobodySeesIt) {
  QWidget window;
  window.resize(100, 100);
  AnimatedPicture picture(&window);
  QWidget cover(&window);
  cover.resize(100, 100);
  cover.setAutoFillBackground(true);
  cover.hide();
  int frames = 0;
  QObject::connect(&picture, &AnimatedPicture::frameChanged, [&] { ++frames; });
  picture.setData(kBlink);
  const auto moves = [&](int most) {
    Wait([] { return false; }, 30);  // what was under way ends
    const int before = frames;
    return Wait([&] { return frames > before + 1; }, most);
  };
  window.show();
  EXPECT_TRUE(moves(3000));
  const std::pair<std::function<void()>, std::function<void()>> kWays[] = {
      {[&] { picture.hide(); }, [&] { picture.show(); }},
      {[&] { window.hide(); }, [&] { window.show(); }},
      {[&] { window.showMinimized(); }, [&] { window.showNormal(); }},
      {[&] { cover.show(); }, [&] { cover.hide(); }},
      {[&] { picture.move(200, 0); }, [&] { picture.move(0, 0); }},
  };
  for (const auto& [away, back] : kWays) {
    away();
    EXPECT_FALSE(moves(100));
    EXPECT_TRUE(picture.playing());
    back();
    EXPECT_TRUE(moves(3000));
  }
}

TEST(AnimatedPicture, WaitsForAClickOrSpaceWhereLessMotionIsWanted) {
  AnimatedPicture picture;
  picture.setMotion(AnimatedPicture::Motion::OnRequest);
  picture.setData(Gif({90, 90}, {{0, 0, "r"}}));
  EXPECT_FALSE(picture.takesClicks()) << "a still picture";
  picture.setData(kBlink);
  picture.setScaleMode(AnimatedPicture::ScaleMode::Stretch);
  picture.resize(90, 90);
  picture.show();
  QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&picture);
  EXPECT_EQ(told->role(), QAccessible::Animation);
  EXPECT_EQ(picture.focusPolicy(), Qt::StrongFocus);
  const QPointF middle(45, 45);
  const std::function<void()> kWays[] = {
      [&] {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
          QKeyEvent key(type, Qt::Key_Space, Qt::NoModifier);
          QApplication::sendEvent(&picture, &key);
        }
      },
      [&] {
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
          QMouseEvent mouse(type, middle, middle, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
          QApplication::sendEvent(&picture, &mouse);
        }
      },
      [&] { told->actionInterface()->doAction(QAccessibleActionInterface::pressAction()); },
  };
  bool plays = false;
  for (const auto& way : kWays) {
    EXPECT_EQ(picture.playing(), plays);
    EXPECT_EQ(told->state().animated, plays);
    way();
    plays = !plays;
  }
  EXPECT_EQ(picture.playing(), plays);
}

TEST(AnimatedPicture, ReadsAFileOnDemandOnlyAndTakesTheFinerOne) {
  QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("a.gif"));
  const auto write = [&](const QString& name, const QByteArray& bytes) {
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  };
  AnimatedPicture picture;
  std::vector<std::string> reasons;
  QObject::connect(&picture, &AnimatedPicture::failed,
                   [&](const QString& reason) { reasons.push_back(reason.toStdString()); });
  std::vector<bool> fails;
  QObject::connect(&picture, &AnimatedPicture::failureChanged,
                   [&](const QString& failure) { fails.push_back(!failure.isEmpty()); });
  picture.setSource(path);
  write(QStringLiteral("a.gif"), kBlink);
  picture.setSource(path);
  EXPECT_EQ(picture.frameCount(), 0);
  picture.reload();
  EXPECT_EQ(picture.frameCount(), 2);
  write(QStringLiteral("a@2x.gif"), kBlink);
  EXPECT_EQ(FinestFor(path, 1).second, 1);
  EXPECT_EQ(FinestFor(path, 2.5).first, folder.filePath(QStringLiteral("a@2x.gif")));
  picture.setSource(folder.path());
  picture.setSource(QStringLiteral("/dev/zero"));
  picture.setSource(QStringLiteral("/proc/self/mem"));
  EXPECT_THAT(reasons, ElementsAre("The file was not found.", "This is not a regular file.",
                                   "This is not a regular file.",
                                   "The picture can't be read: Input/output error."));
  EXPECT_THAT(fails, ElementsAre(true, false, true, true));
}

TEST(AnimatedPicture, TakesWhatADeviceHasToGive) {
  AnimatedPicture picture;
  QBuffer device;
  device.setData("skipped" + kBlink);
  device.open(QIODevice::ReadOnly);
  device.seek(7);
  picture.setDevice(&device);
  EXPECT_EQ(picture.frameCount(), 2);
  QBuffer closed;
  closed.setData(kThree);
  picture.setDevice(&closed);
  EXPECT_EQ(picture.frameCount(), 3);
  EXPECT_FALSE(closed.isOpen());
}
