#include <gtest/gtest.h>

#include "data/DataSuite.h"

// A record that was written holds what the database keeps of it, and can be changed again.

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

class WrittenValues : public OnEachDatabase {
 protected:
  std::unique_ptr<Recordset> Open(const QString& table) {
    auto records = std::make_unique<Recordset>();
    records->Open(u"Select * From "_s + table, Connected());
    return records;
  }
  QString Stored(const QString& what) { return Database().Value(u"SELECT "_s + what); }
};
FOLVANE_ON_EACH_DATABASE(WrittenValues);

TEST_P(WrittenValues, AColumnOfWholeNumbersTakesTheNearestOne) {
  Database().Native(u"CREATE TABLE Counts (id integer NOT NULL PRIMARY KEY, n integer, small smallint, big bigint)"_s);
  const auto records = Open(u"Counts"_s);
  records->AddNew();
  (*records)[u"id"_s].SetValue(1);
  (*records)[u"n"_s].SetValue(u"1.5"_s);
  (*records)[u"small"_s].SetValue(2.5);
  (*records)[u"big"_s].SetValue(u"-7.0"_s);
  records->UpdateBatch();
  EXPECT_EQ((*records)[u"n"_s].Value(), QVariant(2LL));
  EXPECT_EQ((*records)[u"small"_s].Value(), QVariant(2LL)) << "of two as near the even one";
  EXPECT_EQ(Stored(u"n FROM Counts WHERE n = 2"_s), u"2"_s);
  EXPECT_EQ(Stored(u"small FROM Counts"_s), u"2"_s);
  EXPECT_EQ(Stored(u"big FROM Counts"_s), u"-7"_s);

  (*records)[u"n"_s].SetValue(u"3.2"_s);
  records->UpdateBatch();
  EXPECT_EQ(Stored(u"n FROM Counts"_s), u"3"_s) << "changed again";
}

TEST_P(WrittenValues, WhatIsNoNumberOfTheColumnIsRefused) {
  Database().Native(u"CREATE TABLE Counts (id integer NOT NULL PRIMARY KEY, n bigint, ratio double precision)"_s);
  Database().Native(u"INSERT INTO Counts VALUES (1, 4, 0.5)"_s);
  const auto records = Open(u"Counts"_s);
  const auto refusal = [&](const QString& column, const QVariant& value) {
    return FailureOf([&] { (*records)[column].SetValue(value); }).Message();
  };
  EXPECT_EQ(refusal(u"n"_s, u"99999999999999999999"_s),
            u"“99999999999999999999”不能作为字段“n”的值：该字段要求整数。"_s);
  EXPECT_EQ(refusal(u"n"_s, 1e300), u"“1e+300”不能作为字段“n”的值：该字段要求整数。"_s);
  EXPECT_EQ(refusal(u"n"_s, QDate(2002, 3, 4)), u"“2002-03-04”不能作为字段“n”的值：该字段要求数字。"_s);
  for (const QString& text : {u"nan"_s, u"inf"_s})
    EXPECT_EQ(refusal(u"ratio"_s, text), u"“%1”不能作为字段“ratio”的值：该字段要求数字。"_s.arg(text));
  EXPECT_EQ((*records)[u"n"_s].Value(), QVariant(4LL));
}

TEST_P(WrittenValues, ADefaultOfTheDatabaseIsReadWithTheNewRecord) {
  Database().Native(
      u"CREATE TABLE Papers (id integer NOT NULL PRIMARY KEY, state varchar(10) DEFAULT '待处理', n integer DEFAULT 3)"_s);
  const auto records = Open(u"Papers"_s);
  records->AddNew();
  (*records)[u"id"_s].SetValue(1);
  (*records)[u"n"_s].SetValue(5);
  records->UpdateBatch();
  EXPECT_EQ((*records)[u"state"_s].Text(), u"待处理"_s);
  EXPECT_EQ((*records)[u"n"_s].Value(), QVariant(5LL));
  (*records)[u"state"_s].SetValue(u"已办"_s);
  records->UpdateBatch();
  EXPECT_EQ(Stored(u"state FROM Papers"_s), u"已办"_s);
}

