// A database that refuses a step, or does otherwise than it was told: the design is as it was, and it is said why.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "data/DatabaseSession.h"
#include "data/drivers/Driver.h"
#include "design/SmallDesign.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

/// SQLite, except for what a test has it do otherwise.
class ContraryDriver final : public Driver {
 public:
  explicit ContraryDriver(std::shared_ptr<Connection> inner)
      : connection_(std::move(inner)), inner_(DatabaseSession::Of(*connection_).NativeDriver()) {}

  DialectKind Dialect() const override { return inner_.Dialect(); }
  qint64 Execute(const NativeStatement& statement) override { return inner_.Execute(statement); }
  void Query(const NativeStatement& statement, std::vector<ColumnInfo>& columns, RowStore& rows) override {
    QByteArray text = statement.text;
    if (isUpsideDown && text.contains("ArchiveNo_Format") && !text.contains("ORDER BY")) text += " ORDER BY rowid DESC";
    inner_.Query({text, statement.parameters}, columns, rows);
  }
  std::optional<TableInfo> Describe(const QString& table) override {
    std::optional<TableInfo> info = inner_.Describe(table);
    if (isNarrow && info)
      for (ColumnInfo& column : info->columns) column.definedSize = std::min(column.definedSize, 160);
    return info;
  }
  QByteArray PinyinCollation() override { return inner_.PinyinCollation(); }
  void Begin() override { inner_.Begin(); }
  void Commit() override { inner_.Commit(); }
  void Rollback() override { inner_.Rollback(); }
  bool InTransaction() const override { return inner_.InTransaction(); }

  bool isNarrow = false;      ///< says of every column that it is short
  bool isUpsideDown = false;  ///< gives the rows that have no order the other way round

 private:
  std::shared_ptr<Connection> connection_;
  Driver& inner_;
};

class ContraryDatabaseTest : public testing::Test {
 protected:
  void SetUp() override { ApplyDesign(*connection_, PlanDesign(*connection_, {}, SmallDesign())); }
  std::string Refusal(const Design& wanted) {
    try {
      ApplyDesign(*connection_, PlanDesign(*connection_, SmallDesign(), wanted));
    } catch (const DataError& error) {
      EXPECT_FALSE(connection_->InTransaction());
      return error.what();
    }
    return {};
  }

  std::unique_ptr<TestDatabase> database_ = TestDatabase::Create("SQLite");
  ContraryDriver* driver_ = new ContraryDriver(database_->Connect());
  std::shared_ptr<Connection> connection_ = MakeConnection(std::unique_ptr<Driver>(driver_));
};

class RefusedStepTest : public WithSmallDesign {};
FOLVANE_ON_EACH_DATABASE(RefusedStepTest);

class GainedMeanwhileTest : public WithSmallDesign {
 protected:
  /// Another adds something to what is removed: the removal is a conflict that names it, and the other's work stays.
  void ExpectKept(const std::function<void(Design&)>& add, const std::function<void(Design&)>& remove,
                  const std::string& name) {
    const Design base = Read();
    Design mine = base;
    remove(mine);
    const DesignPlan plan = PlanDesign(*Connected(), base, mine);
    Apply(add);
    const Design theirs = Read();
    try {
      ApplyDesign(*Connected(), plan, std::vector<LossAnswer>(plan.losses.size(), LossAnswer::Lose));
      ADD_FAILURE() << name << " was removed";
    } catch (const DataError& error) {
      EXPECT_EQ(error.Kind(), DataErrorKind::Conflict);
      EXPECT_THAT(error.what(), HasSubstr(name));
    }
    EXPECT_EQ(Read(), theirs);
    EXPECT_FALSE(Connected()->InTransaction());
  }
};
FOLVANE_ON_EACH_DATABASE(GainedMeanwhileTest);

}  // namespace

