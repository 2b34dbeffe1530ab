#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <folvane/Catalogue.h>
#include <folvane/DataError.h>

#include "data/DatabaseSession.h"
#include "data/drivers/Driver.h"
#include "design/SmallDesign.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

/// A database that says of itself that it takes statements as they are written, and whose tables are made by its own
/// tools. SQLite reads the plain statements of design rows as well.
class ForeignDriver final : public Driver {
 public:
  explicit ForeignDriver(std::shared_ptr<Connection> inner)
      : connection_(std::move(inner)), inner_(DatabaseSession::Of(*connection_).NativeDriver()) {}

  DialectKind Dialect() const override { return DialectKind::TransactSql; }
  qint64 Execute(const NativeStatement& statement) override { return inner_.Execute(statement); }
  void Query(const NativeStatement& statement, std::vector<ColumnInfo>& columns, RowStore& rows) override {
    inner_.Query({WithoutTop(statement.text), statement.parameters}, columns, rows);
  }
  std::optional<TableInfo> Describe(const QString& table) override { return inner_.Describe(table); }
  QByteArray PinyinCollation() override { return {}; }
  void Begin() override { inner_.Begin(); }
  void Commit() override { inner_.Commit(); }
  void Rollback() override { inner_.Rollback(); }
  bool InTransaction() const override { return inner_.InTransaction(); }

 private:
  // SQLite reads all rows where others read the first ones.
  static QByteArray WithoutTop(const QByteArray& text) {
    static const QRegularExpression top(u"\\bTop \\d+ "_s, QRegularExpression::CaseInsensitiveOption);
    return QString::fromUtf8(text).remove(top).toUtf8();
  }

  std::shared_ptr<Connection> connection_;
  Driver& inner_;
};

class ForeignServerTest : public testing::Test {
 protected:
  void SetUp() override {
    CreateTables(*database_->Connect());
    const std::shared_ptr<Connection> maker = database_->Connect();
    ApplyDesign(*maker, PlanDesign(*maker, {}, SmallDesign()));
  }
  void Apply(const Design& wanted) {
    const Design base = ReadDesign(*server_);
    ApplyDesign(*server_, PlanDesign(*server_, base, wanted));
  }

  std::unique_ptr<TestDatabase> database_ = TestDatabase::Create("SQLite");
  std::shared_ptr<Connection> server_ = MakeConnection(std::make_unique<ForeignDriver>(database_->Connect()));
};

TEST_F(ForeignServerTest, DesignRowsAreReadCheckedAndWritten) {
  ASSERT_EQ(ReadDesign(*server_), SmallDesign());
  EXPECT_TRUE(CheckDesign(SmallDesign(), server_.get()).empty());
  Design wanted = SmallDesign();
  FieldOf(wanted, u"Lwdj"_s, u"Amaintitle"_s).caption = u"标'题"_s;
  std::swap(TableOf(wanted, u"Gdwj"_s).numberParts[0], TableOf(wanted, u"Gdwj"_s).numberParts[1]);
  std::erase_if(TableOf(wanted, u"Lwdj"_s).fields, [](const auto& field) { return field.name == u"FileDate"; });
  Apply(wanted);
  EXPECT_EQ(ReadDesign(*server_), wanted);
  EXPECT_EQ(database_->Value(u"select count(*) from pragma_table_info('Lwdj') where name = 'FileDate'"_s), u"1"_s);
}

TEST_F(ForeignServerTest, AFieldWithoutItsColumnIsRefusedUntilTheServersToolsHaveMadeIt) {
  Design wanted = SmallDesign();
  TableOf(wanted, u"Lwdj"_s).fields.push_back({u"Note"_s, u"备注"_s, u"文本型"_s, 200, {}});
  try {
    Apply(wanted);
    FAIL() << "it was applied";
  } catch (const DataError& error) {
    EXPECT_EQ(error.Kind(), DataErrorKind::Untranslatable);
    EXPECT_THAT(error.what(), testing::HasSubstr("表“Lwdj”的列“Note”"));
  }
  database_->Native(u"alter table Lwdj add column Note varchar(200)"_s);
  Apply(wanted);
  EXPECT_EQ(ReadDesign(*server_), wanted);
}

}  // namespace
}  // namespace folvane::test
