#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "data/DatabaseSession.h"
#include "design/SmallDesign.h"
#include "design/TableEdits.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

class ApplyDesignTest : public WithSmallDesign {
 protected:
  int SizeOf(const QString& table, const QString& column) {
    DatabaseSession::Of(*Connected()).RefreshSchema();
    const TableInfo* info = DatabaseSession::Of(*Connected()).Table(table);
    return info->columns.at(std::size_t(info->IndexOf(column))).definedSize;
  }
  bool Has(const QString& table, const QString& column = {}) {
    DatabaseSession::Of(*Connected()).RefreshSchema();
    const TableInfo* info = DatabaseSession::Of(*Connected()).Table(table);
    return info && (column.isEmpty() || info->IndexOf(column) >= 0);
  }
  void AddLetter(const QString& key, const QString& title) {
    Connected()->Execute(u"Insert Into Lwdj (ArchiveID,Amaintitle) Values ('%1','%2')"_s.arg(key, title));
  }
};
FOLVANE_ON_EACH_DATABASE(ApplyDesignTest);

TEST_P(ApplyDesignTest, ALongerFieldGetsALongerColumnWithItsRowsAndIndexes) {
  AddLetter(u"1"_s, u"关于防汛工作的通知"_s);
  Database().Native(u"create unique index ByTitle on Lwdj(Amaintitle)"_s);
  Apply([](Design& design) { FieldOf(design, u"Lwdj"_s, u"Amaintitle"_s).length = 300; });
  EXPECT_EQ(SizeOf(u"Lwdj"_s, u"Amaintitle"_s), 300);
  EXPECT_EQ(SizeOf(u"Lwdj"_s, u"SecurityClass"_s), 10);
  EXPECT_EQ(Database().Value(u"select Amaintitle from Lwdj"_s), u"关于防汛工作的通知"_s);
  EXPECT_ANY_THROW(Database().Native(u"insert into Lwdj(ArchiveID, Amaintitle) select '2', Amaintitle from Lwdj"_s));
  AddLetter(u"3"_s, QString(150, u'长'));
}

TEST_P(ApplyDesignTest, AShorterFieldLeavesItsColumnAsLongAsItIs) {
  Apply([](Design& design) { FieldOf(design, u"Lwdj"_s, u"Amaintitle"_s).length = 80; });
  EXPECT_EQ(SizeOf(u"Lwdj"_s, u"Amaintitle"_s), 160);
}

TEST_P(ApplyDesignTest, ANewFieldGetsItsColumnBehindTheRowsThatAreThere) {
  AddLetter(u"1"_s, u"通知"_s);
  Apply([](Design& design) {
    TableOf(design, u"Lwdj"_s)
        .fields.insert(TableOf(design, u"Lwdj"_s).fields.begin(), {u"备注"_s, u"备注"_s, u"文本型"_s, 200, {}});
  });
  EXPECT_EQ(Read().tables[1].fields.back().name, u"备注"_s);
  Connected()->Execute(u"Update Lwdj Set 备注 = '急' Where Amaintitle Like '%知%'"_s);
  EXPECT_EQ(Database().Value(u"select 备注 from Lwdj where 备注 = '急'"_s), u"急"_s);
}

TEST_P(ApplyDesignTest, AColumnWithContentGoesOnlyWhenTheAnswerIsToLoseIt) {
  AddLetter(u"1"_s, u"通知"_s);
  const Design before = Read();
  Design wanted = before;
  std::erase_if(TableOf(wanted, u"Lwdj"_s).fields, [](const auto& field) { return field.name == u"Amaintitle"; });
  const DesignPlan plan = PlanDesign(*Connected(), before, wanted);
  ASSERT_EQ(plan.losses.size(), 1u);
  EXPECT_EQ(plan.losses[0].rows, 1);
  EXPECT_THAT(plan.losses[0].words.toStdString(), testing::HasSubstr("1 条记录"));
  EXPECT_THROW(ApplyDesign(*Connected(), plan), DataError);
  EXPECT_EQ(Read(), before);
  ApplyDesign(*Connected(), plan, {LossAnswer::Keep});
  EXPECT_EQ(Read(), wanted);
  EXPECT_EQ(Database().Value(u"select Amaintitle from Lwdj"_s), u"通知"_s);
}

