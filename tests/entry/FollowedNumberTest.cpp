#include <QLineEdit>

#include "InputFixture.h"

namespace folvane::test {
namespace {

/// The registration number while the fields that it is made from are typed.
class FollowedNumberTest : public InputTest {};

TEST_P(FollowedNumberTest, TheNumberFollowsTheDocumentNumberWhileItIsTyped) {
  Formula(RegFormula::DocNo);
  Flag(u"UseSpecialSign"_s, true);
  AddRecords(1);
  Design({u"DocNo"_s, u"文号"_s});
  Design({u"RegID"_s, u"登记号"_s});
  Design({u"FondsNo"_s, u"全宗"_s});
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"国发〔2002〕17号"_s);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"17"_s);
    input.Retype(u"Txt(1)"_s, u"国发〔2002〕号"_s);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), QString());
    Find<QLineEdit>(input.Window(), u"Txt(1)"_s).setText(u"国发〔2002〕19号"_s);
    input.PressIn(u"Txt(1)"_s, Qt::Key_Return);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"19"_s) << "as the field is left";
    input.Form().CancelEdit();
  });
}

TEST_P(FollowedNumberTest, ANumberTooGreatForItsColumnIsNoMatterWhileItIsTyped) {
  Formula(RegFormula::DocNo);
  Flag(u"UseSpecialSign"_s, true);
  AddRecords(1);
  Design({u"DocNo"_s, u"文号"_s});
  Design({u"RegID"_s, u"登记号"_s});
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"〔2002〕99999999999999999999号"_s);
    EXPECT_TRUE(boxes_.Requests().empty());
    input.Form().CancelEdit();
  });
}

TEST_P(FollowedNumberTest, TheBracketOfTheYearFollowsTheOption) {
  Formula(RegFormula::DocNo);
  AddRecords(1);
  Design({u"DocNo"_s, u"文号"_s});
  Design({u"RegID"_s, u"登记号"_s});
  InWindow([](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"X〔2002〕17号"_s);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), QString());
    input.Retype(u"Txt(1)"_s, u"X[2002]17号"_s);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"17"_s);
    input.Form().CancelEdit();
    input.Do(u"UseSign"_s);
    input.Retype(u"Txt(1)"_s, u"X〔2002〕18号"_s);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"18"_s);
    input.Form().CancelEdit();
  });
}

TEST_P(FollowedNumberTest, TheNumberFollowsTheDatesOfANewRecordOnly) {
  Formula(RegFormula::FileDate);
  AddRecords(1);
  Run(u"update Lwdj set FileDate = '2003-01-01'"_s);
  Design({u"FileDate"_s, u"日期"_s, ControlKind::DTP});
  Design({u"RegID"_s, u"登记号"_s});
  InWindow([](const Input& input) {
    input.Retype(u"DTP(1)"_s, u"2002-05-06"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"1"_s);
    input.Form().CancelEdit();
    input.Do(u"AddNewRecord"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"1"_s);
    input.Retype(u"DTP(1)"_s, u"2003-05-06"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"2"_s);
    input.Do(u"CancelRecord"_s);
  });
}

TEST_P(FollowedNumberTest, BehindTheGreatestOfAllThereIsNoNumber) {
  Formula(RegFormula::FileDate);
  AddRecords(1);
  Run(u"update Lwdj set FileDate = '2003-01-01', RegID = 2147483647"_s);
  Design({u"FileDate"_s, u"日期"_s, ControlKind::DTP});
  Design({u"RegID"_s, u"登记号"_s});
  InWindow(
      [&](const Input& input) {
        input.Retype(u"DTP(1)"_s, u"2003-05-06"_s);
        EXPECT_EQ(input.Text(u"Txt(1)"_s), u"1"_s) << "as it was";
        EXPECT_TRUE(boxes_.Requests().empty());
        input.Do(u"CancelRecord"_s);
      },
      true);
}

TEST_P(FollowedNumberTest, ANextNumberThatCannotBeReadIsToldAndWhatWasTypedStays) {
  Formula(RegFormula::FileDate);
  Design({u"FileDate"_s, u"日期"_s, ControlKind::DTP});
  Design({u"RegID"_s, u"登记号"_s});
  InWindow(
      [&](const Input& input) {
        Run(u"alter table Lwdj rename to Away"_s);
        input.Retype(u"DTP(1)"_s, u"2003-05-06"_s);
        Run(u"alter table Away rename to Lwdj"_s);
        EXPECT_EQ(boxes_.Requests().size(), 1u);
        EXPECT_EQ(input.Text(u"DTP(1)"_s), u"2003-05-06"_s);
        input.Do(u"CancelRecord"_s);
      },
      true);
}

TEST_P(FollowedNumberTest, TheNumberFollowsAnArchiveDateOfANewRecord) {
  Formula(RegFormula::CreatedDate);
  AddRecords(1);
  Run(u"update Lwdj set CreatedDate = '20030101', RegID = 8"_s);
  Design({u"CreatedDate"_s, u"日期"_s, ControlKind::DTP_Arch});
  Design({u"RegID"_s, u"登记号"_s});
  InWindow(
      [](const Input& input) {
        input.Retype(u"DTP_Arch(1)"_s, u"20030506"_s);
        EXPECT_EQ(input.Text(u"Txt(1)"_s), u"9"_s);
        input.Retype(u"DTP_Arch(1)"_s, u"20040506"_s);
        EXPECT_EQ(input.Text(u"Txt(1)"_s), u"1"_s);
        input.Do(u"CancelRecord"_s);
      },
      true);
}

FOLVANE_ON_EACH_DATABASE(FollowedNumberTest);

}  // namespace
}  // namespace folvane::test
