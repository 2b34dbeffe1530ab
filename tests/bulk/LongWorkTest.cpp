#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>

#include "support/WindowDriver.h"
#include "widgets/LongWork.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

/// A window with a box, a stop key and a bar, in which work goes on until it is stopped or has given up.
class LongWorkTest : public testing::Test {
 protected:
  LongWorkTest() {
    auto* column = new QVBoxLayout(&window_);
    for (QWidget* widget : std::initializer_list<QWidget*>{&box_, &stop_, &bar_}) column->addWidget(widget);
    bar_.hide();
    window_.show();
    EXPECT_TRUE(WaitUntil([this] { return window_.windowHandle()->isExposed(); }));
  }
  /// Works until it is asked to end; the input comes once the work is seen. @return whether it was asked to
  bool WorkUnder(const std::function<void()>& input, QWidget* stopKey) {
    LongWork work(window_, stopKey, ShowIn(bar_));
    bool given = false;
    for (int done = 0; done < kEnough; ++done) {
      if (!work.GoOn(done, kEnough)) return true;
      if (!bar_.isVisible()) --done;
      if (bar_.isVisible() && !std::exchange(given, true)) input();
    }
    return false;
  }

  static constexpr int kEnough = 2'000'000;
  QWidget window_;
  QLineEdit box_;
  QPushButton stop_;
  QProgressBar bar_;
};

}  // namespace

TEST_F(LongWorkTest, IsSeenInTheBarWhichGoesWithIt) {
  bool seen = false;
  WorkUnder([&] { seen = bar_.isVisible() && bar_.maximum() == kEnough; }, &stop_);
  EXPECT_TRUE(seen);
  EXPECT_FALSE(bar_.isVisible());
}

TEST_F(LongWorkTest, EndsAtTheStopKeyWhichDoesNothingElse) {
  bool clicked = false;
  QObject::connect(&stop_, &QPushButton::clicked, [&] { clicked = true; });
  EXPECT_TRUE(WorkUnder([&] { Click(stop_); }, &stop_));
  EXPECT_FALSE(clicked);
}

TEST_F(LongWorkTest, EndsAtEscapeAndAtTheWindowsButtonButTheWindowStays) {
  EXPECT_TRUE(WorkUnder([&] { Press(box_, Qt::Key_Escape); }, &stop_));
  EXPECT_TRUE(WorkUnder([&] { window_.close(); }, &stop_));
  EXPECT_TRUE(window_.isVisible());
}

TEST_F(LongWorkTest, LetsNoOtherInputThrough) {
  EXPECT_FALSE(WorkUnder(
      [&] {
        Type(box_, u"abc"_s);
        Click(box_);
      },
      &stop_));
  EXPECT_EQ(box_.text(), QString());
  Type(box_, u"abc"_s);
  EXPECT_EQ(box_.text(), u"abc"_s);
}

TEST_F(LongWorkTest, ADialogThatTheWorkOpensIsUsedAsEver) {
  LongWork work(window_, &stop_, ShowIn(bar_));
  QDialog dialog(&window_);
  dialog.setObjectName(u"Question"_s);
  QLineEdit answer(&dialog);
  WithWindow(u"Question"_s, [&](QWidget&) {
    Type(answer, u"abc"_s);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
  });
  dialog.exec();
  EXPECT_EQ(answer.text(), u"abc"_s);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
  EXPECT_TRUE(work.GoOn(1, 2)) << "closing the dialog asked for no end";
  Type(box_, u"abc"_s);
  EXPECT_EQ(box_.text(), QString()) << "the window itself still takes none";
}

TEST_F(LongWorkTest, WithoutAStopKeyItIsCarriedThrough) {
  EXPECT_FALSE(WorkUnder(
      [&] {
        Press(box_, Qt::Key_Escape);
        window_.close();
      },
      nullptr));
  EXPECT_TRUE(window_.isVisible());
}

}  // namespace folvane::test