TEST_P(ApplyDesignTest, AColumnGoesWithItsIndexWhenTheAnswerIsToLoseIt) {
  AddLetter(u"1"_s, u"通知"_s);
  Database().Native(u"create index ByTitle on Lwdj(Amaintitle, RegID)"_s);
  Apply([](Design& design) {
    std::erase_if(TableOf(design, u"Lwdj"_s).fields, [](const auto& field) { return field.name == u"Amaintitle"; });
  });
  EXPECT_FALSE(Has(u"Lwdj"_s, u"Amaintitle"_s));
  EXPECT_EQ(Database().Value(u"select count(*) from Lwdj"_s), u"1"_s);
}

TEST_P(ApplyDesignTest, ATableWithRecordsGoesOnlyWhenTheAnswerIsToLoseIt) {
  AddLetter(u"1"_s, u"通知"_s);
  const auto remove = [](Design& design) {
    std::erase_if(design.tables, [](const auto& table) { return table.name == u"Lwdj"; });
    design.transfers.clear();
  };
  Apply(remove, LossAnswer::Keep);
  EXPECT_TRUE(Has(u"Lwdj"_s));
  EXPECT_EQ(Read().tables.size(), 1u);
  Apply([](Design& design) { design.tables.push_back(SmallDesign().tables[1]); });
  Apply(remove);
  EXPECT_FALSE(Has(u"Lwdj"_s));
}

TEST_P(ApplyDesignTest, AColumnThatAConditionOfAUserNamesDoesNotGo) {
  const auto remove = [](Design& design) { design::RemoveField(design, u"Lwdj"_s, u"SecurityClass"_s); };
  EXPECT_EQ(Refusal(remove),
            u"用户“王小明”对表“Lwdj”的条件用到列“SecurityClass”，没有删除，本次修改没有保存。请先改正条件。");
  EXPECT_TRUE(Has(u"Lwdj"_s, u"SecurityClass"_s));
  Apply([&](Design& design) {
    remove(design);
    design.users[1].rights[0].condition.clear();
    design.users[1].rights[0].conditionFields.clear();
  });
  EXPECT_FALSE(Has(u"Lwdj"_s, u"SecurityClass"_s));
}

TEST_P(ApplyDesignTest, RecordsThatCameAfterTheQuestionAreNotLostByItsAnswer) {
  AddLetter(u"1"_s, u"通知"_s);
  Design wanted = Read();
  std::erase_if(wanted.tables, [](const auto& table) { return table.name == u"Lwdj"; });
  const DesignPlan plan = PlanDesign(*Connected(), Read(), wanted);
  AddLetter(u"2"_s, u"函"_s);
  try {
    ApplyDesign(*Connected(), plan, {LossAnswer::Lose});
    FAIL() << "it was applied";
  } catch (const DataError& error) {
    EXPECT_EQ(error.Kind(), DataErrorKind::Conflict);
  }
  EXPECT_EQ(Database().Value(u"select count(*) from Lwdj"_s), u"2"_s);
  EXPECT_EQ(Read().tables.size(), 2u);
}

