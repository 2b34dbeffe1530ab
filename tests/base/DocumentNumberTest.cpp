#include <gtest/gtest.h>

#include "base/DocumentNumber.h"
#include "support/QtPrinting.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(DocumentNumber, FallsIntoItsParts) {
  const auto number = DocumentNumber::Split(u"国发〔2002〕第017号"_s);
  ASSERT_TRUE(number);
  EXPECT_EQ(number->agency, u"国发"_s);
  EXPECT_EQ(number->brackets, u"〔〕"_s);
  EXPECT_EQ(number->year, u"2002"_s);
  EXPECT_EQ(number->before, u"第"_s);
  EXPECT_EQ(number->running, u"017"_s);
  EXPECT_EQ(number->after, u"号"_s);
  EXPECT_EQ(number->Join(), u"国发〔2002〕第017号"_s);
}

TEST(DocumentNumber, IsFollowedByTheNextRunningNumber) {
  EXPECT_EQ(NextDocumentNumber(u"国发〔2002〕17号"_s), u"国发〔2002〕18号"_s);
  EXPECT_EQ(NextDocumentNumber(u"国发[2002]17号"_s), u"国发[2002]18号"_s);
  EXPECT_EQ(NextDocumentNumber(u"〔2002〕9"_s), u"〔2002〕10"_s);
}

TEST(DocumentNumber, CountsOnInWhateverBracketsAnOfficeWrites) {
  for (const auto& [number, next] :
       {std::pair{u"国办发〔2002〕17号"_s, u"国办发〔2002〕18号"_s},
        std::pair{u"青政发[1998]5号"_s, u"青政发[1998]6号"_s},
        std::pair{u"按国办发(1985)49号"_s, u"按国办发(1985)50号"_s}, std::pair{u"［1995］32号"_s, u"［1995］33号"_s},
        std::pair{u"教发厅函【2019】12号"_s, u"教发厅函【2019】13号"_s},
        std::pair{u"青办（2003）8号"_s, u"青办（2003）9号"_s}, std::pair{u"国发﹝98﹞1号"_s, u"国发﹝98﹞2号"_s},
        std::pair{u"教(人)发〔2002〕9号"_s, u"教(人)发〔2002〕10号"_s},
        std::pair{u"青办（2003）8号（密）"_s, u"青办（2003）9号（密）"_s}})
    EXPECT_EQ(NextDocumentNumber(number), next);
}

TEST(DocumentNumber, CountsOnWithoutAYear) {
  EXPECT_EQ(NextDocumentNumber(u"国令第707号"_s), u"国令第708号"_s);
  EXPECT_EQ(NextDocumentNumber(u"第3号令"_s), u"第4号令"_s);
  EXPECT_EQ(NextDocumentNumber(u"主席令第099号"_s), u"主席令第100号"_s);
}

TEST(DocumentNumber, CountsOnInDigitsOfEitherWidth) {
  EXPECT_EQ(NextDocumentNumber(u"国发〔２００２〕１７号"_s), u"国发〔２００２〕１８号"_s);
  EXPECT_EQ(NextDocumentNumber(u"国令第９９号"_s), u"国令第１００号"_s);
}

TEST(DocumentNumber, BeginsWithItsAgency) {
  for (const auto& [text, agency] :
       {std::pair{u"国发〔2002〕17号"_s, u"国发"_s}, std::pair{u"按国办发(1985)49号"_s, u"按国办发"_s},
        std::pair{u"教(人)发〔2002〕9号"_s, u"教(人)发"_s}, std::pair{u"国令第707号"_s, u"国令"_s},
        std::pair{u"［1995］32号"_s, QString()}, std::pair{u"第3号令"_s, QString()},
        std::pair{u"国发17号"_s, u"国发"_s}, std::pair{u"国发〔〕17号"_s, u"国发"_s},
        std::pair{u"国发〔二〇〇二〕17号"_s, u"国发"_s}, std::pair{u"国发（２００２）17号"_s, u"国发"_s},
        std::pair{u"国发"_s, u"国发"_s}, std::pair{u"2002-17"_s, QString()}, std::pair{QString(), QString()}})
    EXPECT_EQ(AgencyOf(text), agency) << text.toStdString();
}

TEST(DocumentNumber, KeepsLeadingZeros) {
  EXPECT_EQ(NextDocumentNumber(u"国发〔2002〕017号"_s), u"国发〔2002〕018号"_s);
  EXPECT_EQ(NextDocumentNumber(u"国发〔2002〕099号"_s), u"国发〔2002〕100号"_s);
  EXPECT_EQ(NextDocumentNumber(u"国发〔2002〕999号"_s), u"国发〔2002〕1000号"_s);
}

TEST(DocumentNumber, CountsOnPastAnyInteger) {
  EXPECT_EQ(NextDocumentNumber(u"〔2002〕99999999999999999999号"_s), u"〔2002〕100000000000000000000号"_s);
}

TEST(DocumentNumber, WaitsForARunningNumber) {
  EXPECT_EQ(NextDocumentNumber(u"国发〔2002〕号"_s), u"国发〔2002〕号"_s);
  EXPECT_EQ(NextDocumentNumber(u"国发〔2002〕"_s), u"国发〔2002〕"_s);
  EXPECT_EQ(NextDocumentNumber(u"国发〔2002〕\n"_s), u"国发〔2002〕\n"_s);
}

TEST(DocumentNumber, LeavesATextOfAnotherFormatAsItIs) { EXPECT_EQ(NextDocumentNumber(u"国发17号"_s), u"国发17号"_s); }

TEST(DocumentNumber, IsNotWhatHasAnotherFormat) {
  for (const QString& text : {u""_s, u"国发17号"_s, u"国发〔2002]17号"_s, u"国发〔〕17号"_s, u"〔2002〕17号之3"_s,
                              u"国发〔二〇〇二〕17号"_s, u"〔2002〕〔17〕"_s, u"2002-17"_s, u"国发［2002]17号"_s,
                              u"国发〔2002〕1号、国发〔2002〕2号"_s, u"会议纪要（1）3"_s, u"第3次会议"_s}) {
    EXPECT_FALSE(DocumentNumber::Split(text)) << text.toStdString();
  }
}

}  // namespace
}  // namespace folvane
