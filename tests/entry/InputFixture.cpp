#include "InputFixture.h"

#include <QApplication>
#include <QMenu>

namespace folvane::test {

QAction& Input::Entry(const QString& name) const {
  for (QAction* action : window_.findChildren<QAction*>(name)) {
    if (qobject_cast<QMenu*>(action->parent())) return *action;
  }
  throw std::runtime_error("no menu entry " + name.toStdString());
}

QString Input::Focused() const {
  const QWidget* focused = window_.focusWidget();
  if (!focused) return {};
  return focused->objectName().isEmpty() && focused->parentWidget() ? focused->parentWidget()->objectName()
                                                                    : focused->objectName();
}

void InputTest::SetUp() {
  EntryTest::SetUp();
  Shared().UserName = u"张三"_s;
  parameters_.Add(u"Lwdj"_s);
  parameters_.Select(1);
  for (const Parameter right : {Parameter::LookFile, Parameter::Print, Parameter::Edit}) Right(right, u"1"_s);
  Services().beep = [this] { ++beeps_; };
}

void InputTest::TearDown() {
  DefaultInstance<FrmInput>::Unload();
  EntryTest::TearDown();
}

void InputTest::Design(FieldDesign field, const QString& table) {
  if (field.index == 0) field.index = ++counts_[{table, field.type}];
  ++order_;
  Run(u"insert into DynamicWindows (TableName,FieldName,ChnFieldName,FieldType,FieldLong,NullFlags,ControlIndex,"
      "AuxiDictDetails,ControlsType,ZJCFlags) values ('%1','%2','%3','%4',%5,'%6','%7','%8',%9,'%10')"_s
          .arg(table, field.column, field.caption, field.fieldType)
          .arg(field.length)
          .arg(field.required ? u"否"_s : QString(), field.fixed ? u"1"_s : QString(), field.dictionary)
          .arg(field.inherited ? 1 : 0)
          .arg(field.carried ? u"是"_s : QString()));
  Run(u"insert into SaveControls (DataSource,DataField,ControlType,ControlIndex,KeyOrder,F_Left,F_Top,F_Width,F_Height)"
      " values ('%1','%2',%3,%4,%5,1500,%6,3000,300)"_s.arg(table, field.column)
          .arg(field.type)
          .arg(field.index)
          .arg(order_)
          .arg(order_ * 450));
}

void InputTest::AddRecords(int count) {
  for (int number = 1; number <= count; ++number) {
    Run(u"insert into Lwdj (ArchiveID,RegID,Amaintitle,DocNo) values ('%1',%2,'题名%2','文号%2')"_s.arg(Key(number))
            .arg(number));
  }
}

void InputTest::InWindow(const std::function<void(const Input&)>& steps, bool adding, qint64 position) {
  Recordset& records = OpenRecords();
  if (records.RecordCount() > 0) records.SetAbsolutePosition(position);
  DefaultInstance<FrmInput>::Get().AddOnOpen = adding ? u"1"_s : u"0"_s;
  Reopen(steps);
}

void InputTest::Reopen(const std::function<void(const Input&)>& steps, const QString& table) {
  FrmInput& window = DefaultInstance<FrmInput>::Get();
  window.CurrTable = table;
  window.Context = {u"收文登记"_s, &parameters_, [this](const QString& tag) { tags_ << tag; }, openReplace_};
  WithWindow(u"FrmInput"_s, [&](QWidget& shown) { steps(Input(shown)); });
  window.Open();
}

}  // namespace folvane::test
