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
}

TEST(DocumentNumber, LeavesATextOfAnotherFormatAsItIs) { EXPECT_EQ(NextDocumentNumber(u"国发17号"_s), u"国发17号"_s); }

TEST(DocumentNumber, IsNotWhatHasAnotherFormat) {
  for (const QString& text : {u""_s, u"国发17号"_s, u"国发〔2002]17号"_s, u"国发〔〕17号"_s, u"〔2002〕17号之3"_s,
                              u"国发〔二〇〇二〕17号"_s, u"〔2002〕〔17〕"_s}) {
    EXPECT_FALSE(DocumentNumber::Split(text)) << text.toStdString();
  }
}

}  // namespace
}  // namespace folvane
