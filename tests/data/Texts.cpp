#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {

struct TextCase {
  const char* name;
  QString text;
};

const std::vector<TextCase>& KnownTexts() {
  static const std::vector<TextCase> texts{
      {"Chinese", QStringLiteral("关于归档文件整理规则的通知")},
      {"BeyondTheBasicPlane", QString::fromUtf8("𠀀𪚥字😀")},
      {"Quotes", QStringLiteral("it's \"so\" `and` ''twice''")},
      {"QuestionMarksAndBraces", QStringLiteral("a ? b {d '2002-03-04'} ?")},
      {"Backslashes", QStringLiteral("C:\\Data\\'new'\\n \\000 \\")},
      {"LinesAndTabs", QStringLiteral("one\r\ntwo\n\tthree")},
      {"BlanksAround", QStringLiteral("  in the middle  ")},
      {"LongAscii", QString(100 * 1024, QLatin1Char('x'))},
      {"LongChinese", QString(100 * 1024, QChar(0x6863))},
  };
  return texts;
}

QString Literal(QString text) {
  return QLatin1Char('\'') + text.replace(QLatin1Char('\''), QLatin1String("''")) + QLatin1Char('\'');
}

class Texts : public DataSuite {};
FOLVANE_ON_EACH_DATABASE(Texts);

TEST_P(Texts, ATextComesBackAsItWasPutIntoARecordSet) {
  for (const TextCase& known : KnownTexts()) {
    const auto writer = Open();
    (*writer)[QStringLiteral("remark")].SetValue(known.text);
    writer->UpdateBatch();
    EXPECT_TRUE((*Open())[QStringLiteral("remark")].Value() == QVariant(known.text)) << known.name;
  }
}

TEST_P(Texts, ATextComesBackAsItStoodInAStatement) {
  for (const TextCase& known : KnownTexts()) {
    Connected()->Execute(QStringLiteral("Update files Set remark = %1 Where id = 1").arg(Literal(known.text)));
    EXPECT_TRUE((*Open())[QStringLiteral("remark")].Value() == QVariant(known.text)) << known.name;
  }
}

TEST_P(Texts, AParameterIsComparedAsText) {
  for (const TextCase& known : KnownTexts()) {
    Connected()->NativeDriver().Execute({"UPDATE files SET remark = ? WHERE id = 1", {known.text}});
    const NativeResult found = QueryNative(*Connected(), "SELECT id FROM files WHERE remark = ?", {known.text});
    ASSERT_EQ(found.rows.size(), 1u) << known.name;
    EXPECT_EQ(found.rows[0][0], QVariant(1LL)) << known.name;
  }
}

TEST_P(Texts, AnEmptyTextIsNotNull) {
  const auto records = Open();
  StandOn(*records, 3);
  EXPECT_FALSE((*records)[QStringLiteral("remark")].IsNull());
  EXPECT_EQ((*records)[QStringLiteral("remark")].Value(), QVariant(QString()));
  StandOn(*records, 2);
  EXPECT_TRUE((*records)[QStringLiteral("remark")].IsNull());
  EXPECT_EQ((*records)[QStringLiteral("remark")].Text(), QString());
}

TEST_P(Texts, NullAndEmptyAreWrittenApart) {
  const auto records = Open();
  (*records)[QStringLiteral("remark")].SetValue({});
  StandOn(*records, 2);
  (*records)[QStringLiteral("remark")].SetValue(QString(QLatin1String("")));
  records->UpdateBatch();
  EXPECT_EQ(Stored(1, QStringLiteral("remark")), QStringLiteral("<null>"));
  EXPECT_EQ(Stored(2, QStringLiteral("remark")), QString());
}

