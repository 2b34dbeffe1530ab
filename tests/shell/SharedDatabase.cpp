#include "SharedDatabase.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

void SharedDatabase::SetUp() {
  OnEachDatabase::SetUp();
  Run({u"Create Table UserPopedom (UserID varchar(20) primary key, UserName varchar(50))"_s,
       u"Create Table DynamicWindows (TableName varchar(50), FieldName varchar(50), ChnFieldName varchar(50),"
       " FieldType varchar(20), FieldLong integer)"_s,
       u"Create Table SimSearch (TableName varchar(50), DataField varchar(50), FieldValue varchar(500),"
       " OrderNo integer)"_s,
       u"Create Table Report_Index (Report_ID varchar(20) primary key, Report_Group_Id varchar(50),"
       " Report_Name varchar(100))"_s,
       u"Create Table AssistantDictionary (DicID integer primary key, Name varchar(50))"_s,
       u"Create Table AssistantDicKey (DicID integer, Name varchar(50), Note varchar(50))"_s,
       u"Create Table FondsDefine (FondsNo varchar(10) primary key, FondsName varchar(50))"_s,
       u"Create Table EntityClass (ClassNo varchar(10), FondsNo varchar(10), ClassName varchar(50))"_s,
       u"Create Table RetentionYear (Code varchar(10) primary key, Name varchar(50))"_s});
  Connected()->OnStatement([this](const QString& statement) { statements_ << statement; });
  Shared().Connection = Connected();
}

void SharedDatabase::TearDown() {
  Shared().Connection = nullptr;
  Shared().UserId.clear();
  Shared().UserName.clear();
  Shared().DatabaseKind.clear();
}

void SharedDatabase::Run(const QStringList& statements) {
  for (const QString& statement : statements) Database().Native(statement);
}

QStringList Entries(const QComboBox& list) {
  QStringList entries;
  for (int index = 0; index < list.count(); ++index) entries << list.itemText(index);
  return entries;
}

}  // namespace folvane::test