TEST_P(WrittenValues, ANumberThatTheDatabaseRoundsIsReadAsItIsKept) {
  Database().Native(
      u"CREATE TABLE Bills (id integer NOT NULL PRIMARY KEY, amount numeric(9,2) DEFAULT 0, word varchar(9))"_s);
  const auto records = Open(u"Bills"_s);
  records->AddNew();
  (*records)[u"id"_s].SetValue(1);
  (*records)[u"amount"_s].SetValue(u"12.344"_s);
  records->UpdateBatch();
  EXPECT_EQ((*records)[u"amount"_s].Text(), Stored(u"amount FROM Bills"_s));
  for (const QString& amount : {u"0.126"_s, u"7.5"_s, u"8"_s}) {
    (*records)[u"amount"_s].SetValue(amount);
    (*records)[u"word"_s].SetValue(amount);
    records->UpdateBatch();
    EXPECT_EQ((*records)[u"amount"_s].Value().toDouble(), Stored(u"amount FROM Bills"_s).toDouble());
    EXPECT_EQ(Stored(u"word FROM Bills"_s), amount);
  }
}

TEST_P(WrittenValues, ADateOfAnySpellingCanBeChangedAndDeleted) {
  if (!OnSqlite()) GTEST_SKIP() << "a server keeps dates as dates";
  for (const char* key : {" PRIMARY KEY", ""}) {
    Database().Native(u"CREATE TABLE Days (id integer%1, day date, moment timestamp)"_s.arg(QLatin1String(key)));
    for (const QString& text : {u"2002-03-04 00:00:00"_s, u"2002-03-04 05:06:07.000"_s, u"2002-03-04T05:06:07.000"_s,
                                u"2002/3/4"_s, u"2002-03-04"_s}) {
      const auto insert = u"INSERT INTO Days VALUES (1, '%1', '%1')"_s.arg(text);
      for (const QVariant& value : {QVariant(u"2003-01-02"_s), QVariant()}) {
        Database().Native(insert);
        const auto records = Open(u"Days"_s);
        (*records)[u"day"_s].SetValue(value);
        (*records)[u"moment"_s].SetValue(value);
        records->UpdateBatch();
        const QString wanted = value.isValid() ? value.toString() : u"<null>"_s;
        EXPECT_EQ(Stored(u"day FROM Days"_s), wanted) << qPrintable(text) << key;
        EXPECT_EQ(Stored(u"moment FROM Days"_s), wanted) << qPrintable(text) << key;
        Database().Native(u"DELETE FROM Days"_s);
      }
      Database().Native(insert);
      const auto records = Open(u"Days"_s);
      records->Delete();
      records->UpdateBatch();
      EXPECT_EQ(Stored(u"count(*) FROM Days"_s), u"0"_s) << qPrintable(text) << key;
    }
    Database().Native(u"DROP TABLE Days"_s);
  }
}

TEST_P(WrittenValues, ADateThatSomeoneChangedIsStillAConflict) {
  Database().Native(u"CREATE TABLE Days (id integer NOT NULL PRIMARY KEY, day date, moment timestamp)"_s);
  Database().Native(u"INSERT INTO Days VALUES (1, '2002-03-04', '2002-03-04 05:06:07')"_s);
  for (const QString& column : {u"day"_s, u"moment"_s}) {
    const auto records = Open(u"Days"_s);
    Database().Native(u"UPDATE Days SET %1 = '2002-03-05'"_s.arg(column));
    (*records)[column].SetValue(u"2003-01-02"_s);
    EXPECT_EQ(FailureOf([&] { records->UpdateBatch(); }).Kind(), DataErrorKind::Conflict) << qPrintable(column);
  }
}

TEST_P(WrittenValues, RowsThatShareANullInTheirKeyAreNotWrittenTogether) {
  if (!OnSqlite()) GTEST_SKIP() << "no other database has null in a key";
  Database().Native(u"CREATE TABLE Loose (id varchar(20) PRIMARY KEY, word varchar(9))"_s);
  Database().Native(u"INSERT INTO Loose VALUES (NULL, 'a'), (NULL, 'a')"_s);
  const auto records = Open(u"Loose"_s);
  records->Delete();
  EXPECT_EQ(FailureOf([&] { records->UpdateBatch(); }).Kind(), DataErrorKind::Conflict);
  records->CancelBatch();
  (*records)[u"word"_s].SetValue(u"b"_s);
  EXPECT_EQ(FailureOf([&] { records->UpdateBatch(); }).Kind(), DataErrorKind::Conflict);
  EXPECT_EQ(Stored(u"count(*) FROM Loose WHERE word = 'a'"_s), u"2"_s);
}

}  // namespace

}  // namespace folvane::test
