#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <folvane/DataError.h>

#include "shell/ModalWindow.h"
#include "shell/RegistryValues.h"
#include "support/HostDoubles.h"
#include "support/WindowDriver.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;
using test::WithWindow;

class TestWindow : public QWidget {
 public:
  explicit TestWindow(const QString& name = u"FrmTest"_s) {
    setObjectName(name);
    setWindowTitle(name);
  }
};

TEST(ShowModal, ReturnsWhenTheWindowIsClosed) {
  TestWindow window;
  bool shown = false;
  WithWindow(u"FrmTest"_s, [&](QWidget& widget) {
    shown = true;
    EXPECT_TRUE(widget.isModal());
    EXPECT_EQ(QApplication::activeModalWidget(), &widget);
    widget.close();
  });
  ShowModal(window);
  EXPECT_TRUE(shown);
  EXPECT_FALSE(window.isVisible());
}

TEST(ShowModal, ReturnsWhenTheWindowIsHiddenAndShowsItAgain) {
  TestWindow window;
  for (int time = 0; time < 2; ++time) {
    WithWindow(u"FrmTest"_s, [](QWidget& widget) { widget.hide(); });
    ShowModal(window);
    EXPECT_FALSE(window.isVisible());
  }
}

TEST(ShowModal, ReturnsWhenTheWindowIsDeleted) {
  auto* window = new TestWindow;
  window->setAttribute(Qt::WA_DeleteOnClose);
  const QPointer<QWidget> alive(window);
  WithWindow(u"FrmTest"_s, [](QWidget& widget) { widget.close(); });
  ShowModal(*window);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(alive);
}

TEST(CloseWindowsOver, ClosesTheWindowsAboveFromTheTop) {
  TestWindow lower(u"FrmLower"_s), middle(u"FrmMiddle"_s), upper(u"FrmUpper"_s);
  WithWindow(u"FrmLower"_s, [&](QWidget&) {
    WithWindow(u"FrmMiddle"_s, [&](QWidget&) {
      WithWindow(u"FrmUpper"_s, [&](QWidget&) {
        EXPECT_TRUE(CloseWindowsOver(lower));
        EXPECT_FALSE(upper.isVisible() || middle.isVisible());
        EXPECT_TRUE(lower.isVisible());
      });
      ShowModal(upper);
    });
    ShowModal(middle);
  });
  ShowModal(lower);
}

TEST(CloseWindowsOver, LeavesWhatIsBelowAWindowThatStays) {
  class Staying : public TestWindow {
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
  } upper;
  TestWindow lower(u"FrmLower"_s);
  WithWindow(u"FrmLower"_s, [&](QWidget&) {
    WithWindow(u"FrmTest"_s, [&](QWidget&) {
      EXPECT_FALSE(CloseWindowsOver(lower));
      EXPECT_TRUE(CloseWindowsOver(upper));
      upper.hide();
    });
    ShowModal(upper);
  });
  ShowModal(lower);
}

TEST(ShowModal, RunsTheOpeningOnceInsideTheLoopBeforeAnyoneElse) {
  TestWindow window;
  QStringList order;
  QTimer::singleShot(0, &window, [&] { order << u"someone else"_s; });
  WithWindow(u"FrmTest"_s, [&](QWidget&) { order << u"user"_s; });
  ShowModal(window, [&] { order << (window.isVisible() ? u"opening"_s : u"too early"_s); });
  EXPECT_EQ(order, (QStringList{u"opening"_s, u"someone else"_s, u"user"_s}));
}

