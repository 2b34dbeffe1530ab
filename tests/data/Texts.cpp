#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

struct TextCase {
  const char* name;
  QString text;
};

const std::vector<TextCase>& KnownTexts() {
  static const std::vector<TextCase> texts{
      {"Chinese", u"关于归档文件整理规则的通知"_s},      {"BeyondTheBasicPlane", QString::fromUtf8("𠀀𪚥字😀")},
      {"Quotes", u"it's \"so\" `and` ''twice''"_s},      {"QuestionMarksAndBraces", u"a ? b {d '2002-03-04'} ?"_s},
      {"Backslashes", u"C:\\Data\\'new'\\n \\000 \\"_s}, {"AByteOrderMark", QChar(QChar::ByteOrderMark) + u"公文"_s},
      {"LinesAndTabs", u"one\r\ntwo\n\tthree"_s},        {"BlanksAround", u"  in the middle  "_s},
      {"LongAscii", QString(100 * 1024, u'x')},          {"LongChinese", QString(100 * 1024, QChar(0x6863))},
  };
  return texts;
}

QString Literal(QString text) { return u'\'' + text.replace(u'\'', "''"_L1) + u'\''; }

class Texts : public DataSuite {};
FOLVANE_ON_EACH_DATABASE(Texts);

TEST_P(Texts, ATextComesBackAsItWasPutIntoARecordSet) {
  for (const TextCase& known : KnownTexts()) {
    const auto writer = Open();
    (*writer)[u"remark"_s].SetValue(known.text);
    writer->UpdateBatch();
    EXPECT_TRUE((*Open())[u"remark"_s].Value() == QVariant(known.text)) << known.name;
  }
}

TEST_P(Texts, ATextComesBackAsItStoodInAStatement) {
  for (const TextCase& known : KnownTexts()) {
    Connected()->Execute(u"Update files Set remark = %1 Where id = 1"_s.arg(Literal(known.text)));
    EXPECT_TRUE((*Open())[u"remark"_s].Value() == QVariant(known.text)) << known.name;
  }
}

TEST_P(Texts, AParameterIsComparedAsText) {
  for (const TextCase& known : KnownTexts()) {
    DatabaseSession::Of(*Connected())
        .NativeDriver()
        .Execute({"UPDATE files SET remark = ? WHERE id = 1", {known.text}});
    const NativeResult found = QueryNative(*Connected(), "SELECT id FROM files WHERE remark = ?", {known.text});
    ASSERT_EQ(found.rows.size(), 1u) << known.name;
    EXPECT_EQ(found.rows[0][0], QVariant(1LL)) << known.name;
  }
}

TEST_P(Texts, AnEmptyTextIsNotNull) {
  const auto records = Open();
  StandOn(*records, 3);
  EXPECT_FALSE((*records)[u"remark"_s].IsNull());
  EXPECT_EQ((*records)[u"remark"_s].Value(), QVariant(QString()));
  StandOn(*records, 2);
  EXPECT_TRUE((*records)[u"remark"_s].IsNull());
  EXPECT_EQ((*records)[u"remark"_s].Text(), QString());
}

TEST_P(Texts, NullAndEmptyAreWrittenApart) {
  const auto records = Open();
  (*records)[u"remark"_s].SetValue({});
  StandOn(*records, 2);
  (*records)[u"remark"_s].SetValue(QString(""_L1));
  records->UpdateBatch();
  EXPECT_EQ(Stored(1, u"remark"_s), u"<null>"_s);
  EXPECT_EQ(Stored(2, u"remark"_s), QString());
}

// Texts of all lengths mixed, so that long ones stand everywhere in the blocks in which a driver reads rows.
TEST_P(Texts, LongTextsAmongShortOnesAreReadWhole) {
  Database().Native(u"CREATE TABLE mixed (id integer PRIMARY KEY, a text, b varchar(20), c text)"_s);
  const auto length = [](int id) { return id % 50 == 0 ? 20000 : id % 7 == 0 ? 250 + id % 12 : id % 5; };
  Connected()->BeginTrans();
  for (int id = 0; id < 700; ++id)
    DatabaseSession::Of(*Connected())
        .NativeDriver()
        .Execute({"INSERT INTO mixed VALUES (?, ?, ?, ?)",
                  {qlonglong(id), QString(length(id), QChar(0x6863)), QString::number(id),
                   id % 3 ? QVariant(QString(length(id + 1), u'y')) : QVariant()}});
  Connected()->CommitTrans();

  const NativeResult read = QueryNative(*Connected(), "SELECT id, a, b, c FROM mixed ORDER BY id");
  ASSERT_EQ(read.rows.size(), 700u);
  for (int id = 0; id < 700; ++id) {
    const auto& row = read.rows[std::size_t(id)];
    EXPECT_EQ(row[0], QVariant(qlonglong(id)));
    EXPECT_TRUE(row[1] == QVariant(QString(length(id), QChar(0x6863)))) << id;
    EXPECT_EQ(row[2], QVariant(QString::number(id)));
    EXPECT_TRUE(row[3] == (id % 3 ? QVariant(QString(length(id + 1), u'y')) : QVariant())) << id;
  }
}

TEST_P(Texts, BytesOfAnyLengthComeBackAsTheyAre) {
  Database().Native(OnSqlite() ? u"CREATE TABLE scans (id integer PRIMARY KEY, page blob)"_s
                               : u"CREATE TABLE scans (id integer PRIMARY KEY, page bytea)"_s);
  QByteArray all;
  for (int i = 0; i < 200000; ++i) all += char(i * 7 % 256);
  for (const int length : {0, 1, 255, 256, 257, 65536, 200000}) {
    const auto writer = Open(u"Select * From scans"_s);
    writer->AddNew();
    (*writer)[u"id"_s].SetValue(length);
    (*writer)[u"page"_s].SetValue(all.left(length));
    writer->UpdateBatch();
  }
  const auto reader = Open(u"Select * From scans Order By id"_s);
  ASSERT_EQ(reader->RecordCount(), 7);
  for (; !reader->EOF_(); reader->MoveNext()) {
    const int length = (*reader)[u"id"_s].Value().toInt();
    EXPECT_TRUE((*reader)[u"page"_s].Value() == QVariant(all.left(length))) << length;
  }
}

TEST_P(Texts, ATextWithAZeroCharacterIsNotCutSilently) {
  const QString text = u"before"_s + QChar(0) + u"after"_s;
  const auto records = Open();
  (*records)[u"remark"_s].SetValue(text);
  try {
    records->UpdateBatch();
  } catch (const DataError& error) {
    EXPECT_EQ(error.Kind(), DataErrorKind::Conversion);
    EXPECT_EQ(Stored(1, u"remark"_s), u"甲"_s);
    return;
  }
  EXPECT_EQ((*Open())[u"remark"_s].Value(), QVariant(text));
}

TEST_P(Texts, NamesOfTablesAndColumnsMayBeChinese) {
  Database().Native(u"CREATE TABLE 档案 (编号 integer PRIMARY KEY, 题名 varchar(60))"_s);
  const auto writer = Open(u"Select * From 档案"_s);
  writer->AddNew();
  (*writer)[u"编号"_s].SetValue(1);
  (*writer)[u"题名"_s].SetValue(u"总结"_s);
  writer->UpdateBatch();
  EXPECT_EQ(Database().Value(u"SELECT 题名 FROM 档案"_s), u"总结"_s);
}

}  // namespace

}  // namespace folvane::test
