#include <QPushButton>
#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "shell/EventGuard.h"
#include "support/HostDoubles.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

class Panel : public QWidget {
 public:
  void OnClick(bool checked) { checked_ = checked; }
  void Fail() { throw DataError(DataErrorKind::Lost, u"连接已断开"_s); }
  bool checked_ = false;
};

class EventGuardTest : public testing::Test {
 protected:
  test::MessageBoxes boxes_;
  Panel panel_;
  QPushButton button_{&panel_};
};

TEST_F(EventGuardTest, AnErrorIsShownAndDoesNotRise) {
  ConnectGuarded(&button_, &QPushButton::clicked, &panel_, &Panel::Fail);
  EXPECT_NO_THROW(button_.click());
  EXPECT_EQ(boxes_.Last().text, u"连接已断开"_s);
  EXPECT_EQ(boxes_.Last().title, u"系统提示"_s);
  EXPECT_EQ(boxes_.Last().flags, 16);
}

TEST_F(EventGuardTest, TheStatementAndTheCodeOfAnErrorAreItsDetails) {
  ConnectGuarded(&button_, &QPushButton::clicked, &panel_, [] {
    throw DataError(DataErrorKind::Statement, u"no such table: A"_s, u"Select * From A"_s, u"SQLITE_ERROR"_s);
  });
  button_.click();
  EXPECT_EQ(boxes_.Last().text, u"no such table: A"_s);
  EXPECT_EQ(boxes_.Last().details, u"语句：Select * From A\n数据库错误代码：SQLITE_ERROR"_s);
}

TEST_F(EventGuardTest, AnyStandardErrorIsShownByItsText) {
  ConnectGuarded(&button_, &QPushButton::clicked, &panel_, [] { throw std::runtime_error("坏了"); });
  button_.click();
  EXPECT_EQ(boxes_.Texts(), QStringList{u"坏了"_s});
}

TEST_F(EventGuardTest, AHandlerTakesAsManyArgumentsAsItWants) {
  int calls = 0;
  bool seen = false;
  button_.setCheckable(true);
  ConnectGuarded(&button_, &QPushButton::clicked, &panel_, [&calls] { ++calls; });
  ConnectGuarded(&button_, &QPushButton::clicked, &panel_, [&seen](bool checked) { seen = checked; });
  ConnectGuarded(&button_, &QPushButton::clicked, &panel_, &Panel::OnClick);
  button_.click();
  EXPECT_EQ(calls, 1);
  EXPECT_TRUE(seen);
  EXPECT_TRUE(panel_.checked_);
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_F(EventGuardTest, AMessageBoxThatFailsDoesNotLetTheErrorOut) {
  Services().messageBox = [](const MessageRequest&) -> int { throw std::runtime_error("no box"); };
  EXPECT_NO_THROW(RunGuarded([] { throw std::runtime_error("first"); }));
}

}  // namespace
}  // namespace folvane
