#pragma once

#include <QInputMethodEvent>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

#include "catalogue/Ddl.h"
#include "forms/EntryField.h"
#include "shell/SharedState.h"
#include "support/HostDoubles.h"
#include "support/TestDatabase.h"
#include "support/WindowDriver.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

/// An input method shows text that it has in hand; "" ends that without committing anything.
inline void Compose(QWidget& widget, const QString& text) {
  QInputMethodEvent event(text, {});
  QCoreApplication::sendEvent(widget.focusProxy() ? widget.focusProxy() : &widget, &event);
}

/// An input method commits text.
inline void Commit(QWidget& widget, const QString& text) {
  QInputMethodEvent event;
  event.setCommitString(text);
  QCoreApplication::sendEvent(widget.focusProxy() ? widget.focusProxy() : &widget, &event);
}

/// The design tables on a fresh SQLite database, which the shared state points to, and a window to show controls in.
class FormsTest : public testing::Test {
 protected:
  FormsTest() : database_(TestDatabase::Create("SQLite")) {
    database_->Furnish(&CreateCatalogue);
    Shared().Connection = database_->Connect();
    window_.resize(600, 400);
  }
  ~FormsTest() override { Shared().Connection.reset(); }

  void Native(const QString& sql) { database_->Native(sql); }

  /// A field of a kind, shown in the window with the focus on it.
  std::unique_ptr<EntryField> ShownField(int controlType, const QString& limitText = {},
                                         const QString& fieldType = {}) {
    auto field = NewField({controlType, 1, u"F"_s, fieldType, u"字段"_s, limitText, u"'密级'"_s}, &window_);
    field->Widget().setGeometry(20, 20, 200, 24);
    field->Widget().show();
    Show();
    field->Focus();
    return field;
  }
  void Show() {
    window_.show();
    window_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
  }

  QWidget& Window() { return window_; }

 private:
  std::unique_ptr<TestDatabase> database_;
  QWidget window_;
};

}  // namespace folvane::test
