#pragma once

#include <QTreeView>

#include "archiving/FrmSearchResult.h"
#include "archiving/MergeFixture.h"
#include "query/frmSimFind.h"
#include "shell/LoadedWindow.h"
#include "support/WindowDriver.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

/// Seventy records; the simple query asks for the registration number.
class FrmSearchResultTest : public MergeTest {
 protected:
  static constexpr int kRecords = 70;

  void SetUp() override {
    MergeTest::SetUp();
    design_->AddRecords(u"Lwdj"_s, kRecords);
    design_->Run(u"update Lwdj set FileStatus='需归档'"_s);
    design_->Insert(u"SimSearch"_s, u"TableName,DataField,ChnDataField,OrderNo,CtlType,CtlIndex"_s,
                    {u"Lwdj"_s, u"Amaintitle"_s, u"题名"_s, u"1"_s, u"1"_s, u"1"_s});
    log_->Take();
  }
  /// Opens the window, runs the steps in it and closes it. @return what came of it
  QString InWindow(const WindowSteps& steps) {
    const LoadedWindow<FrmSearchResult> window;
    window->CurrTable = u"Lwdj"_s;
    window->TargetID = Key(1);
    window->TargetTitle = u"题名1"_s;
    WithWindow(u"FrmSearchResult"_s, steps);
    window->Open();
    return window->Outcome;
  }
  static QTreeView& List(QWidget& window) { return Find<QTreeView>(window, u"LVData"_s); }
  static int Loaded(QWidget& window) { return List(window).model()->rowCount(); }
  static int Row(QWidget& window) { return List(window).currentIndex().row() + 1; }
  static QModelIndex Cell(QWidget& window, int row) { return List(window).model()->index(row - 1, 0); }
  static bool IsTicked(QWidget& window, int row) {
    return Cell(window, row).data(Qt::CheckStateRole).toInt() == Qt::Checked;
  }
  static void Tick(QWidget& window, int row) {
    List(window).model()->setData(Cell(window, row), Qt::Checked, Qt::CheckStateRole);
  }
  static QString PageText(QWidget& window) { return TextIn(window, u"Label1"_s); }
  static void Follow(QWidget& window, int link) { Click(Find<QWidget>(window, u"LblPage(%1)"_s.arg(link))); }
  /// Searches for titles that contain a text, or leaves the query without one.
  static void Search(QWidget& window, const QString& text) {
    WithWindow(u"frmSimFind"_s, [&](QWidget& query) {
      if (text.isEmpty()) return query.close(), void();
      Retype(Find<QWidget>(query, u"F_Sim(1)"_s), text);
      Click(Find<QWidget>(query, u"CmdOK"_s));
    });
    Click(Find<QWidget>(window, u"CmdSearch"_s));
  }
  static void SearchByCondition(QWidget& window, const QString& condition) {
    WithWindow(u"frmSimFind"_s, [&](QWidget& query) {
      static_cast<frmSimFind&>(query).ReturnSql = condition;
      query.hide();
    });
    Click(Find<QWidget>(window, u"CmdSearch"_s));
  }
  static void SearchAll(QWidget& window) { Search(window, u"题名"_s); }
  static void Ok(QWidget& window) { Click(Find<QWidget>(window, u"CmdOK"_s)); }

  MessageBoxes boxes_;
};

}  // namespace folvane::test