// Texts of all lengths mixed, so that long ones stand everywhere in the blocks in which a driver reads rows.
TEST_P(Texts, LongTextsAmongShortOnesAreReadWhole) {
  Database().Native(QStringLiteral("CREATE TABLE mixed (id integer PRIMARY KEY, a text, b varchar(20), c text)"));
  const auto length = [](int id) { return id % 50 == 0 ? 20000 : id % 7 == 0 ? 250 + id % 12 : id % 5; };
  Connected()->BeginTrans();
  for (int id = 0; id < 700; ++id)
    Connected()->NativeDriver().Execute({"INSERT INTO mixed VALUES (?, ?, ?, ?)",
                                         {qlonglong(id), QString(length(id), QChar(0x6863)), QString::number(id),
                                          id % 3 ? QVariant(QString(length(id + 1), QLatin1Char('y'))) : QVariant()}});
  Connected()->CommitTrans();

  const NativeResult read = QueryNative(*Connected(), "SELECT id, a, b, c FROM mixed ORDER BY id");
  ASSERT_EQ(read.rows.size(), 700u);
  for (int id = 0; id < 700; ++id) {
    const auto& row = read.rows[std::size_t(id)];
    EXPECT_EQ(row[0], QVariant(qlonglong(id)));
    EXPECT_TRUE(row[1] == QVariant(QString(length(id), QChar(0x6863)))) << id;
    EXPECT_EQ(row[2], QVariant(QString::number(id)));
    EXPECT_TRUE(row[3] == (id % 3 ? QVariant(QString(length(id + 1), QLatin1Char('y'))) : QVariant())) << id;
  }
}

TEST_P(Texts, BytesOfAnyLengthComeBackAsTheyAre) {
  Database().Native(OnSqlite() ? QStringLiteral("CREATE TABLE scans (id integer PRIMARY KEY, page blob)")
                               : QStringLiteral("CREATE TABLE scans (id integer PRIMARY KEY, page bytea)"));
  QByteArray all;
  for (int i = 0; i < 200000; ++i) all += char(i * 7 % 256);
  for (const int length : {0, 1, 255, 256, 257, 65536, 200000}) {
    const auto writer = Open(QStringLiteral("Select * From scans"));
    writer->AddNew();
    (*writer)[QStringLiteral("id")].SetValue(length);
    (*writer)[QStringLiteral("page")].SetValue(all.left(length));
    writer->UpdateBatch();
  }
  const auto reader = Open(QStringLiteral("Select * From scans Order By id"));
  ASSERT_EQ(reader->RecordCount(), 7);
  for (; !reader->EOF_(); reader->MoveNext()) {
    const int length = (*reader)[QStringLiteral("id")].Value().toInt();
    EXPECT_TRUE((*reader)[QStringLiteral("page")].Value() == QVariant(all.left(length))) << length;
  }
}

TEST_P(Texts, ATextWithAZeroCharacterIsNotCutSilently) {
  const QString text = QStringLiteral("before") + QChar(0) + QStringLiteral("after");
  const auto records = Open();
  (*records)[QStringLiteral("remark")].SetValue(text);
  try {
    records->UpdateBatch();
  } catch (const DataError& error) {
    EXPECT_EQ(error.Kind(), DataErrorKind::Conversion);
    EXPECT_EQ(Stored(1, QStringLiteral("remark")), QStringLiteral("甲"));
    return;
  }
  EXPECT_EQ((*Open())[QStringLiteral("remark")].Value(), QVariant(text));
}

TEST_P(Texts, NamesOfTablesAndColumnsMayBeChinese) {
  Database().Native(QStringLiteral("CREATE TABLE 档案 (编号 integer PRIMARY KEY, 题名 varchar(60))"));
  const auto writer = Open(QStringLiteral("Select * From 档案"));
  writer->AddNew();
  (*writer)[QStringLiteral("编号")].SetValue(1);
  (*writer)[QStringLiteral("题名")].SetValue(QStringLiteral("总结"));
  writer->UpdateBatch();
  EXPECT_EQ(Database().Value(QStringLiteral("SELECT 题名 FROM 档案")), QStringLiteral("总结"));
}

}  // namespace

}  // namespace folvane::test
