#pragma once

#include <QScrollBar>
#include <QVBoxLayout>

#include "forms/EntryForm.h"
#include "forms/FormsFixture.h"

namespace folvane::test {

/// The entry form of a table whose design the test makes.
class EntryFormTest : public FormsTest {
 protected:
  EntryFormTest() {
    Native(
        u"Create Table Lwdj(ArchiveID varchar(20) primary key, Title varchar(40), Quantity integer, FondsNo varchar(6))"_s);
    Native(u"Insert Into Lwdj Values('1','甲',3,'J01')"_s);
    records_.Open(u"Select * From Lwdj"_s, Shared().Connection);
    Window().setWindowTitle(u"著录界面"_s);
    auto* layout = new QVBoxLayout(&Window());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(form_ = new EntryForm);
  }

  /// Adds a field to the design of a table, in twips, in the order of the calls.
  void Design(const QString& column, const QString& caption, int type, int index, int left, int top, int height = 300,
              const QString& table = u"Lwdj"_s) {
    if (!described_.contains(table + column)) {
      Native(
          u"Insert Into DynamicWindows(TableName,FieldName,ChnFieldName,FieldType,FieldLong) Values('%1','%2','%3','文本型',12)"_s
              .arg(table, column, caption));
    }
    described_ << table + column;
    Native(
        u"Insert Into "
        u"SaveControls(DataSource,DataField,ControlType,ControlIndex,KeyOrder,F_Left,F_Top,F_Width,F_Height)"
        " Values('%1','%2',%3,%4,%5,%6,%7,3000,%8)"_s.arg(table, column)
            .arg(type)
            .arg(index)
            .arg(++order_)
            .arg(left)
            .arg(top)
            .arg(height));
  }
  void Build(const QString& table = u"Lwdj"_s) { form_->BuildEntryControls(table, records_); }
  QWidget& Control(const QString& name) { return Find<QWidget>(*form_, name); }
  QScrollBar& Bar() { return Find<QScrollBar>(*form_, u"HScroll"_s); }

  Recordset records_;
  EntryForm* form_;

 private:
  int order_ = 0;
  QStringList described_;
};

}  // namespace folvane::test
