#pragma once

#include "data/DataSuite.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

/// Runs on each database over a table of a thousand papers, which is read by its keys:
///
///     id      number   title       year                 note
///     1       P0001    文件 1      2001                 n1
///     2       P0002    文件 2      2002                 n2
///     ...     one after the other; the years 2000 to 2009 come again and again
class KeysetSuite : public DataSuite {
 protected:
  static constexpr int kPapers = 1000;

  void SetUp() override {
    DataSuite::SetUp();
    Meanwhile(
        u"CREATE TABLE papers (id integer PRIMARY KEY, number varchar(10), title varchar(60), year integer, note text)"_s);
    Meanwhile(
        u"INSERT INTO papers WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
        u"SELECT i, 'P' || substr('000' || i, length('000' || i) - 3), '文件 ' || i, 2000 + i % 10, 'n' || i FROM n"_s
            .arg(kPapers));
  }

  std::unique_ptr<Recordset> Open(const QString& source = u"Select * From papers Order By id"_s,
                                  LockType lock = LockType::BatchOptimistic) {
    return DataSuite::Open(source, lock);
  }
  /// What the database holds of a paper.
  QString Stored(int id, const QString& column) {
    return Database().Value(u"SELECT %1 FROM papers WHERE id = %2"_s.arg(column).arg(id));
  }

 private:
  const EveryTableLarge large_;
};

}  // namespace folvane::test
