#pragma once

#include "EntryFixture.h"

namespace folvane::test {

/// The form of a table with three fields and one that no form shows, in the order of the Enter key.
class KeyOrderFixture : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    AddField(u"DocNo"_s, u"文号"_s, 8, 1);
    AddField(u"RegID"_s, u"登记号"_s, 1, 2);
    AddField(u"Hidden"_s, u"图片"_s, 3, 3);
    AddField(u"Amaintitle"_s, u"题名"_s, 10, 4);
  }
  void AddField(const QString& field, const QString& caption, int controlType, int order) {
    Run(u"insert into DynamicWindows (TableName,FieldName,ChnFieldName) values ('Lwdj','%1','%2')"_s.arg(field,
                                                                                                         caption));
    Run(u"insert into SaveControls (DataSource,DataField,ControlType,ControlIndex,KeyOrder) values "
        "('Lwdj','%1',%2,1,%3)"_s.arg(field)
            .arg(controlType)
            .arg(order));
  }
  QString OrderOf(const QString& field) {
    return Value(u"select KeyOrder from SaveControls where DataField = '"_s + field + u"'"_s);
  }
};

}  // namespace folvane::test
