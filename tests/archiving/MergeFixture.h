#pragma once

#include <QStringList>

#include "records/DesignedDatabase.h"
#include "shell/SharedState.h"

namespace folvane::test {

/// The file tables Lwdj and Fwdj, with a status and a note, over the records 1, 2... that a case adds.
class MergeTest : public DesignTest {
 protected:
  void SetUp() override {
    DesignTest::SetUp();
    design_->AddClass(2, QStringLiteral("文书"));
    AddStatusTable(QStringLiteral("Lwdj"), QStringLiteral("来文登记"), true);
    AddStatusTable(QStringLiteral("Fwdj"), QStringLiteral("发文登记"), false);
    log_->Take();
  }
  void AddStatusTable(const QString& table, const QString& caption, bool withNote) {
    std::vector<DesignedField> fields{
        {QStringLiteral("RegID"), QStringLiteral("登记号"), QStringLiteral("数值型")},
        {QStringLiteral("Amaintitle"), QStringLiteral("题名"), QStringLiteral("文本型")},
        {QStringLiteral("FileStatus"), QStringLiteral("归档状态"), QStringLiteral("文本型")}};
    if (withNote) fields.push_back({QStringLiteral("Note"), QStringLiteral("附注"), QStringLiteral("文本型")});
    design_->AddTable(table, caption, 2, fields);
  }
  static QString Key(int number) { return DesignedDatabase::Key(number); }
  /// An original of a record: its id is the record's number and the order.
  void AddOriginal(int record, int order) {
    const QString id = QStringLiteral("%1-%2").arg(record).arg(order);
    design_->AddOriginal(Key(record), id, QStringLiteral("正文") + id, order);
  }
  /// The originals of a record as "order id name".
  QStringList OriginalsOf(int record) {
    QStringList originals;
    for (const QStringList& row : Database().Rows(
             QStringLiteral("select FileOrder,ID,Original_Name from Original_Text where RecordID='%1' order by 1,2")
                 .arg(Key(record))))
      originals << row.join(u' ');
    return originals;
  }
  QString StatusOf(int record, const QString& table = QStringLiteral("Lwdj")) {
    return design_->Value(QStringLiteral("select FileStatus from %1 where ArchiveID='%2'").arg(table, Key(record)));
  }
  QString NoteOf(int record) {
    return design_->Value(QStringLiteral("select Note from Lwdj where ArchiveID='%1'").arg(Key(record)));
  }
};

}  // namespace folvane::test
