#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "originals/OriginalPlaces.h"
#include "support/QtPrinting.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

TEST(OriginalPlacesTest, BothSeparatorsDivideThePathAndTheEndingIsJoinedAsItStands) {
  const CheckedPlace place = Checked({u"2002\\a/b\\"_s, u"7"_s, u".tif"_s});
  EXPECT_EQ(place.directories, (QStringList{u"2002"_s, u"a"_s, u"b"_s}));
  EXPECT_EQ(place.name, u"7.tif"_s);
  EXPECT_TRUE(Checked({QString(), u"7"_s, u"tif"_s}).directories.isEmpty());
  EXPECT_EQ(Checked({u"\\2002"_s, u"7"_s, u".tif"_s}).directories, QStringList{u"2002"_s}) << "behind the store's own";
  EXPECT_EQ(Checked({QString(), u"7."_s, u".tif"_s}).name, u"7..tif"_s);
}

TEST(OriginalPlacesTest, APlaceThatLeadsOutOfTheStoreIsRefused) {
  const std::vector<OriginalPlace> places{
      {u".."_s, u"7"_s, u".tif"_s},        {u"2002/../.."_s, u"7"_s, u".tif"_s},  {u"2002\\..\\a"_s, u"7"_s, u".tif"_s},
      {u"//etc"_s, u"7"_s, u".tif"_s},     {u"\\\\server\\x"_s, u"7"_s, u".t"_s}, {u"C:\\a"_s, u"7"_s, u".tif"_s},
      {u"a/c:"_s, u"7"_s, u".tif"_s},      {u"a\nb"_s, u"7"_s, u".tif"_s},        {u"a"_s, u"../7"_s, u".tif"_s},
      {u"a"_s, u"b/7"_s, u".tif"_s},       {u"a"_s, u"b\\7"_s, u".tif"_s},        {u"a"_s, u"7"_s, u"/../x"_s},
      {u"a"_s, u"7"_s, u"\\x"_s},          {u"a"_s, u"c:7"_s, u".tif"_s},         {u"a"_s, u"7\r"_s, u".tif"_s},
      {u"a"_s, u"7"_s, QString(QChar(0))}, {u"a"_s, QString(), QString()},        {u"a"_s, u"."_s, u"."_s},
      {u"a"_s, u"."_s, QString()},         {u"a"_s, u".."_s, QString()},
  };
  for (const OriginalPlace& place : places)
    EXPECT_THROW(Checked(place), DataError) << (place.filePath + u"|"_s + place.id + u"|"_s + place.type).toStdString();
}

TEST(OriginalPlacesTest, TheErrorShowsThePlaceInOneLine) {
  try {
    Checked({u"a\nb"_s, u"7"_s, u".tif"_s});
    FAIL() << "not refused";
  } catch (const DataError& error) {
    EXPECT_EQ(error.Kind(), DataErrorKind::File);
    EXPECT_TRUE(error.Message().contains(u"a␊b"_s) && !error.Message().contains(u'\n')) << error.what();
  }
}

}  // namespace folvane::test
