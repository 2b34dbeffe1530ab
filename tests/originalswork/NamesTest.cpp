#include <gtest/gtest.h>

#include "components/originals/OriginalNames.h"
#include "support/QtPrinting.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace originals;

QStringList Split(const QString& fileName) {
  const NameAndType parts = SplitFileName(fileName);
  return {parts.name, parts.type};
}

TEST(OriginalNamesTest, TheLastEndingWithItsDotIsTheType) {
  EXPECT_EQ(Split(u"正文.pdf"_s), QStringList({u"正文"_s, u".pdf"_s}));
  EXPECT_EQ(Split(u"a.tar.gz"_s), QStringList({u"a.tar"_s, u".gz"_s}));
  EXPECT_EQ(Split(u"通知"_s), QStringList({u"通知"_s, QString()}));
}

TEST(OriginalNamesTest, WhatIsNoPlainEndingStaysInTheName) {
  for (const QString& name :
       {u".bashrc"_s, u"x."_s, u"第3.关于印发"_s, u"a.b c"_s, u"a.../x"_s, u"a.p'f"_s, u"a.abcdefghijklmnopqrst"_s})
    EXPECT_EQ(Split(name), QStringList({name, QString()}));
  EXPECT_EQ(Split(u"a.abcdefghijklmnopqrs"_s).last().size(), 20) << "the dot and 19 letters just fit the column";
}

TEST(OriginalNamesTest, ANameIsShortenedToTheBytesOfItsColumn) {
  EXPECT_EQ(FitName(QString(300, u'a')).size(), 255);
  EXPECT_EQ(FitName(QString(200, u'文')).size(), 127) << "two bytes for each";
  EXPECT_EQ(FitName(u'a' + QString(127, u'文')).size(), 128) << "255 bytes exactly";
  EXPECT_EQ(FitName(u"aa"_s + QString(127, u'文')).size(), 128) << "no half of a character";
}

TEST(OriginalNamesTest, APairOfSurrogatesIsNotTakenApart) {
  const QString smile = u"\U0001F600"_s;
  EXPECT_EQ(FitName(QString(252, u'a') + smile), QString(252, u'a'));
  EXPECT_EQ(FitName(QString(251, u'a') + smile), QString(251, u'a') + smile);
}

TEST(OriginalNamesTest, ControlCharactersAndBlanksAtTheEndsGo) {
  EXPECT_EQ(FitName(u" 第一页\n第二页\t"_s), u"第一页 第二页"_s);
  EXPECT_EQ(FitName(u" \n "_s), u"未命名"_s);
}

TEST(OriginalNamesTest, AnExportHasANameThatFileSystemsTake) {
  EXPECT_EQ(ExportName({u"关于/A:B的“通知”?"_s, u".pdf"_s}, {}), u"关于_A_B的“通知”_.pdf"_s);
  EXPECT_EQ(ExportName({u"..."_s, u".txt"_s}, {}), u"未命名.txt"_s);
  EXPECT_LE(ExportName({QString(255, u'文'), u".txt"_s}, {}).toUtf8().size(), 255 + 100);
}

TEST(OriginalNamesTest, AnExportTakesNoNameTwice) {
  EXPECT_EQ(ExportName({u"正文"_s, u".pdf"_s}, {u"正文.PDF"_s, u"正文 (2).pdf"_s}), u"正文 (3).pdf"_s);
}

}  // namespace
}  // namespace folvane::test
