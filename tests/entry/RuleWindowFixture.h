#pragma once

#include <QComboBox>
#include <QTreeView>

#include "EntryFixture.h"
#include "entry/FrmSaveCollect.h"
#include "support/WindowDriver.h"

namespace folvane::test {

inline const QStringList kRuleBoxes{u"CmbField"_s, u"CmbCondition"_s, u"CmbValue"_s};

/// The window of proofing rules over Lwdj and Fwdj.
class RuleWindowTest : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    Describe(u"Lwdj"_s, u"收文登记"_s, u"DocNo"_s, u"文号"_s);
    Describe(u"Lwdj"_s, u"收文登记"_s, u"RegID"_s, u"登记号"_s);
    Describe(u"Fwdj"_s, u"发文登记"_s, u"DocNo"_s, u"发文字号"_s);
    Run(u"insert into SaveControls (DataSource,DataField,ControlType,ControlIndex) values ('Lwdj','DocNo',8,2)"_s);
  }
  void Describe(const QString& table, const QString& caption, const QString& field, const QString& name) {
    Run(u"insert into DynamicWindows (TableName,ChnTableName,ClassName,FieldName,ChnFieldName) values "
        "('%1','%2','文书','%3','%4')"_s.arg(table, caption, field, name));
  }
  void AddRule(const QString& table = u"Lwdj"_s, const QString& value = u"自定义格式"_s, int line = 0) {
    Run(u"insert into SaveCollect (TableName,CenterControlIndex,FieldName,ControlIndex,ControlType,ChnFieldName,"
        "Relation,CollectValue,CustomFormat) values ('%1',%2,'DocNo',2,8,'文号','只能是','%3','A#')"_s.arg(table)
            .arg(line)
            .arg(value));
  }
  /// The rule of a line in the table, its columns joined.
  QString Rule(int line, const QString& table = u"Lwdj"_s) {
    const auto rows = Database().Rows(
        u"select FieldName,ControlIndex,ControlType,ChnFieldName,Relation,CollectValue,CustomFormat from SaveCollect "
        "where TableName = '%1' and CenterControlIndex = %2"_s.arg(table)
            .arg(line));
    return rows.empty() ? QString() : rows.front().join(u' ');
  }
  QString RuleCount() { return Value(u"select count(*) from SaveCollect"_s); }

  /// Opens the window, runs the steps in it and closes it.
  void InWindow(const std::function<void()>& steps) {
    FrmSaveCollect window;
    window.CurrTable = u"Lwdj"_s;
    WithWindow(u"FrmSaveCollect"_s, [&](QWidget& shown) {
      window_ = &shown;
      steps();
    });
    window.Open();
  }

  QWidget& Window() const { return *window_; }
  QWidget& Control(const QString& name) const { return Find(*window_, name); }
  QComboBox& Box(const QString& array, int line) const {
    return Find<QComboBox>(*window_, u"%1(%2)"_s.arg(array).arg(line));
  }
  QComboBox& ValueBox(int line) const { return Box(u"CmbValue"_s, line); }
  QStringList Shown(int line) const {
    return {Box(u"CmbField"_s, line).currentText(), Box(u"CmbCondition"_s, line).currentText(),
            ValueBox(line).currentText()};
  }
  /// How many boxes of rules can be used; the lines are enabled from the top.
  int EnabledBoxes() const {
    int count = 0;
    while (count < 18 && Box(kRuleBoxes[count % 3], count / 3).isEnabled()) ++count;
    return count;
  }
  /// What a box offers when its list is opened.
  static QStringList Offered(QComboBox& box) {
    box.showPopup();
    QStringList texts;
    for (int at = 0; at < box.count(); ++at) texts << box.itemText(at);
    box.hidePopup();
    return texts;
  }
  void Fill(int line, const QString& field, const QString& relation, const QString& value) const {
    Retype(Box(u"CmbField"_s, line), field);
    Retype(Box(u"CmbCondition"_s, line), relation);
    Retype(ValueBox(line), value);
  }
  void Leave(int line) const { Press(ValueBox(line), Qt::Key_Tab); }
  /// Chooses the pattern keyword in a line by the keyboard; the window for the pattern opens.
  void ChooseCustomFormat(int line, const WindowSteps& steps) const {
    WithWindow(u"FrmCustomFormat"_s, steps);
    Retype(ValueBox(line), u"日期"_s);
    Press(ValueBox(line), Qt::Key_Down);
  }
  static WindowSteps Answer(const QString& pattern) {
    return [pattern](QWidget& window) {
      Retype(Find(window, u"TxtFormat"_s), pattern);
      Click(Find(window, u"CmdOK"_s));
    };
  }
  QTreeView& Tables() const { return Find<QTreeView>(*window_, u"LVData"_s); }
  QModelIndex TableRow(const QString& caption) const {
    const auto found = Tables().model()->match(Tables().model()->index(0, 0), Qt::DisplayRole, caption, 1);
    return found.isEmpty() ? QModelIndex() : found.front();
  }

  MessageBoxes boxes_;

 private:
  QWidget* window_ = nullptr;
};

}  // namespace folvane::test
