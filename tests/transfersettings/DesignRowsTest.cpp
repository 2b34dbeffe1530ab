#include "components/transfer/DesignRows.h"
#include "transfersettings/SettingsFixture.h"

// The rows of a table that a host has given columns of its own.
namespace folvane::test {
namespace {
using namespace transfer;

class DesignRowsTest : public DesignTest {
 protected:
  void SetUp() override {
    DesignTest::SetUp();
    design_->Run(
        u"create table Host (Name varchar(20), Part varchar(20), Day date, Moment timestamp, Amount integer, "
        "Share double precision, Note varchar(20))"_s);
    design_->Run(u"insert into Host values ('甲','1','2002-03-04','2002-03-04 05:06:07',5,2.5,null)"_s);
    design_->Run(u"insert into Host values ('甲','2',null,null,null,null,'it''s')"_s);
    design_->Run(u"insert into Host values ('乙','1',null,null,null,null,null)"_s);
  }
  QStringList Rows() {
    QStringList rows;
    for (const QStringList& row : Database().Rows(u"select * from Host order by Name, Part"_s)) rows << row.join(u'|');
    return rows;
  }
  void Write(const DesignRows& before, const DesignRows& after) {
    const RowChange change(before, after, u"Name"_s);
    change.Delete(*Connected());
    change.Write(*Connected());
  }
};
FOLVANE_ON_EACH_DATABASE(DesignRowsTest);

TEST_P(DesignRowsTest, EveryKindOfValueIsWrittenAgainAsItWas) {
  const QStringList were = Rows();
  const DesignRows before = ReadDesignRows(*Connected(), u"Host"_s);
  DesignRows after = before;
  after.Put(after.rows[1], u"Note"_s, u"anders"_s);
  Write(before, after);
  QStringList wanted = were;
  wanted.replaceInStrings(u"it's"_s, u"anders"_s);
  EXPECT_EQ(Rows(), wanted) << "both rows of the group were taken away and written";
}

TEST_P(DesignRowsTest, ARowThatIsAloneGetsItsNewValuesOnly) {
  const DesignRows before = ReadDesignRows(*Connected(), u"Host"_s);
  DesignRows after = before;
  after.PutNumber(after.rows[2], u"Amount"_s, u"7"_s);
  after.PutExact(after.rows[2], u"Note"_s, u"x "_s);
  log_->Take();
  Write(before, after);
  EXPECT_EQ(log_->Take().size(), 1);
  EXPECT_EQ(Database().Value(u"select Amount from Host where Name = '乙'"_s), u"7"_s);
  EXPECT_EQ(Database().Value(u"select Note from Host where Name = '乙'"_s), u"x "_s);
  after.PutNumber(after.rows[2], u"Amount"_s, u" "_s);
  Write(ReadDesignRows(*Connected(), u"Host"_s), after);
  EXPECT_EQ(Database().Value(u"select Amount from Host where Name = '乙'"_s), u"<null>"_s);
}

TEST_P(DesignRowsTest, WhatAnotherUserHasTakenAwayOrAddedIsNotOverwritten) {
  const DesignRows before = ReadDesignRows(*Connected(), u"Host"_s);
  DesignRows after = before;
  after.Put(after.rows[1], u"Note"_s, u"anders"_s);
  design_->Run(u"insert into Host (Name, Part) values ('甲','3')"_s);
  try {
    Transaction all(*Connected());
    Write(before, after);
    ADD_FAILURE() << "it was written";
  } catch (const DataError& error) {
    EXPECT_EQ(error.Kind(), DataErrorKind::Conflict);
    EXPECT_EQ(error.Message(), u"其他用户同时修改了归档设置，本次修改没有保存。"_s);
  }
  EXPECT_EQ(Rows().size(), 4);
}

TEST_P(DesignRowsTest, BytesAreNotWritten) {
  design_->Run(u"alter table Host add column Picture "_s + (OnSqlite() ? u"blob"_s : u"bytea"_s));
  design_->Run(u"update Host set Picture = "_s + (OnSqlite() ? u"x'00ff'"_s : u"'\\x00ff'"_s));
  const DesignRows before = ReadDesignRows(*Connected(), u"Host"_s);
  DesignRows after = before;
  after.Put(after.rows[1], u"Note"_s, u"anders"_s);
  Transaction all(*Connected());
  EXPECT_THROW(Write(before, after), DataError);
}

TEST_P(DesignRowsTest, AColumnThatTheTableLacksIsEmptyAndTakesNothing) {
  DesignRows rows = ReadDesignRows(*Connected(), u"Host"_s);
  const DesignRows before = rows;
  EXPECT_EQ(rows.Text(rows.rows[0], u"Colour"_s), QString());
  rows.Put(rows.rows[0], u"Colour"_s, u"rot"_s);
  EXPECT_EQ(rows, before);
}

}  // namespace
}  // namespace folvane::test
