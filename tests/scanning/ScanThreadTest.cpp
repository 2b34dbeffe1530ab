#include <QElapsedTimer>
#include <QTemporaryDir>

#include "components/scanning/ScanThread.h"
#include "scanning/TestScanner.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace scanning;

class ScanThreadTest : public testing::Test {
 protected:
  ScanThreadTest() : id_(TestScanner()) { SetDelay(true); }
  ~ScanThreadTest() override { SetDelay(false); }
  void SetDelay(bool isSlow) {
    Scanner scanner(id_);
    scanner.Set("read-delay", QString::number(isSlow));
    scanner.Set("read-delay-duration", u"20000"_s);
  }
  /// A thread whose pages and ends are told under a name.
  std::unique_ptr<ScanThread> NewThread(const QString& name) {
    return std::make_unique<ScanThread>(
        folder_.path(),
        ScanEvents{.listed = [](const QList<ScannerInfo>&) {},
                   .opened = [](const ScannerChoices&) {},
                   .progress = [this](int) { ++steps_; },
                   .page = [this, name](const ScannedPage&, const QImage&) { told_ << name + u" page"_s; },
                   .finished = [this, name](const QString& why) { told_ << name + u" end"_s + why; }});
  }

  const QString id_;
  const QTemporaryDir folder_;
  QStringList told_;
  int steps_ = 0;
};

TEST_F(ScanThreadTest, ThereAreNeverTwoAtAScanner) {
  const auto first = NewThread(u"first"_s), second = NewThread(u"second"_s);
  first->Scan(id_, {.resolution = 75}, false);
  ASSERT_TRUE(WaitUntil([&] { return steps_ > 0; }));
  second->List();
  ASSERT_TRUE(WaitUntil([&] { return told_.size() == 3; }));
  EXPECT_EQ(told_, (QStringList{u"first page"_s, u"first end"_s, u"second end"_s}));
}

TEST_F(ScanThreadTest, AThreadThatIsGoneTellsNothingMore) {
  auto thread = NewThread(u"gone"_s);
  thread->Scan(id_, {.resolution = 300}, false);
  ASSERT_TRUE(WaitUntil([&] { return steps_ > 0; }));
  QElapsedTimer clock;
  clock.start();
  thread.reset();
  EXPECT_LT(clock.elapsed(), 500) << "nobody waits for the scanner";
  const auto next = NewThread(u"next"_s);
  next->List();
  ASSERT_TRUE(WaitUntil([&] { return !told_.isEmpty(); }));
  EXPECT_EQ(told_, QStringList{u"next end"_s});
}

}  // namespace
}  // namespace folvane::test
