#pragma once

#include <QAbstractItemView>
#include <QStringList>
#include <functional>
#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "catalogue/Ddl.h"
#include "data/Recordset.h"
#include "shell/SharedState.h"
#include "support/HostDoubles.h"
#include "support/TestDatabase.h"
#include "support/WindowDriver.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

/// The design tables and the table Lwdj with four records on a fresh database, which the shared state points to; user
/// 7. The captions of Lwdj are 登记号 RegID, 题名 Amaintitle, 文号 DocNo, 密级 SecurityClass, 成文日期 FileDate and
/// 办结日期 FinishDate.
class QueryTest : public OnEachDatabase {
 protected:
  void SetUp() override {
    OnEachDatabase::SetUp();
    Shared().Connection = Connected();
    Shared().UserId = u"7"_s;
    Database().Furnish(&CreateCatalogue);
    MakeLwdj();
    Connected()->OnStatement([this](const QString& statement) {
      statements_ << statement;
      if (!refused_.isEmpty() && statement.startsWith(refused_))
        throw DataError(DataErrorKind::Locked, u"记录被锁定"_s, statement, u"5"_s);
    });
  }
  void TearDown() override {
    Connected()->OnStatement({});
    Shared().Connection.reset();
    Shared().UserId.clear();
  }

  void Run(const QString& sql) { Database().Native(sql); }
  QString Value(const QString& sql) { return Database().Value(sql); }
  /// The rows of a query, the values of each joined by a bar, a null as "".
  QStringList Rows(const QString& sql) {
    QStringList rows;
    for (const QStringList& row : Database().Rows(sql)) rows << row.join(u'|').replace(u"<null>"_s, QString());
    return rows;
  }
  void Describe(const QString& field, const QString& caption, const QString& type, const QString& dictionary = {},
                const QString& table = u"Lwdj"_s) {
    Run(u"insert into DynamicWindows (TableName,ChnTableName,TableType,FieldName,ChnFieldName,FieldType,"
        "AuxiDictDetails) values ('%1','收文登记','F','%2','%3','%4','%5')"_s.arg(table, field, caption, type,
                                                                                  dictionary));
  }
  void AddDictionary(const QString& id, const QString& name, const QStringList& entries) {
    Run(u"insert into AssistantDictionary (DicID,Name) values ('%1','%2')"_s.arg(id, name));
    for (const QString& entry : entries)
      Run(u"insert into AssistantDicKey (DicID,Name,Note) values ('%1','%2','%2')"_s.arg(id, entry));
  }
  /// The numbers of the records that a caller's statement finds with the condition.
  QString Found(const QString& condition) {
    QStringList numbers;
    Recordset records;
    records.Open(u"Select * From Lwdj Where "_s + condition + u" Order By RegID"_s, Connected());
    for (; !records.EOF_(); records.MoveNext()) numbers << records[u"RegID"_s].Text();
    return numbers.join(u' ');
  }
  /// Has the statements fail that begin like that; "" ends it.
  void Refuse(const QString& statement) { refused_ = statement; }
  /// The statements since the last call.
  QStringList TakeStatements() { return std::exchange(statements_, {}); }

 private:
  void MakeLwdj() {
    CreateTable(*Connected(), Table{u"Lwdj"_s,
                                    {{u"ArchiveID"_s, ColumnType::Text, 20},
                                     {u"RegID"_s, ColumnType::Integer},
                                     {u"Amaintitle"_s, ColumnType::Text, 200},
                                     {u"DocNo"_s, ColumnType::Text, 50},
                                     {u"SecurityClass"_s, ColumnType::Text, 20},
                                     {u"FileDate"_s, ColumnType::Date},
                                     {u"FinishDate"_s, ColumnType::Text, 8}},
                                    {u"ArchiveID"_s},
                                    {}});
    Describe(u"RegID"_s, u"登记号"_s, u"数值型"_s);
    Describe(u"Amaintitle"_s, u"题名"_s, u"文本型"_s);
    Describe(u"DocNo"_s, u"文号"_s, u"文件编号型"_s);
    Describe(u"SecurityClass"_s, u"密级"_s, u"文本型"_s, u"密级"_s);
    Describe(u"FileDate"_s, u"成文日期"_s, u"日期型"_s);
    Describe(u"FinishDate"_s, u"办结日期"_s, u"档案日期"_s);
    const QString insert =
        u"insert into Lwdj (ArchiveID,RegID,Amaintitle,DocNo,SecurityClass,FileDate,FinishDate) values "_s;
    Run(insert + u"('1',1,'关于防汛的通知','国发[2002]1号','秘密','2002-03-04','20020310')"_s);
    Run(insert + u"('2',2,'关于档案的通知','国发[2002]2号','机密','2002-03-05','20020311')"_s);
    Run(insert + u"('3',10,'防汛总结 a[1]','青政发1号','秘密','2002-04-01','20020402')"_s);
    Run(insert + u"('4',11,'O''Brien 来信',null,null,null,null)"_s);
  }

  QStringList statements_;
  QString refused_;
};

/// The texts of a column of the view of that name.
inline QStringList ColumnOf(const QWidget& window, const QString& view, int column = 0) {
  const QAbstractItemModel& model = *Find<QAbstractItemView>(window, view).model();
  QStringList texts;
  for (int row = 0; row < model.rowCount(); ++row) texts << model.index(row, column).data().toString();
  return texts;
}

/// Clicks on the row of the view of that name, from 0, right of a check box.
inline void ClickRow(const QWidget& window, const QString& view, int row, Qt::KeyboardModifiers keys = Qt::NoModifier) {
  auto& list = Find<QAbstractItemView>(window, view);
  const QRect place = list.visualRect(list.model()->index(row, 0));
  ClickAt(*list.viewport(), place.topLeft() + QPoint(50, place.height() / 2), Qt::LeftButton, keys);
}

inline void Click(const QWidget& window, const QString& name) { Click(Find(window, name)); }

inline void Set(const QWidget& window, const QString& name, const QString& text) {
  Find(window, name).setProperty("text", text);
}

}  // namespace folvane::test
