// Files opened as record sets, and saved again.
#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>
#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "base/FileUpdate.h"
#include "data/Recordset.h"
#include "persist/Hierarchies.h"
#include "persist/Tablegrams.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class OpenedFiles : public testing::Test {
 protected:
  QString Write(const QByteArray& content) {
    const QString path = folder_.filePath(u"rows.Dat"_s);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return path;
  }
  void Open(const QByteArray& content) { records_.OpenFile(Write(content)); }
  QStringList Texts(const QString& field) {
    QStringList texts;
    for (qint64 i = 1; i <= records_.RecordCount(); ++i) texts << records_.TextAt(i, records_.Fields().IndexOf(field));
    return texts;
  }
  /// The error that opening a path ends with.
  DataError Refused(const QString& path, int codePage = kNationalCodePage) {
    try {
      records_.OpenFile(path, codePage);
    } catch (const DataError& error) {
      EXPECT_FALSE(records_.IsOpen());
      return error;
    }
    ADD_FAILURE() << "it was opened";
    return {DataErrorKind::Other, {}};
  }

  QTemporaryDir folder_;
  Recordset records_;
};

TEST_F(OpenedFiles, ShowRowsAsTheyWereWhenSaved) {
  Open(RowKindsFile());
  EXPECT_EQ(records_.RecordCount(), 3);
  EXPECT_EQ(Texts(u"ID"_s), (QStringList{u"1"_s, u"3"_s, u"4"_s}));
  EXPECT_EQ(Texts(u"VALUE_FIELD"_s), (QStringList{u"1"_s, u"0"_s, u"2147483647"_s}));
  EXPECT_EQ(records_.PendingCount(), 3);
}

TEST_F(OpenedFiles, KnowTheValuesFromBeforeAChange) {
  Open(RowKindsFile());
  const Field value = records_[u"VALUE_FIELD"_s];
  EXPECT_EQ(value.OriginalValue(), QVariant(-2147483647LL));
  records_.MoveNext();
  EXPECT_EQ(value.OriginalValue(), QVariant(0LL));
  records_.MoveNext();
  EXPECT_FALSE(value.OriginalValue().isValid());
}

TEST_F(OpenedFiles, TellTheirFields) {
  Open(TextsFile());
  const std::tuple<const char*, int, int> expected[]{
      {"ID", 3, 4}, {"TITLE", 202, 40}, {"CODE", 129, 4}, {"MEMO", 203, 2147483647}, {"D", 135, 16}};
  ASSERT_EQ(records_.Fields().Count(), 5);
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(records_.Fields().Item(i).Name(), QLatin1String(std::get<0>(expected[i])));
    EXPECT_EQ(records_.Fields().Item(i).Type(), std::get<1>(expected[i]));
    EXPECT_EQ(records_.Fields().Item(i).DefinedSize(), std::get<2>(expected[i]));
  }
  EXPECT_EQ(records_[u"TITLE"_s].Value(), QVariant(u"关于"_s));
  EXPECT_EQ(records_[u"D"_s].Value(), QVariant(QDateTime(QDate(2004, 5, 17), QTime(8, 30), Qt::UTC)));
  records_.MoveNext();
  EXPECT_TRUE(records_[u"CODE"_s].IsNull());
  EXPECT_EQ(records_[u"MEMO"_s].Value(), QVariant(QString()));
}

TEST_F(OpenedFiles, CanBeSearchedFilteredAndSorted) {
  Open(RowKindsFile());
  records_.Find(u"ID = 4"_s);
  EXPECT_EQ(records_[u"VALUE_FIELD"_s].Text(), u"2147483647"_s);
  records_.MoveFirst();
  records_.Find(u"ID = 2"_s);
  EXPECT_TRUE(records_.EOF_()) << "a deleted row is found";
  records_.SetFilter(u"ID > 1"_s);
  EXPECT_EQ(Texts(u"ID"_s), (QStringList{u"3"_s, u"4"_s}));
  records_.SetFilter(QString());
  records_.SetSort(u"ID Desc"_s);
  EXPECT_EQ(Texts(u"ID"_s), (QStringList{u"4"_s, u"3"_s, u"1"_s}));
}

