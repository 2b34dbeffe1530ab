#include "design/Shape.h"
#include "designer/NumberPage.h"
#include "designer/PageFixture.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kParts = u"GrdNumberParts"_s;

class NumberPageTest : public PageTest<designer::NumberPage> {
 protected:
  void SetUp() override {
    PageTest::SetUp();
    FixClock(QDateTime(QDate(2026, 5, 4), QTime(9, 0)));
    Shown().SetTable(u"Gdwj"_s);
  }
  const Design::Table& Archive() { return *design::FindNamed(Wanted().tables, u"Gdwj"_s); }
  QString Text(const QString& label) { return TextIn(Shown(), label); }
  void Choose(const QString& box, const QString& label) {
    auto& choice = Find<QComboBox>(Shown(), box);
    choice.setFocus();
    ASSERT_GE(choice.findText(label), 0) << label.toStdString();
    while (choice.currentText() != label) {
      const int before = choice.currentIndex();
      Press(choice, choice.findText(label) < before ? Qt::Key_Up : Qt::Key_Down);
      ASSERT_NE(choice.currentIndex(), before);
    }
  }
};
FOLVANE_ON_EACH_DATABASE(NumberPageTest);

TEST_P(NumberPageTest, ShowsThePartsAndANumberThatTheyMake) {
  EXPECT_EQ(Rows(kParts), QStringList({u"全宗号 FondsNo|全宗号|-|是|4|"_s, u"年度 FileYear|年度|-|否|4|"_s,
                                       u"件号 DocOrder|件号|-|否|4|"_s}));
  EXPECT_EQ(Text(u"LblExample"_s), u"0188-2026-0001");
  EXPECT_EQ(Text(u"LblFolderExample"_s), u"(无)");
  EXPECT_EQ(Text(u"LblComplaints"_s), u"档号最长 14 字节。格式没有问题。");
  EXPECT_EQ(Find<QComboBox>(Shown(), u"CmbNumberField"_s).currentText(), u"档号 ArchiveNo");
  EXPECT_EQ(UnnamedControls(Shown()), QStringList());
}

TEST_P(NumberPageTest, TheExampleFollowsEveryChange) {
  Write(kParts, 2, 4, u"3"_s);
  EXPECT_EQ(Text(u"LblExample"_s), u"0188-2026-001");
  Write(kParts, 1, 2, u"·"_s);
  EXPECT_EQ(Text(u"LblExample"_s), u"0188·2026-001");
  GoTo(kParts, 1);
  Press(Grid(kParts), Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(Text(u"LblExample"_s).left(9), u"2026-0188");
  Tick(kParts, 1, 3);
  EXPECT_FALSE(Archive().numberParts[1].showsCode);
  ExpectTakenBack();
  EXPECT_EQ(Text(u"LblExample"_s), u"0188-2026-0001");
}

TEST_P(NumberPageTest, ADictionarysCodeIsThatOfTheDesign) {
  session_->Change(u"x"_s, [](Design& design) { design.dictionaries[0].entries[0].code = u"NB"_s; });
  Remove(kParts, 1);
  Add(kParts);
  EXPECT_EQ(Rows(kParts).last(), u"年度 FileYear|年度|-|否|4|末段不是数字字段，不自动编号，值由字段对应给出"_s);
  Write(kParts, 1, 0, u"密级 SecurityClass"_s);
  EXPECT_EQ(Archive().numberParts[1].caption, u"密级");
  Tick(kParts, 1, 3);
  EXPECT_EQ(Text(u"LblExample"_s).left(9), u"0188-00NB");
  ExpectTakenBack();
}

TEST_P(NumberPageTest, WhatIsWrongIsToldAsSentences) {
  Write(kParts, 2, 4, u"60"_s);
  EXPECT_THAT(Text(u"LblComplaints"_s).toStdString(), testing::HasSubstr("档号最长 70 字节"));
  Choose(u"CmbFolderField"_s, u"档号 ArchiveNo"_s);
  EXPECT_EQ(Archive().folderNumberField, u"ArchiveNo");
  EXPECT_EQ(Text(u"LblFolderExample"_s), u"0188-2026");
  Choose(u"CmbFolderField"_s, u"(无)"_s);
  EXPECT_EQ(Archive().folderNumberField, u"(无)");
  Choose(u"CmbNumberField"_s, u"(无)"_s);
  EXPECT_EQ(Archive().numberField, QString());
  EXPECT_EQ(Text(u"LblComplaints"_s), u"档号最长 70 字节。没有选择档号字段，归档时不组成档号。");
  ExpectTakenBack();
}

TEST_P(NumberPageTest, AFieldTwiceAndAWidthThatIsNoneAreRefused) {
  Write(kParts, 0, 0, u"年度 FileYear"_s);
  EXPECT_EQ(Told(), u"字段“年度 FileYear”已是档号的一段。");
  Write(kParts, 0, 4, u"0"_s);
  EXPECT_EQ(Told(), u"宽度应是 1 到 255 的整数。");
  EXPECT_FALSE(session_->IsChanged());
}

TEST_P(NumberPageTest, AFormatThatIsMadeFromNothingCanBeStored) {
  Shown().SetTable(u"Lwdj"_s);
  EXPECT_EQ(Text(u"LblExample"_s), u"（没有格式）");
  EXPECT_FALSE(Find<QComboBox>(Shown(), u"CmbNumberField"_s).isEnabled());
  Add(kParts);
  Add(kParts);
  Choose(u"CmbNumberField"_s, u"题名 Amaintitle"_s);
  session_->Apply(session_->Plan(), {});
  EXPECT_EQ(Read(), Wanted());
  const Design::Table& letters = *design::FindNamed(Wanted().tables, u"Lwdj"_s);
  EXPECT_EQ(letters.folderNumberField, u"(无)");
  Remove(kParts, 0);
  Remove(kParts, 0);
  session_->Apply(session_->Plan(), {});
  EXPECT_EQ(Read(), Wanted());
}

}  // namespace
}  // namespace folvane::test