TEST_P(ApplyDesignTest, WhatClerksWroteStaysWhileTheirFieldsAreDesigned) {
  Database().Native(u"update SimSearch set FieldValue = '@防汛@' where DataField = 'Amaintitle'"_s);
  Database().Native(u"insert into SaveCollect(TableName, CenterControlIndex, FieldName) values('Lwdj', 0, 'RegID')"_s);
  const Design base = Read();
  Design wanted = base;
  TableOf(wanted, u"Lwdj"_s).searchFields[0].caption = u"标题"_s;
  wanted.dictionaries[0].entries[0].code = u"X"_s;
  Database().Native(
      u"insert into AssistantDicKey(DicID, Name, IsSystem) select DicID, '绝密', '0' from AssistantDictionary"_s);
  ApplyDesign(*Connected(), PlanDesign(*Connected(), base, wanted));
  EXPECT_EQ(Database().Rows(u"select FieldValue, ChnDataField from SimSearch where TableName = 'Lwdj' and "
                            u"DataField = 'Amaintitle'"_s)[0],
            (QStringList{u"@防汛@"_s, u"标题"_s}));
  EXPECT_EQ(Database().Value(u"select count(*) from SaveCollect"_s), u"1"_s);
  EXPECT_EQ(Database().Value(u"select count(*) from AssistantDicKey"_s), u"3"_s);
  EXPECT_EQ(Read().dictionaries[0].entries.size(), 3u);
}

TEST_P(ApplyDesignTest, ALengthOfZeroLiftsTheLimitOfTheColumn) {
  AddLetter(u"1"_s, u"通知"_s);
  Apply([](Design& design) { FieldOf(design, u"Lwdj"_s, u"Amaintitle"_s).length = 0; });
  EXPECT_EQ(SizeOf(u"Lwdj"_s, u"Amaintitle"_s), std::numeric_limits<int>::max());
  AddLetter(u"2"_s, QString(3000, u'长'));
  EXPECT_EQ(Database().Value(u"select length(Amaintitle) from Lwdj where ArchiveID = '2'"_s), u"3000"_s);
}

TEST_P(ApplyDesignTest, ALengthThatWasZeroAllAlongLeavesTheColumnAlone) {
  Database().Native(u"update DynamicWindows set FieldLong = 0 where TableName = 'Lwdj' and FieldName = 'Amaintitle'"_s);
  Apply([](Design& design) { FieldOf(design, u"Lwdj"_s, u"Amaintitle"_s).caption = u"标题"_s; });
  EXPECT_EQ(SizeOf(u"Lwdj"_s, u"Amaintitle"_s), 160);
}

TEST_P(ApplyDesignTest, WhatOthersChangedElsewhereMeanwhileStays) {
  const Design base = Read();
  Design mine = base, theirs = base;
  FieldOf(mine, u"Lwdj"_s, u"Amaintitle"_s).caption = u"标题"_s;
  FieldOf(theirs, u"Lwdj"_s, u"Amaintitle"_s).isCarried = true;
  TableOf(theirs, u"Lwdj"_s).controls[0].keyOrder = 9;
  ApplyDesign(*Connected(), PlanDesign(*Connected(), base, theirs));
  ApplyDesign(*Connected(), PlanDesign(*Connected(), base, mine));
  Design both = theirs;
  FieldOf(both, u"Lwdj"_s, u"Amaintitle"_s).caption = u"标题"_s;
  PutInOrder(both);
  EXPECT_EQ(Read(), both);
}

TEST_P(ApplyDesignTest, TheSameChangedByTwoIsAConflictThatNamesIt) {
  const Design base = Read();
  Design mine = base, theirs = base;
  FieldOf(mine, u"Lwdj"_s, u"Amaintitle"_s).caption = u"标题"_s;
  FieldOf(theirs, u"Lwdj"_s, u"Amaintitle"_s).caption = u"名称"_s;
  const DesignPlan plan = PlanDesign(*Connected(), base, mine);
  ApplyDesign(*Connected(), PlanDesign(*Connected(), base, theirs));
  try {
    ApplyDesign(*Connected(), plan);
    FAIL() << "it was applied";
  } catch (const DataError& error) {
    EXPECT_EQ(error.Kind(), DataErrorKind::Conflict);
    EXPECT_THAT(error.what(), testing::HasSubstr("Lwdj，Amaintitle"));
  }
  EXPECT_EQ(Read(), theirs);
}

