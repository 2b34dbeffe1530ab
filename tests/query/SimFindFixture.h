#pragma once

#include "query/QueryFixture.h"
#include "query/frmSimFind.h"

namespace folvane::test {

/// The simple query over Lwdj, with the fields that the test chooses.
class frmSimFindTest : public QueryTest {
 protected:
  void SetUp() override {
    QueryTest::SetUp();
    AddDictionary(u"1"_s, u"密级"_s, {u"机密"_s, u"秘密"_s});
  }
  void Choose(const QString& field, const QString& caption, int kind, int index) {
    Run(u"insert into SimSearch (TableName,DataField,ChnDataField,OrderNo,CtlType,CtlIndex) values "
        "('Lwdj','%1','%2',%3,%4,%5)"_s.arg(field, caption)
            .arg(++chosen_)
            .arg(kind)
            .arg(index));
  }
  /// One field of each kind, in another order than that of the terms.
  void ChooseEachKind() {
    Choose(u"SecurityClass"_s, u"密级"_s, 4, 1);
    Choose(u"FileDate"_s, u"成文日期"_s, 3, 1);
    Choose(u"RegID"_s, u"登记号"_s, 2, 1);
    Choose(u"Amaintitle"_s, u"题名"_s, 1, 1);
  }
  void InWindow(const std::function<void()>& steps) {
    window_.TableName = u"Lwdj"_s;
    WithWindow(u"frmSimFind"_s, [&](QWidget&) { steps(); });
    window_.Open();
  }
  void Enter(const QString& input, const QString& text) { Retype(Find(window_, input), text); }
  /// Types into one end of the range box.
  void EnterLimit(const QString& end, const QString& text) { Retype(Find(Find(window_, u"F_Btw(1)"_s), end), text); }
  void Ok() { Click(window_, u"CmdOK"_s); }
  bool Has(const QString& name) const { return window_.findChild<QWidget*>(name); }

  MessageBoxes boxes_;
  frmSimFind window_;
  int chosen_ = 0;
};

}  // namespace folvane::test
