#pragma once

#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "components/transfer/TransferSettings.h"
#include "records/DesignedDatabase.h"
#include "support/WindowDriver.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

/// Registered letters (Lwdj) that go into the archive (Wenshu), whose volumes are in a third table (Anjuan). The title
/// and the pages go over already; a number is made of fonds, year and item.
class SettingsTest : public DesignTest {
 protected:
  void SetUp() override {
    DesignTest::SetUp();
    Describe(u"Lwdj"_s, u"收文登记"_s, u"F"_s,
             {{u"Amaintitle"_s, u"题名"_s, u"文本型"_s},
              {u"SignDate"_s, u"成文日期"_s, u"日期型"_s},
              {u"Pages"_s, u"页数"_s, u"数值型"_s},
              {u"Unit"_s, u"责任者"_s, u"文本型"_s},
              {u"Secret"_s, u"密级"_s, u"文本型"_s}});
    Describe(u"Wenshu"_s, u"文书档案"_s, u"A"_s,
             {{u"Amaintitle"_s, u"题名"_s, u"文本型"_s},
              {u"FondsNo"_s, u"全宗号"_s, u"文本型"_s},
              {u"DocYear"_s, u"年度"_s, u"文本型"_s},
              {u"ItemNo"_s, u"件号"_s, u"数值型"_s},
              {u"Quantity"_s, u"页数"_s, u"数值型"_s},
              {u"Author"_s, u"责任者"_s, u"文本型"_s},
              {u"SignDate"_s, u"日期"_s, u"日期型"_s},
              {u"ArchNo"_s, u"档号"_s, u"文本型"_s},
              {u"FolderNo"_s, u"案卷号"_s, u"文本型"_s}});
    Describe(u"Anjuan"_s, u"案卷"_s, u"A"_s, {{u"Amaintitle"_s, u"案卷题名"_s, u"文本型"_s}});
    design_->Run(
        u"create table Lwdj (ArchiveID varchar(20) primary key, Amaintitle varchar(200), FileStatus varchar(20), "
        "SignDate varchar(10), Pages varchar(20), Unit varchar(60), Secret varchar(20), Memo text)"_s);
    design_->Run(
        u"create table Wenshu (ArchiveID varchar(20) primary key, Amaintitle varchar(60), FondsNo varchar(20), "
        "DocYear varchar(4), ItemNo integer, Quantity integer, Author varchar(60), SignDate date, ArchNo varchar(30), "
        "FolderNo varchar(30))"_s);
    design_->Run(u"create table Anjuan (ArchiveID varchar(20) primary key, Amaintitle varchar(160))"_s);
    AddPair(u"1"_s, u"Lwdj"_s, u"Wenshu"_s);
    AddField(u"1"_s, u"Amaintitle"_s, u"Amaintitle"_s, u"题名"_s);
    AddField(u"1"_s, u"Pages"_s, u"Quantity"_s, u"页数"_s);
    AddPart(u"Wenshu"_s, u"FondsNo"_s, u"全宗号"_s, u"4"_s, u"显示代号"_s);
    AddPart(u"Wenshu"_s, u"DocYear"_s, u"年度"_s, u"4"_s);
    AddPart(u"Wenshu"_s, u"ItemNo"_s, u"件号"_s, u"4"_s);
    log_->Take();
  }

  void Describe(const QString& table, const QString& caption, const QString& type,
                const std::vector<DesignedField>& fields) {
    for (const DesignedField& field : fields) {
      design_->Insert(u"DynamicWindows"_s, u"TableName,ChnTableName,TableType,FieldName,ChnFieldName,FieldType"_s,
                      {table, caption, type, field.name, field.caption, field.type});
      design_->Insert(u"SaveControls"_s, u"DataSource,DataField,ControlType"_s, {table, field.name, u"1"_s});
    }
  }
  void AddPair(const QString& number, const QString& source, const QString& destination) {
    design_->Insert(u"DataTransfer_Ini"_s, u"RecId,SourceTbl,DesTbl"_s, {number, source, destination});
  }
  void AddField(const QString& number, const QString& source, const QString& destination, const QString& caption) {
    design_->Insert(u"DataTransfer_Details"_s, u"IniRecId,SourceField,DesField,SourceChn"_s,
                    {number, source, destination, caption});
  }
  void AddPart(const QString& table, const QString& field, const QString& caption, const QString& length,
               const QString& mode = u"显示名称"_s, const QString& store = u"ArchNo"_s,
               const QString& folder = u"(无)"_s) {
    design_->Insert(u"ArchiveNo_Format"_s,
                    u"TableName,FieldName,FieldChn,ListSeparator,ShowMode,Lengh,StoreField,FolderNoField"_s,
                    {table, field, caption, u"-"_s, mode, length, store, folder});
  }

  QStringList Rows(const QString& sql) {
    QStringList rows;
    for (const QStringList& row : Database().Rows(sql)) rows << row.join(u'|');
    return rows;
  }
  QStringList Pairs() {
    return Rows(u"select RecId,SourceTbl,DesTbl from DataTransfer_Ini order by RecId,SourceTbl"_s);
  }
  QStringList Fields() {
    return Rows(u"select IniRecId,SourceField,DesField,SourceChn from DataTransfer_Details order by 1,2,3"_s);
  }
  /// In the order in which a transfer finds them.
  QStringList Parts(const QString& table) {
    return Rows(
        u"select FieldName,FieldChn,ListSeparator,ShowMode,Lengh,StoreField,FolderNoField from "
        "ArchiveNo_Format where TableName = '%1'"_s.arg(table));
  }
  QStringList Everything() {
    return Rows(u"select * from DataTransfer_Ini order by 1,2,3"_s) +
           Rows(u"select * from DataTransfer_Details order by 1,2,3"_s) + Rows(u"select * from ArchiveNo_Format"_s);
  }
  /// The error that the work ends with; a test failure when it ends without.
  static DataError ErrorOf(const std::function<void()>& work) {
    try {
      work();
    } catch (const DataError& error) {
      return error;
    }
    ADD_FAILURE() << "nothing was thrown";
    return {DataErrorKind::Other, {}};
  }
};

}  // namespace folvane::test
