#include <QDialog>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QThread>
#include <QVBoxLayout>

#include <folvane/DataError.h>

#include "components/common/BackgroundWork.h"
#include "support/HostDoubles.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class BackgroundWorkTest : public testing::Test {
 protected:
  /// Runs steps in a window with an input that has the focus.
  static void InWindow(const WindowSteps& steps) {
    QDialog window;
    window.setObjectName(u"Window"_s);
    auto* input = new QLineEdit(&window);
    input->setObjectName(u"Input"_s);
    (new QVBoxLayout(&window))->addWidget(input);
    WithWindow(u"Window"_s, steps);
    window.exec();
  }
};

TEST_F(BackgroundWorkTest, ShortWorkShowsNothing) {
  InWindow([](QWidget& window) {
    int done = 0;
    RunInBackground(&window, u"工作"_s, 3, [&](const GoOn& goOn) {
      EXPECT_FALSE(window.isEnabled());
      while (done < 3 && goOn(done)) ++done;
    });
    EXPECT_EQ(done, 3);
    EXPECT_TRUE(window.isEnabled());
    EXPECT_TRUE(Find(window, u"Input"_s).hasFocus());
  });
}

TEST_F(BackgroundWorkTest, LongWorkIsShownAndCanBeEnded) {
  InWindow([](QWidget& window) {
    WithWindow(u"Progress"_s, [](QWidget& progress) {
      EXPECT_EQ(static_cast<QProgressDialog&>(progress).labelText(), u"工作"_s);
      Click(Find<QPushButton>(progress, {}));
    });
    bool isEnded = false;
    RunInBackground(&window, u"工作"_s, 10000, [&](const GoOn& goOn) {
      for (int step = 0; step < 5000 && !isEnded; ++step) {
        isEnded = !goOn(step);
        QThread::msleep(1);
      }
    });
    EXPECT_TRUE(isEnded);
  });
}

TEST_F(BackgroundWorkTest, WhatTheWorkThrowsIsThrownToTheWindow) {
  InWindow([](QWidget& window) {
    EXPECT_THROW(
        RunInBackground(&window, u"工作"_s, 1, [](const GoOn&) { throw DataError(DataErrorKind::File, u"x"_s); }),
        DataError);
    EXPECT_TRUE(window.isEnabled());
  });
}

}  // namespace
}  // namespace folvane::test