TEST(ShowModal, AnErrorWhileOpeningEndsTheWindowAndRises) {
  TestWindow window;
  const auto fail = [] { throw DataError(DataErrorKind::Statement, u"表不存在"_s); };
  EXPECT_THROW(ShowModal(window, fail), DataError);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(ShowModal, AWindowOpenedFromAWindowEndsFirst) {
  TestWindow outer(u"FrmOuter"_s), inner(u"FrmInner"_s);
  QStringList ends;
  WithWindow(u"FrmOuter"_s, [&](QWidget& widget) {
    WithWindow(u"FrmInner"_s, [&](QWidget& dialog) {
      EXPECT_EQ(dialog.windowHandle()->transientParent(), widget.windowHandle());
      EXPECT_TRUE(widget.isVisible());
    });
    ShowModal(inner);
    ends << u"inner"_s;
    EXPECT_TRUE(widget.isVisible());
    EXPECT_TRUE(test::WaitUntil([&] { return QApplication::activeWindow() == &widget; }));
  });
  ShowModal(outer);
  ends << u"outer"_s;
  EXPECT_EQ(ends, (QStringList{u"inner"_s, u"outer"_s}));
}

TEST(ShowModal, AnErrorWhileAnInnerWindowOpensRisesToTheOuterOnesHandler) {
  TestWindow outer(u"FrmOuter"_s), inner(u"FrmInner"_s);
  bool caught = false;
  WithWindow(u"FrmOuter"_s, [&](QWidget& widget) {
    try {
      ShowModal(inner, [] { throw std::runtime_error("inner"); });
    } catch (const std::runtime_error&) {
      caught = true;
    }
    EXPECT_TRUE(widget.isVisible());
  });
  ShowModal(outer);
  EXPECT_TRUE(caught);
}

TEST(ShowModal, AWindowThatIsShownCannotBeShownAgain) {
  TestWindow window;
  WithWindow(u"FrmTest"_s, [&](QWidget& widget) {
    EXPECT_THROW(ShowModal(window), DataError);
    EXPECT_TRUE(widget.isVisible());
  });
  ShowModal(window);
}

TEST(ShowModal, ClosingTheLastWindowDoesNotEndTheHost) {
  QApplication::setQuitOnLastWindowClosed(true);
  bool ended = false;
  QObject::connect(
      qApp, &QGuiApplication::lastWindowClosed, qApp, [&ended] { ended = true; }, Qt::SingleShotConnection);
  TestWindow window;
  WithWindow(u"FrmTest"_s, [](QWidget& widget) { widget.close(); });
  ShowModal(window);
  QCoreApplication::processEvents();
  QApplication::setQuitOnLastWindowClosed(false);
  EXPECT_FALSE(ended);
}

TEST(ShowModal, RemembersWhereTheUserLeftTheWindow) {
  WithWindow(u"FrmTest"_s, [](QWidget& widget) { widget.setGeometry(40, 50, 420, 230); });
  TestWindow first;
  ShowModal(first);
  EXPECT_FALSE(QueryValue(kCurrentUser, u"Software\\Norvex\\Folvane\\Windows"_s, u"FrmTest"_s).isEmpty());

  TestWindow second;
  WithWindow(u"FrmTest"_s, [](QWidget& widget) { EXPECT_EQ(widget.geometry(), QRect(40, 50, 420, 230)); });
  ShowModal(second);
}

TEST(ShowModal, AStoredPlaceThatIsNoneIsPassedOver) {
  SaveValue(kCurrentUser, u"Software\\Norvex\\Folvane\\Windows"_s, u"FrmTest"_s, u"nonsense"_s);
  TestWindow window;
  window.resize(300, 200);
  WithWindow(u"FrmTest"_s, [](QWidget& widget) { EXPECT_EQ(widget.size(), QSize(300, 200)); });
  ShowModal(window);
}

TEST(ShowModal, AWindowLargerThanTheScreenIsCutToIt) {
  TestWindow window;
  window.resize(20'000, 10'000);
  WithWindow(u"FrmTest"_s, [](QWidget& widget) {
    const QRect screen = widget.screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(widget.frameGeometry()));
    EXPECT_GT(widget.width(), screen.width() / 2);
    EXPECT_LT(widget.height(), screen.height()) << "no room for the title bar";
  });
  ShowModal(window);
}

TEST(ShowModal, AStoreThatFailsDoesNotKeepAWindowFromOpening) {
  struct BrokenStore : RegistryStore {
    QString Read(const QString&, const QString&) const override { throw std::runtime_error("unreadable"); }
    void Write(const QString&, const QString&, const QString&) override { throw std::runtime_error("unwritable"); }
  };
  Services().registry = std::make_shared<BrokenStore>();
  TestWindow window;
  bool shown = false;
  WithWindow(u"FrmTest"_s, [&](QWidget&) { shown = true; });
  EXPECT_NO_THROW(ShowModal(window));
  EXPECT_TRUE(shown);
}

}  // namespace
}  // namespace folvane
