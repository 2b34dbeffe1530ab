#include "archiving/TransferFixture.h"

#include "shell/SharedState.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

void TransferTest::SetUp() {
  DesignTest::SetUp();
  design_->Run(
      u"create table Fwdj (ArchiveID varchar(20) primary key, Amaintitle varchar(200), FileStatus varchar(20), "
      "SignDate varchar(20), Pages varchar(20), Unit varchar(20))"_s);
  design_->Run(
      u"create table Wenshu (ArchiveID varchar(20) primary key, Amaintitle varchar(60), FondsNo varchar(20), "
      "DocYear varchar(20), ItemNo integer, PageNo integer, Quantity integer, SignDate date, CreatedDate varchar(10), "
      "InputDate varchar(10), ArchiveFlag varchar(10), ArchNo varchar(60), FolderNo varchar(60))"_s);
  design_->Run(
      u"create table Anjuan (ArchiveID varchar(20) primary key, Amaintitle varchar(160), FondsNo varchar(20), "
      "DocYear varchar(20), Quantity integer, DocStartDate varchar(10), DocEndDate varchar(10), ArchNo varchar(60))"_s);
  const QString relation = u"TableName,ChnTableName,ClassId,Table_Parent"_s;
  design_->Insert(u"Design_TableRelation"_s, relation, {u"Wenshu"_s, u"文书"_s, u"2"_s, u"Anjuan"_s});
  design_->Insert(u"Design_TableRelation"_s, relation, {u"Anjuan"_s, u"案卷"_s, u"2"_s, QString()});
  design_->Insert(u"ArchiveNo_Format"_s, u"TableName,FieldName,StoreField"_s, {u"Anjuan"_s, u"FondsNo"_s, u"ArchNo"_s});
  design_->Insert(u"DataTransfer_Ini"_s, u"RecId,SourceTbl,DesTbl"_s, {u"1"_s, u"Fwdj"_s, u"Wenshu"_s});
  Map(u"Amaintitle"_s, u"Amaintitle"_s, u"题名"_s);
  Map(u"SignDate"_s, u"SignDate"_s, u"日期"_s);
  Map(u"Pages"_s, u"Quantity"_s, u"页数"_s);
  Map(u"SignDate"_s, u"CreatedDate"_s, u"日期"_s);
  SetFormat({{u"FondsNo"_s, u"123"_s, u"-"_s, true, 4},
             {u"DocYear"_s, u"2002"_s, u"-"_s, false, 4},
             {u"ItemNo"_s, QString(), u"-"_s, false, 4}},
            u"ArchNo"_s);
  log_->Take();
}

void TransferTest::TearDown() {
  transfer_.reset();
  SetFormat({}, QString(), QString());
  DesignTest::TearDown();
}

void TransferTest::AddColumn(const QString& table, const QString& column) {
  design_->Run(u"alter table "_s + table + u" add column "_s + column);
}

void TransferTest::Map(const QString& source, const QString& destination, const QString& caption) {
  design_->Insert(u"DataTransfer_Details"_s, u"IniRecId,SourceField,DesField,SourceChn"_s,
                  {u"1"_s, source, destination, caption});
}

void TransferTest::SetFormat(const std::vector<NumberField>& fields, const QString& storeField,
                             const QString& folderField) {
  SharedState& shared = Shared();
  shared.ArchNoFieldName = shared.ArchNoFieldValue = shared.ArchNoSeparator = {QString()};
  shared.ArchNoShowCode = {false};
  shared.ArchNoLength = {0};
  for (const NumberField& field : fields) {
    shared.ArchNoFieldName << field.name;
    shared.ArchNoFieldValue << field.value;
    shared.ArchNoSeparator << field.separator;
    shared.ArchNoShowCode << field.showCode;
    shared.ArchNoLength << field.length;
  }
  shared.ArchNoStoreField = storeField;
  shared.ArchNoFolderField = folderField;
}

void TransferTest::AddDocuments(int count) {
  for (int number = 1; number <= count; ++number)
    AddDocument(number, u"题名%1"_s.arg(number), u"2002-01-0%1"_s.arg(number), u"1"_s);
}

void TransferTest::AddDocument(int number, const QString& title, const QString& date, const QString& pages,
                               const QString& status) {
  design_->Insert(u"Fwdj"_s, u"ArchiveID,Amaintitle,SignDate,Pages,FileStatus"_s,
                  {DesignedDatabase::Key(number), title, date, pages, status});
}

void TransferTest::AddDictionary(const QString& field, const QString& name, const QString& code) {
  design_->Insert(u"DynamicWindows"_s, u"TableName,FieldName,AuxiDictDetails"_s, {u"Wenshu"_s, field, field});
  design_->Insert(u"AssistantDictionary"_s, u"DicID,Name"_s, {field, field});
  design_->Insert(u"AssistantDicKey"_s, u"DicID,Name,KeyCode"_s, {field, name, code});
}

TransferOrder TransferTest::Order() const { return {u"Fwdj"_s, u"Wenshu"_s, u"Select * From Fwdj"_s, false}; }

QStringList TransferTest::Keys(int count) const {
  QStringList keys;
  for (int number = 1; number <= count; ++number) keys << DesignedDatabase::Key(number);
  return keys;
}

ArchiveTransfer& TransferTest::Transfer(int count, const TransferOrder& order) {
  transfer_ = std::make_unique<ArchiveTransfer>();
  transfer_->askTitle = [this] {
    ++titlesAsked_;
    return volumeTitle_;
  };
  transfer_->DoFileArch(order, Keys(count), true);
  return *transfer_;
}

QStringList TransferTest::Rows(const QString& sql) {
  QStringList rows;
  for (const QStringList& row : Database().Rows(sql)) rows << row.join(u'|');
  return rows;
}

QStringList TransferTest::Archived(const QString& columns) {
  return Rows(u"select "_s + columns + u" from Wenshu order by Amaintitle"_s);
}

QStringList TransferTest::Volumes(const QString& columns) {
  return Rows(u"select "_s + columns + u" from Anjuan order by ArchiveID"_s);
}

QStringList TransferTest::Everything() {
  return Rows(u"select * from Fwdj order by 1"_s) + Rows(u"select * from Wenshu order by 1"_s) +
         Rows(u"select * from Anjuan order by 1"_s) +
         Rows(u"select RecordID,ID,FileOrder,Original_Name from Original_Text order by 1,2,3"_s);
}

}  // namespace folvane::test
