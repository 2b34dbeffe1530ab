#pragma once

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "data/DatabaseSession.h"
#include "data/Recordset.h"
#include "host/demo/DemoDatabase.h"
#include "support/OneOnEachDatabase.h"
#include "support/TestDatabase.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

inline const QStringList kBusinessTables{u"Lwdj"_s, u"Fwdj"_s, u"Wsda_Aj"_s, u"Wsda_Jn"_s, u"Gdwj"_s, u"Dsj"_s};

/// A demo of 600 records that ends on 20 November 2026, with its originals in a temporary directory. All cases share
/// it and only look.
class DemoTest : public testing::TestWithParam<std::string> {
 protected:
  struct Demo {
    QTemporaryDir store;
    std::unique_ptr<TestDatabase> database;
    std::shared_ptr<folvane::Connection> connection;

    explicit Demo(const std::string& kind) : database(TestDatabase::Create(kind)), connection(database->Connect()) {
      demo::MakeDemoDatabase(*connection, Options(store.path()));
    }
  };

  static demo::DemoOptions Options(const QString& store = {}) {
    demo::DemoOptions options;
    options.records = 600;
    options.today = QDate(2026, 11, 20);
    options.storeDirectory = store;
    return options;
  }

  void SetUp() override { demo_ = &OneOnEachDatabase<Demo>::Of(GetParam()); }

  const std::shared_ptr<folvane::Connection>& Connected() const { return demo_->connection; }
  QString StorePath() const { return demo_->store.path(); }

  /// The rows of a statement in the system's own words, each value as text.
  std::vector<QStringList> Select(const QString& statement) {
    Recordset records;
    records.Open(statement, Connected());
    std::vector<QStringList> rows;
    for (; !records.EOF_(); records.MoveNext()) {
      QStringList row;
      for (int i = 0; i < records.Fields().Count(); ++i) row << records.Fields().Item(i).Text();
      rows.push_back(row);
    }
    return rows;
  }
  QStringList Column(const QString& statement) {
    QStringList values;
    for (const QStringList& row : Select(statement)) values << row[0];
    return values;
  }
  int Count(const QString& rest) { return Column(u"Select Count(1) As N From "_s + rest).at(0).toInt(); }
  bool HasField(const QString& table, const QString& field) {
    const TableInfo* info = DatabaseSession::Of(*Connected()).Table(table);
    return info && info->IndexOf(field) >= 0;
  }

 private:
  Demo* demo_ = nullptr;
};

}  // namespace folvane::test