TEST_P(ApplyDesignTest, AnArchiveNumberWorkedOnByTwoIsAConflict) {
  const Design base = Read();
  Design mine = base, theirs = base;
  TableOf(mine, u"Gdwj"_s).numberParts.front().length = 5;
  std::swap(TableOf(theirs, u"Gdwj"_s).numberParts[0], TableOf(theirs, u"Gdwj"_s).numberParts[1]);
  ApplyDesign(*Connected(), PlanDesign(*Connected(), base, theirs));
  EXPECT_THROW(PlanDesign(*Connected(), base, mine), DataError);
  EXPECT_EQ(Read(), theirs);
}

TEST_P(ApplyDesignTest, ADictionaryThatGainedAnEntryMeanwhileIsNotRemoved) {
  const Design base = Read();
  Design wanted = base;
  wanted.dictionaries.clear();
  Database().Native(u"insert into AssistantDicKey(DicID, Name) select DicID, '绝密' from AssistantDictionary"_s);
  EXPECT_THROW(PlanDesign(*Connected(), base, wanted), DataError);
  EXPECT_EQ(Database().Value(u"select count(*) from AssistantDicKey"_s), u"3"_s);
}

TEST_P(ApplyDesignTest, WhatBothRemovedIsNoConflict) {
  const Design base = Read();
  Apply([](Design& design) { design = {}; });
  const DesignPlan plan = PlanDesign(*Connected(), base, {});
  EXPECT_TRUE(plan.statements.isEmpty());
  ApplyDesign(*Connected(), plan);
  EXPECT_EQ(Read(), Design());
}

TEST_P(ApplyDesignTest, WhatAnotherChangedIsNotRemoved) {
  const Design base = Read();
  Apply([other = u"另"_s](Design& design) {
    design.classes[0].name = design.tables[0].caption = design.dictionaries[0].entries[0].code = other;
    design.fonds[0].name = design.entityClasses[0].name = design.retentions[0].code = other;
    design.transfers[0].links[0].caption = design.reports[0].name = design.users[0].name = other;
  });
  const auto isRefused = [&](auto list) {
    Design mine = base;
    (mine.*list).clear();
    try {
      PlanDesign(*Connected(), base, mine);
    } catch (const DataError& error) {
      return error.Kind() == DataErrorKind::Conflict;
    }
    return false;
  };
  EXPECT_TRUE(isRefused(&Design::classes) && isRefused(&Design::tables) && isRefused(&Design::dictionaries));
  EXPECT_TRUE(isRefused(&Design::fonds) && isRefused(&Design::entityClasses) && isRefused(&Design::retentions));
  EXPECT_TRUE(isRefused(&Design::transfers) && isRefused(&Design::reports) && isRefused(&Design::users));
}

TEST_P(ApplyDesignTest, EachOfTwoLossesHasItsOwnAnswer) {
  AddLetter(u"1"_s, u"通知"_s);
  Database().Native(u"update Lwdj set SecurityClass = '内部'"_s);
  const Design base = Read();
  Design wanted = base;
  std::erase_if(TableOf(wanted, u"Lwdj"_s).fields,
                [](const auto& field) { return field.name == u"Amaintitle" || field.name == u"SecurityClass"; });
  wanted.users[1].rights[0].condition.clear();
  wanted.users[1].rights[0].conditionFields.clear();
  const DesignPlan plan = PlanDesign(*Connected(), base, wanted);
  ASSERT_EQ(plan.losses.size(), 2u);
  const bool titleFirst = plan.losses[0].column.toLower() == u"amaintitle"_s;
  EXPECT_THROW(ApplyDesign(*Connected(), plan, {LossAnswer::Keep}), DataError) << "only one was answered";
  ApplyDesign(*Connected(), plan,
              {titleFirst ? LossAnswer::Keep : LossAnswer::Lose, titleFirst ? LossAnswer::Lose : LossAnswer::Keep});
  EXPECT_TRUE(Has(u"Lwdj"_s, u"Amaintitle"_s));
  EXPECT_FALSE(Has(u"Lwdj"_s, u"SecurityClass"_s));
}