TEST_F(OpenedFiles, SaveAgainAsTheSameFile) {
  for (const QByteArray& file : {RowKindsFile(), TextsFile()}) {
    Recordset records;
    records.OpenFile(Write(file));
    const QString again = folder_.filePath(u"again.Dat"_s);
    records.Save(again);
    EXPECT_EQ(ReadFile(again).toHex(), file.toHex());
  }
}

/// A file with one field of each type that has a size of its own.
QByteArray EveryTypeFile() {
  const std::tuple<int, quint32, const char*> types[]{{2, 2, "00 80"},
                                                      {3, 4, "FE FF FF FF"},
                                                      {4, 4, "CD CC CC 3D"},
                                                      {5, 8, "9A 99 99 99 99 99 B9 3F"},
                                                      {6, 8, "EC FF FF FF FF FF FF FF"},
                                                      {7, 8, "00 00 00 00 00 00 F4 BF"},
                                                      {10, 4, "05 40 00 80"},
                                                      {11, 2, "FF FF"},
                                                      {12, 16, "14 00 00 00 00 00 00 00 07 00 00 00 00 00 00 00"},
                                                      {14, 16, "00 00 1C 80 FF FF FF FF FF FF FF FF FF FF FF FF"},
                                                      {16, 1, "80"},
                                                      {17, 1, "FF"},
                                                      {18, 2, "FF FF"},
                                                      {19, 4, "FF FF FF FF"},
                                                      {20, 8, "00 00 00 00 00 00 00 80"},
                                                      {21, 8, "FF FF FF FF FF FF FF FF"},
                                                      {64, 8, "01 80 3E D5 DE B1 9D 01"},
                                                      {72, 16, "67 45 23 01 AB 89 EF CD 01 23 45 67 89 AB CD EF"},
                                                      {128, 4, "00 01 FE FF"},
                                                      {129, 4, "B9 D8 41 20"},
                                                      {130, 2, "73 51 20 00"},
                                                      {133, 6, "D2 07 03 00 04 00"},
                                                      {134, 6, "08 00 1E 00 05 00"},
                                                      {135, 16, "D2 07 03 00 04 00 05 00 06 00 07 00 F0 CC 2A 1D"},
                                                      {139, 19, "05 05 01 01 39 30"}};
  QByteArray columns, values;
  int count = 0;
  for (const auto& [type, size, value] : types) {
    columns += ColumnBytes({++count, u"f%1"_s.arg(type), type, size, 0x34});
    values += Hex(value);
  }
  return FlatHead(count, 1) + columns + Hex("07 FF FF FF FF") + values + Hex("0F");
}

TEST_F(OpenedFiles, SaveEveryTypeAsItWas) {
  Open(EveryTypeFile());
  const QString again = folder_.filePath(u"again.Dat"_s);
  records_.Save(again);
  EXPECT_EQ(ReadFile(again).toHex(), EveryTypeFile().toHex());
}

TEST_F(OpenedFiles, SaveNumericsInTheirOwnScale) {
  const QByteArray numbers = FlatHead(1, 2) + ColumnBytes({1, u"a"_s, 131, 19, 0x34, 18, 4}) +
                             Hex("07 FF 12 04 01 40 E2 01 00 00 00 00 00 00 00 00 00 00 00 00 00"
                                 "07 FF 12 04 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 0F");
  Open(numbers);
  const QString again = folder_.filePath(u"again.Dat"_s);
  records_.Save(again);
  EXPECT_EQ(ReadFile(again).toHex(), numbers.toHex());
}

TEST_F(OpenedFiles, LeaveOutHiddenFields) {
  QByteArray hidden = ColumnBytes({2, u"key"_s, 3, 4, 0x14});
  hidden.replace(hidden.size() - 2, 2, Hex("00 00"));
  Open(FlatHead(2, 1) + ColumnBytes({1, u"a"_s, 2, 2, 0x34}) + hidden + Hex("07 FF 05 00 01 00 00 00 0F"));
  EXPECT_EQ(records_.Fields().Count(), 1);
  EXPECT_EQ(records_[u"a"_s].Value(), QVariant(5LL));
}

