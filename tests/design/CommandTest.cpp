#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "design/SmallDesign.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

class DesignCommand : public testing::Test {
 protected:
  QString Path(const QString& name) { return folder_.filePath(name); }
  QString Written(const QString& name, const QByteArray& text) {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QFile::WriteOnly));
    file.write(text);
    return Path(name);
  }
  QString Written(const QString& name, const Design& design) { return Written(name, DesignText(design)); }
  int Run(const QStringList& arguments) {
    QProcess process;
    process.start(QLatin1String(COMMAND), arguments);
    process.waitForFinished();
    out_ = process.readAllStandardOutput();
    errors_ = process.readAllStandardError();
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
  }
  void MakeDatabase() {
    ASSERT_EQ(Run({u"import"_s, Path(u"a.db"_s), Written(u"a.yaml"_s, SmallDesign())}), 0) << errors_.toStdString();
  }

  QTemporaryDir folder_;
  QByteArray out_, errors_;
};

TEST_F(DesignCommand, WhatIsImportedIsExportedTheSame) {
  MakeDatabase();
  EXPECT_EQ(Run({u"export"_s, Path(u"a.db"_s)}), 0);
  EXPECT_EQ(out_, DesignText(SmallDesign()));
  EXPECT_EQ(Run({u"diff"_s, Path(u"a.db"_s), Path(u"a.yaml"_s)}), 0);
  EXPECT_EQ(Run({u"export"_s, Path(u"a.db"_s), Path(u"part.yaml"_s), u"--table"_s, u"Gdwj"_s}), 0);
  EXPECT_EQ(Run({u"diff"_s, Path(u"a.yaml"_s), Path(u"part.yaml"_s)}), 1);
  EXPECT_THAT(out_.toStdString(), HasSubstr("表“收文登记”(Lwdj)：删去"));
}

TEST_F(DesignCommand, APartIsJoinedToWhatIsThere) {
  MakeDatabase();
  Design part = ExcerptOf(SmallDesign(), {u"Gdwj"_s});
  FieldOf(part, u"Gdwj"_s, u"Amaintitle"_s).length = 200;
  EXPECT_EQ(Run({u"import"_s, Path(u"a.db"_s), Written(u"part.yaml"_s, part)}), 0) << errors_.toStdString();
  EXPECT_THAT(out_.toStdString(), HasSubstr("长度由160改为200"));
  EXPECT_EQ(Run({u"import"_s, Path(u"a.db"_s), Path(u"a.yaml"_s), u"--table"_s, u"Lwdj"_s}), 0);
  EXPECT_EQ(out_, "");
}

TEST_F(DesignCommand, WhatWouldBeLostIsAskedFor) {
  MakeDatabase();
  sqlite3* file = nullptr;
  ASSERT_EQ(sqlite3_open(Path(u"a.db"_s).toUtf8().constData(), &file), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(file, "insert into Lwdj(ArchiveID) values('1')", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(file);
  const QString part = Written(u"part.yaml"_s, ExcerptOf(SmallDesign(), {u"Gdwj"_s}));
  EXPECT_EQ(Run({u"import"_s, Path(u"a.db"_s), part, u"--whole"_s}), 4);
  EXPECT_THAT(out_.toStdString(), HasSubstr("1 条记录"));
  EXPECT_EQ(Run({u"diff"_s, Path(u"a.db"_s), Path(u"a.yaml"_s)}), 0);
  EXPECT_EQ(Run({u"import"_s, Path(u"a.db"_s), part, u"--whole"_s, u"--dry-run"_s}), 0);
  EXPECT_THAT(out_.toStdString(), HasSubstr("DROP TABLE"));
  EXPECT_EQ(Run({u"import"_s, Path(u"a.db"_s), part, u"--whole"_s, u"--lose"_s}), 0) << errors_.toStdString();
  EXPECT_EQ(Run({u"diff"_s, Path(u"a.db"_s), part}), 0) << out_.toStdString();
}

TEST_F(DesignCommand, WhatIsWrongIsToldWithWhatFollows) {
  MakeDatabase();
  EXPECT_EQ(Run({u"check"_s, Path(u"a.db"_s)}), 0);
  EXPECT_EQ(out_, "");
  EXPECT_EQ(Run({u"check"_s, Path(u"a.db"_s), u"--reports"_s, folder_.path()}), 0);
  EXPECT_THAT(out_.toStdString(), HasSubstr("提示 报表“收文登记簿”(1001)：没有模板"));
  Design broken = SmallDesign();
  TableOf(broken, u"Lwdj"_s).columns.clear();
  EXPECT_EQ(Run({u"check"_s, Written(u"broken.yaml"_s, broken)}), 1);
  EXPECT_EQ(out_, "错误 表“收文登记”(Lwdj)：没有列表的列。记录列表是空的。用前几个字段作列。\n");
}

TEST_F(DesignCommand, AFileThatIsNoDesignLeavesNoDatabaseBehind) {
  EXPECT_EQ(Run({u"import"_s, Path(u"b.db"_s), Written(u"cut.yaml"_s, DesignText(SmallDesign()).left(900))}), 3);
  EXPECT_FALSE(QFile::exists(Path(u"b.db"_s)));
  Design unusable = SmallDesign();
  unusable.tables[0].fields.push_back({u"Order"_s, u"次序"_s, u"文本型"_s, 10, {}});
  EXPECT_EQ(Run({u"import"_s, Path(u"b.db"_s), Written(u"reserved.yaml"_s, unusable)}), 3);
  EXPECT_THAT(errors_.toStdString(), HasSubstr("保留字"));
  EXPECT_FALSE(QFile::exists(Path(u"b.db"_s)));
  EXPECT_EQ(Run({u"export"_s, Written(u"text.db"_s, QByteArray(5000, 'x'))}), 3);
  EXPECT_EQ(Run({u"export"_s, Path(u"missing.db"_s)}), 3);
}

TEST_F(DesignCommand, WrongUsageIsToldApart) {
  EXPECT_EQ(Run({}), 2);
  EXPECT_EQ(Run({u"export"_s}), 2);
  EXPECT_EQ(Run({u"import"_s, u"a.db"_s, u"b.db"_s}), 2);
  EXPECT_EQ(Run({u"import"_s, u"a.db"_s, u"b.yaml"_s, u"--keep"_s, u"--lose"_s}), 2);
  EXPECT_EQ(Run({u"diff"_s, u"a.db"_s, u"b.db"_s, u"--whole"_s}), 2);
  EXPECT_EQ(Run({u"--version"_s}), 0);
  EXPECT_THAT(out_.toStdString(), HasSubstr("folvane-design "));
  EXPECT_EQ(Run({u"--help"_s}), 0);
}

TEST_F(DesignCommand, ADatabaseServerIsNamedByItsConnectionString) {
  EXPECT_EQ(Run({u"export"_s, u"odbc:"_s + qEnvironmentVariable("FOLVANE_TEST_PG")}), 0) << errors_.toStdString();
  EXPECT_TRUE(out_.startsWith("folvane-design: 1\n"));
  EXPECT_EQ(Run({u"export"_s, u"odbc:DSN=NoSuchServer"_s}), 3);
}

}  // namespace
}  // namespace folvane::test