TEST_P(ApplyDesignTest, AColumnThatWasEmptyWhenItWasAskedAboutIsNotLost) {
  const Design base = Read();
  Design wanted = base;
  std::erase_if(TableOf(wanted, u"Lwdj"_s).fields, [](const auto& field) { return field.name == u"Amaintitle"; });
  const DesignPlan plan = PlanDesign(*Connected(), base, wanted);
  EXPECT_TRUE(plan.losses.empty());
  AddLetter(u"1"_s, u"通知"_s);
  EXPECT_THROW(ApplyDesign(*Connected(), plan), DataError);
  EXPECT_EQ(Database().Value(u"select Amaintitle from Lwdj"_s), u"通知"_s);
  EXPECT_EQ(Read(), base);
}

TEST_P(ApplyDesignTest, ARowThatTheDatabaseDoesNotWriteIsAConflict) {
  if (OnSqlite()) {
    Database().Native(u"create trigger Ignore before update on DynamicWindows begin select raise(ignore); end"_s);
  } else {
    Database().Native(u"create function Ignore() returns trigger language plpgsql as 'begin return null; end'"_s);
    Database().Native(
        u"create trigger Ignore before update on DynamicWindows for each row execute function Ignore()"_s);
  }
  const QString refusal = Refusal([](Design& design) { FieldOf(design, u"Lwdj"_s, u"RegID"_s).caption = u"号"_s; });
  EXPECT_TRUE(refusal.startsWith(u"其他用户同时删除了"_s)) << qPrintable(refusal);
}

TEST_P(ApplyDesignTest, ColumnsOfTheHostStayWithTheRowsThatAreWrittenAgain) {
  Database().Native(u"alter table ArchiveNo_Format add column Room varchar(9)"_s);
  Database().Native(u"update ArchiveNo_Format set Room = FieldName where TableName = 'Gdwj'"_s);
  Apply([](Design& design) {
    std::swap(TableOf(design, u"Gdwj"_s).numberParts[0], TableOf(design, u"Gdwj"_s).numberParts[1]);
  });
  EXPECT_EQ(Database().Rows(u"select FieldName, Room from ArchiveNo_Format"_s),
            (std::vector<QStringList>{
                {u"FileYear"_s, u"FileYear"_s}, {u"FondsNo"_s, u"FondsNo"_s}, {u"DocOrder"_s, u"DocOrder"_s}}));
}

TEST_P(ApplyDesignTest, OnlyRowsThatDifferAreWritten) {
  Design wanted = Read();
  FieldOf(wanted, u"Lwdj"_s, u"Amaintitle"_s).caption = u"标题"_s;
  EXPECT_EQ(PlanDesign(*Connected(), Read(), wanted).statements,
            QStringList{u"Update DynamicWindows Set ChnFieldName = '标题' Where TableName = 'Lwdj' And FieldName = "
                        u"'Amaintitle'"_s});
}

TEST_P(ApplyDesignTest, WithinTheHostsTransactionTheHostDecides) {
  const Design before = Read();
  {
    Transaction transaction(*Connected());
    Apply([](Design& design) { FieldOf(design, u"Lwdj"_s, u"Amaintitle"_s).length = 300; });
  }
  EXPECT_EQ(Read(), before);
  EXPECT_EQ(SizeOf(u"Lwdj"_s, u"Amaintitle"_s), 160);
}

TEST_P(ApplyDesignTest, AWidenedColumnIsAsLongForTheOtherUsersOfTheDatabase) {
  const std::shared_ptr<Connection> other = Database().Connect();
  ReadDesign(*other);
  Apply([](Design& design) { FieldOf(design, u"Lwdj"_s, u"Amaintitle"_s).length = 300; });
  DatabaseSession::Of(*other).RefreshSchema();
  const TableInfo* info = DatabaseSession::Of(*other).Table(u"Lwdj"_s);
  EXPECT_EQ(info->columns.at(std::size_t(info->IndexOf(u"Amaintitle"_s))).definedSize, 300);
}

}  // namespace
}  // namespace folvane::test