TEST_F(OpenedFiles, KeepNumbersThatFitNoNumber) {
  Open(FlatHead(3, 1) + ColumnBytes({1, u"a"_s, 21, 8, 0x34}) + ColumnBytes({2, u"b"_s, 14, 16, 0x34}) +
       ColumnBytes({3, u"c"_s, 4, 4, 0x34}) +
       Hex("07 FF FF FF FF FF FF FF FF FF 00 00 1C 80 FF FF FF FF FF FF FF FF FF FF FF FF CD CC CC 3D 0F"));
  EXPECT_EQ(records_[u"a"_s].Text(), u"18446744073709551615"_s);
  EXPECT_EQ(records_[u"b"_s].Text(), u"-7.9228162514264337593543950335"_s);
  EXPECT_EQ(records_[u"c"_s].Text(), u"0.1"_s);
}

TEST_F(OpenedFiles, TakeTheCodePageOfTheirTexts) {
  const QString path = Write(FlatHead(1, 1) + ColumnBytes({1, u"a"_s, 129, 40, 0x24}) + Hex("07 FF 02 C7 D1 0F"));
  records_.OpenFile(path, 949);
  EXPECT_EQ(records_[u"a"_s].Text(), u"한"_s);
  records_.Close();
  EXPECT_EQ(Refused(path, 12).Message(), u"不支持代码页 12。"_s);
}

TEST_F(OpenedFiles, AreForReadingOnly) {
  Open(RowKindsFile());
  const QString readOnly = u"记录集以只读方式打开，不能修改。"_s,
                noConnection = u"记录集是从文件打开的，没有数据库连接。"_s;
  const auto refusal = [](const std::function<void()>& work) {
    try {
      work();
    } catch (const DataError& error) {
      return error.Message();
    }
    return QString();
  };
  EXPECT_EQ(refusal([&] { records_[u"ID"_s].SetValue(7); }), readOnly);
  EXPECT_EQ(refusal([&] { records_.AddNew(); }), readOnly);
  EXPECT_EQ(refusal([&] { records_.Delete(); }), readOnly);
  EXPECT_EQ(refusal([&] { records_.UpdateBatch(); }), readOnly);
  EXPECT_EQ(refusal([&] { records_.CancelBatch(); }), noConnection);
  EXPECT_EQ(refusal([&] { records_.Requery(); }), noConnection);
  EXPECT_EQ(refusal([&] { records_.Resync(); }), noConnection);
  EXPECT_EQ(records_.RecordCount(), 3);
}

TEST_F(OpenedFiles, AreRefusedWhereThereIsNoRecordSet) {
  EXPECT_EQ(Refused(folder_.filePath(u"nowhere.Dat"_s)).Kind(), DataErrorKind::File);
  EXPECT_TRUE(Refused(folder_.path()).Message().endsWith(u"不是文件，不能作为记录集打开。"_s));
  EXPECT_TRUE(Refused(Write({})).Message().endsWith(u"是空的。"_s));
  EXPECT_EQ(Refused(Write("no record set")).Message(), u"不是 ADTG 格式的记录集文件。"_s);
  EXPECT_TRUE(Refused(Write(HierarchyFile())).Message().startsWith(u"该文件是分层的记录集"_s));
  EXPECT_TRUE(Refused(Write(TextsFile().chopped(1))).Message().contains(u"偏移 513"_s));
}

TEST_F(OpenedFiles, DoNotTakeThePlaceOfWhatIsOpen) {
  Open(TextsFile());
  EXPECT_THROW(records_.OpenFile(Write(RowKindsFile())), DataError);
  EXPECT_EQ(records_.Fields().Count(), 5);
}

TEST_F(OpenedFiles, TellTheirPathAsSource) {
  const QString path = Write(TextsFile());
  records_.OpenFile(path);
  EXPECT_EQ(records_.Source(), path);
}

}  // namespace
}  // namespace folvane::test
