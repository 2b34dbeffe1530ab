#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <gtest/gtest.h>

#include <folvane/Icons.h>

#include "browser/BrowserCommands.h"
#include "entry/EntryCommandDesign.h"
#include "host/Appearance.h"
#include "host/Entries.h"
#include "support/QtPrinting.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

QImage Drawn(const QString& name, int size = 32, QIcon::Mode mode = QIcon::Normal) {
  return Icon(name).pixmap(QSize(size, size), 1.0, mode).toImage();
}

int Ink(const QImage& picture) {
  int points = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) points += qAlpha(picture.pixel(x, y)) > 64;
  return points;
}

bool HasColour(const QImage& picture, const QColor& colour) {
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      if (picture.pixelColor(x, y) == colour) return true;
  return false;
}

class InPalette {
 public:
  explicit InPalette(const QPalette& palette) : before_(QApplication::palette()) { QApplication::setPalette(palette); }
  ~InPalette() { QApplication::setPalette(before_); }

 private:
  QPalette before_;
};

TEST(Icons, EveryPictureHasInkAtEverySize) {
  ASSERT_GT(IconNames().size(), 40);
  for (const QString& name : IconNames())
    for (const int size : {16, 24, 48})
      EXPECT_GT(Ink(Drawn(name, size)), size * size / 12) << name.toStdString() << ' ' << size;
}

TEST(Icons, AnUnknownNameGivesNoIcon) {
  EXPECT_TRUE(Icon(u"no such picture"_s).isNull());
  EXPECT_TRUE(Icon({}).isNull());
}

TEST(Icons, ANameCountsInAnyCase) { EXPECT_EQ(Drawn(u"NextPage"_s), Drawn(u"nextpage"_s)); }

TEST(Icons, CommandsKeysNodesAndRowsHavePictures) {
  QStringList names{u"CLOSE"_s, u"Table"_s, u"Cent1"_s, u"Cent"_s, u"row1"_s, u"row2"_s, u"row4"_s, u"row5"_s};
  for (const host::Entry& entry : host::Entries()) names << entry.icon;
  for (const CommandDesign& design : {BrowserDesign(), EntryCommandDesign()}) {
    for (const CommandKey& key : design.keys) names << key.icon;
    for (const CommandMenu& menu : design.menus)
      for (const CommandEntry& entry : menu.entries) names << entry.icon;
  }
  names.removeAll(QString());  // separators
  EXPECT_GT(names.size(), 40);
  for (const QString& name : names) EXPECT_FALSE(Icon(name).isNull()) << name.toStdString();
}

TEST(Icons, EveryNameThatTheSourcesAskForHasAPicture) {
  const QRegularExpression asked(u"Icon\\((?:u|QStringLiteral\\()\"([^\"%]+)\""_s);
  QStringList names;
  for (const QString& folder : {u"/src"_s, u"/host"_s, u"/components"_s}) {
    QDirIterator files(QLatin1String(SOURCES) + folder, {u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
      QFile file(files.next());
      ASSERT_TRUE(file.open(QIODevice::ReadOnly));
      const QString source = QString::fromUtf8(file.readAll());
      for (const auto& match : asked.globalMatch(source)) names << match.captured(1);
    }
  }
  EXPECT_TRUE(names.contains(u"folvane"_s));
  for (const QString& name : names) EXPECT_FALSE(Icon(name).isNull()) << name.toStdString();
}

TEST(Icons, TheLinesFollowThePalette) {
  const QIcon icon = Icon(u"row1"_s);
  const InPalette light(host::LightPalette());
  const QImage onLight = icon.pixmap(32).toImage();
  const InPalette dark(host::DarkPalette());
  const QImage onDark = icon.pixmap(32).toImage();
  EXPECT_LT(onLight.pixelColor(16, 3).lightness(), 100);
  EXPECT_GT(onDark.pixelColor(16, 3).lightness(), 160);
}

TEST(Icons, TheAccentStaysReadableInTheDark) {
  const InPalette light(host::LightPalette());
  EXPECT_TRUE(HasColour(Drawn(u"search"_s, 96), QColor(0xff0b6bcb)));
  const InPalette dark(host::DarkPalette());
  EXPECT_TRUE(HasColour(Drawn(u"search"_s, 96), QColor(0xff6cb8ff)));
}

TEST(Icons, EveryWindowOfTheProgramHasItsPicture) {
  const InPalette restored(QApplication::palette());
  host::ApplyAppearance(*qApp);
  EXPECT_FALSE(QWidget().windowIcon().isNull());
  QApplication::setWindowIcon({});
}

TEST(Icons, ADisabledPictureHasNoAccent) {
  const InPalette light(host::LightPalette());
  const QImage picture = Drawn(u"search"_s, 96, QIcon::Disabled);
  EXPECT_GT(Ink(picture), 0);
  EXPECT_FALSE(HasColour(picture, QColor(0xff0b6bcb)));
}

TEST(Icons, TwiceTheDensityGivesTwiceThePoints) {
  const QPixmap picture = Icon(u"save"_s).pixmap(QSize(24, 24), 2.0);
  EXPECT_EQ(picture.size(), QSize(48, 48));
  EXPECT_EQ(picture.devicePixelRatio(), 2.0);
  EXPECT_EQ(picture.toImage(), Icon(u"save"_s).pixmap(QSize(48, 48), 1.0).toImage());
}

}  // namespace
}  // namespace folvane