TEST_F(ContraryDatabaseTest, AColumnThatIsSaidToBeWidenedAndIsNotIsTold) {
  driver_->isNarrow = true;
  Design wanted = SmallDesign();
  FieldOf(wanted, u"Lwdj"_s, u"Amaintitle"_s).length = 300;
  EXPECT_THAT(Refusal(wanted), HasSubstr("表“Lwdj”的列“Amaintitle”没有加长"));
  driver_->isNarrow = false;
  EXPECT_EQ(ReadDesign(*database_->Connect()), SmallDesign());
}

TEST_F(ContraryDatabaseTest, AnArchiveNumberWhosePartsComeBackInAnotherOrderIsNotWritten) {
  Design wanted = SmallDesign();
  std::swap(TableOf(wanted, u"Gdwj"_s).numberParts[0], TableOf(wanted, u"Gdwj"_s).numberParts[1]);
  const DesignPlan plan = PlanDesign(*connection_, SmallDesign(), wanted);
  connection_->OnStatement([this](const QString& statement) {
    if (statement.startsWith(u"Insert Into ArchiveNo_Format"_s)) driver_->isUpsideDown = true;
  });
  try {
    ApplyDesign(*connection_, plan);
    ADD_FAILURE() << "it was applied";
  } catch (const DataError& error) {
    EXPECT_THAT(error.what(), HasSubstr("没有保持表“Gdwj”档号各段的次序"));
  }
  connection_->OnStatement({});
  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_EQ(ReadDesign(*database_->Connect()), SmallDesign());
}

TEST_P(RefusedStepTest, AColumnOrTableThatAViewHangsOnStaysAndItIsToldWhy) {
  Database().Native(u"create view Seen as select FileDate from Lwdj"_s);
  const auto removeField = [](Design& design) {
    auto& table = TableOf(design, u"Lwdj"_s);
    std::erase_if(table.fields, [](const auto& field) { return field.name == u"FileDate"; });
    std::erase_if(table.controls, [](const auto& control) { return control.field == u"FileDate"; });
  };
  EXPECT_THAT(Refusal(removeField).toLower().toStdString(), HasSubstr("不能删除表“lwdj”的列“filedate”："));
  if (!OnSqlite()) {  // which drops a table below its views
    const auto removeTable = [](Design& design) {
      std::erase_if(design.tables, [](const auto& table) { return table.name == u"Lwdj"; });
      design.transfers.clear(), design.reports.clear(), design.users.pop_back();
    };
    EXPECT_THAT(Refusal(removeTable).toLower().toStdString(), HasSubstr("不能删除表“lwdj”："));
  }
  EXPECT_EQ(Database().Value(u"select count(FileDate) from Seen"_s), u"0"_s);
  Database().Native(u"drop view Seen"_s);
  EXPECT_EQ(Refusal(removeField), QString());
}

TEST_P(GainedMeanwhileTest, ATableThatGainedAFieldStays) {
  ExpectKept(
      [](Design& design) {
        TableOf(design, u"Lwdj"_s).fields.push_back({u"Note"_s, u"备注"_s, u"文本型"_s, 50, {}});
      },
      [](Design& design) { std::erase_if(design.tables, [](const auto& table) { return table.name == u"Lwdj"; }); },
      "Lwdj");
}

TEST_P(GainedMeanwhileTest, AUserWhoWasGivenARightStays) {
  ExpectKept(
      [](Design& design) {
        design.users[1].rights.push_back({u"Gdwj"_s, u"查看"_s, true, true, true, {}, {}});
      },
      [](Design& design) { design.users.pop_back(); }, "王小明");
}

TEST_P(GainedMeanwhileTest, ATransferThatGainedALinkStays) {
  ExpectKept(
      [](Design& design) {
        design.transfers[0].links.push_back({u"SecurityClass"_s, u"SecurityClass"_s, u"密级"_s});
      },
      [](Design& design) { design.transfers.clear(); }, "Lwdj");
}

}  // namespace folvane::test
