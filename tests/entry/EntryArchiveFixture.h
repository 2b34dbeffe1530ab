#pragma once

#include "entry/InputFixture.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

/// The entry window on two documents of Lwdj, which Wsda takes. Numbers are made of the year and the item.
class EntryArchiveTest : public InputTest {
 protected:
  void SetUp() override {
    InputTest::SetUp();
    Shared().UserId = u"1"_s;
    AddRecords(2);
    Run(u"update Lwdj set FileStatus='需归档'"_s);
    Design({u"Amaintitle"_s, u"题名"_s});
    Design({u"FileStatus"_s, u"归档状态"_s});
    CreateTable(*Connected(), BusinessTable(u"Wsda"_s, {{u"Amaintitle"_s, ColumnType::Text, 200},
                                                        {u"FileYear"_s, ColumnType::Text, 4},
                                                        {u"ItemNo"_s, ColumnType::Integer},
                                                        {u"ArchiveNo"_s, ColumnType::Text, 40}}));
    Design({u"FileYear"_s, u"年度"_s}, u"Wsda"_s);
    Run(u"insert into DataTransfer_Ini (RecId,SourceTbl,DesTbl) values (1,'Lwdj','Wsda')"_s);
    Run(u"insert into DataTransfer_Details (IniRecId,SourceField,DesField,SourceChn) values "
        "(1,'Amaintitle','Amaintitle','题名')"_s);
    for (const QString& field : {u"FileYear"_s, u"ItemNo"_s})
      Run(u"insert into ArchiveNo_Format (TableName,FieldName,ListSeparator,ShowMode,Lengh,StoreField,FolderNoField) "
          "values ('Wsda','%1','-','显示名称',4,'ArchiveNo','(无)')"_s.arg(field));
    Right(Parameter::Target, u"Wsda"_s);
  }
  static void GiveYearAndArchive(
      const Input& input, const std::function<void()>& beforeOk = [] {}) {
    WithWindow(u"FrmArchivePara"_s, [&](QWidget& window) {
      Retype(Find<QWidget>(window, u"Txt(1)"_s), u"2002"_s);
      beforeOk();
      Click(Find<QWidget>(window, u"CmdOK"_s));
    });
    input.Do(u"mnuArchive"_s);
  }
  QString StatusOf(int record) {
    return Value(u"select FileStatus from Lwdj where ArchiveID='"_s + Key(record) + u"'"_s);
  }
};

}  // namespace folvane::test
