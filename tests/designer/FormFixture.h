#pragma once

#include <QLabel>
#include <QListWidget>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include <folvane/Catalogue.h>

#include "design/SmallDesign.h"
#include "designer/DesignSession.h"
#include "designer/FormCanvas.h"
#include "designer/FormPage.h"
#include "support/TestDatabase.h"
#include "support/WindowDriver.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

/// The entry form of the letters that arrive, in a window of its own. 15 twips are a pixel, and 500 stand above it.
class FormPageTest : public testing::Test {
 protected:
  FormPageTest() : database_(TestDatabase::Create("SQLite")), connection_(database_->Connect()) {
    database_->Furnish(CreateTables);
    ApplyDesign(*connection_, PlanDesign(*connection_, {}, SmallDesign()));
    session_ = std::make_unique<designer::DesignSession>(connection_);
    page_ = new designer::FormPage(*session_);
    page_->SetTable(u"Lwdj"_s);
    auto* down = new QVBoxLayout(&window_);
    down->addWidget(page_);
    window_.resize(1000, 500);
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }
  ~FormPageTest() override { delete page_; }

  designer::DesignSession& Session() { return *session_; }
  designer::FormPage& Page() { return *page_; }
  designer::FormCanvas& Canvas() { return Find<designer::FormCanvas>(*page_, u"FormCanvas"_s); }
  QWidget& Window() { return window_; }

  /// The control of a field as it is wanted.
  Design::Control Wanted(const QString& field) {
    Design design = Session().Wanted();
    for (const Design::Control& control : TableOf(design, u"Lwdj"_s).controls)
      if (control.field == field) return control;
    ADD_FAILURE() << "no control of " << field.toStdString();
    return {};
  }
  QPoint PlaceOf(const QString& field) { return {Wanted(field).left, Wanted(field).top}; }
  /// Changes what is wanted, as another page would.
  void Change(const std::function<void(Design::Table&)>& work) {
    Session().Change(u"改"_s, [&](Design& design) { work(TableOf(design, u"Lwdj"_s)); });
  }

  /// The middle of a control of the form, in the form's pixels.
  QPoint Middle(const QString& control) { return Find<QWidget>(*page_, control).geometry().center(); }
  void Select(const QStringList& controls) {
    Canvas().Select({});
    for (const QString& control : controls) ClickAt(Canvas(), Middle(control), Qt::LeftButton, Qt::ControlModifier);
  }
  /// The fields whose controls are selected, the current one last.
  QStringList Selected() {
    Design design = Session().Wanted();
    QStringList fields;
    for (const int control : Canvas().Selected())
      fields << TableOf(design, u"Lwdj"_s).controls[std::size_t(control)].field;
    return fields;
  }
  void Drag(const QPoint& from, const QPoint& to, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QTest::mousePress(&Canvas(), Qt::LeftButton, keys, from);
    QTest::mouseMove(&Canvas(), (from + to) / 2);
    QTest::mouseMove(&Canvas(), to);
    QTest::mouseRelease(&Canvas(), Qt::LeftButton, keys, to);
  }
  void Run(const QString& action) { Find<QAction>(*page_, action).trigger(); }
  int Steps() { return Session().History().index(); }
  void Undo() { Session().History().undo(); }

 private:
  std::unique_ptr<TestDatabase> database_;
  std::shared_ptr<Connection> connection_;
  std::unique_ptr<designer::DesignSession> session_;
  QWidget window_;
  designer::FormPage* page_;
};

}  // namespace folvane::test
