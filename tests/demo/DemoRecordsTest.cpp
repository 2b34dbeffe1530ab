#include <QFile>
#include <QSet>
#include <map>

#include <folvane/DataError.h>

#include "data/DatabaseSession.h"
#include "demo/DemoFixture.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class DemoRecords : public DemoTest {
 protected:
  /// Everything in the database as text, table by table, rows in the order of their text.
  QStringList Everything(const std::shared_ptr<folvane::Connection>& connection) {
    QStringList lines;
    for (const QString& table :
         kBusinessTables + QStringList{u"Original_Text"_s, u"PassRead_File"_s, u"Transact_Details"_s,
                                       u"Curr_FlowNode"_s, u"DynamicWindows"_s, u"AssistantDicKey"_s}) {
      Recordset records;
      records.Open(u"Select * From "_s + table, connection);
      QStringList rows;
      for (; !records.EOF_(); records.MoveNext()) {
        QStringList row;
        for (int i = 0; i < records.Fields().Count(); ++i) {
          const Field field = records.Fields().Item(i);
          row << (field.IsNull() ? u"<null>"_s : field.Text());
        }
        rows << row.join(u'|');
      }
      rows.sort();
      lines << table << rows;
    }
    return lines;
  }
  const QStringList& EverythingOf(quint64 seed) {
    static std::map<quint64, QStringList> known;
    if (known.contains(seed)) return known[seed];
    const auto database = TestDatabase::Create("SQLite");
    const auto connection = database->Connect();
    demo::DemoOptions options = Options();
    options.seed = seed;
    demo::MakeDemoDatabase(*connection, options);
    return known[seed] = Everything(connection);
  }
};
FOLVANE_ON_EACH_DATABASE(DemoRecords);

TEST_P(DemoRecords, AddUpToWhatWasAskedFor) {
  int sum = 0;
  for (const QString& table : kBusinessTables) {
    const int count = Count(table);
    EXPECT_GT(count, 0) << qPrintable(table);
    sum += count;
  }
  EXPECT_EQ(sum, 600);
}

TEST_P(DemoRecords, HaveKeysOfTwentyDigitsThatNoTwoShare) {
  QSet<QString> keys;
  for (const QString& table : kBusinessTables) {
    for (const QString& key : Column(u"Select ArchiveID From "_s + table)) {
      EXPECT_EQ(key.size(), 20);
      EXPECT_TRUE(QDateTime::fromString(key.left(14), u"yyyyMMddHHmmss"_s).isValid()) << qPrintable(key);
      EXPECT_FALSE(keys.contains(key)) << qPrintable(key);
      keys << key;
    }
  }
}

TEST_P(DemoRecords, AreTheSameForTheSameSeedOnEveryDatabase) {
  const QStringList first = Everything(Connected());
  EXPECT_EQ(first, EverythingOf(1));
  EXPECT_NE(first, EverythingOf(2));
}

TEST_P(DemoRecords, SpreadOverTheYearsUpToThisOne) {
  EXPECT_EQ(Column(u"select DISTINCT left(Createddate,4)  from Lwdj order by 1 desc"_s),
            (QStringList{u"2026"_s, u"2025"_s, u"2024"_s, u"2023"_s, u"2022"_s}));
  const QString last = Column(u"Select Max(CreatedDate) From Lwdj"_s).at(0);
  EXPECT_TRUE(last > u"2026-11-10"_s && last <= u"2026-11-20"_s) << qPrintable(last);
}

TEST_P(DemoRecords, OfOutgoingDocumentsBeginWithAnAgencyWord) {
  int found = 0;
  for (const QString& word :
       Column(u"select DISTINCT name from AssistantDicKey where DicID=(select Dicid from AssistantDictionary where "
              "name='机关代字')"_s))
    found += Count(u"Fwdj Where DOCNO like '"_s + word + u"〔%'"_s);
  EXPECT_EQ(found, Count(u"Fwdj"_s));
}

TEST_P(DemoRecords, ShowFieldsThatAreNullEmptyAndHardToQuote) {
  EXPECT_GT(Count(u"Lwdj Where DocNo Is Null"_s), 0);
  EXPECT_GT(Count(u"Lwdj Where FileDate Is Null"_s), 0);
  EXPECT_GT(Count(u"Lwdj Where Carrier = ''"_s), 0);
  EXPECT_GT(Count(u"Lwdj Where Amaintitle Like '%[[]%'"_s), 0);
  EXPECT_GT(Count(u"Lwdj Where Amaintitle Like '%''%'"_s), 0);
}

TEST_P(DemoRecords, DifferInTheSeventhColumnOfTheListWhichChoosesTheIcon) {
  for (const QString& table : {u"Lwdj"_s, u"Fwdj"_s}) {
    const QString field =
        Column(u"Select FieldName From ListViewFormat Where TableName='"_s + table + u"' Order By OrderNo"_s).at(6);
    EXPECT_GT(Count(table + u" Where "_s + field + u" Is Null"_s), 0);
    EXPECT_GT(Count(table + u" Where "_s + field + u" <> ''"_s), 0);
  }
}

TEST_P(DemoRecords, OfAVolumeAddUpToIt) {
  for (const QStringList& volume : Select(u"Select FolderNo,Quantity,DocStartDate,DocEndDate From Wsda_Aj"_s)) {
    EXPECT_EQ(Select(u"Select Sum(Quantity) as Sum1,Min(Createddate) as StartTime,Max(Createddate) as EndTime From "
                     "Wsda_Jn Where FolderNo = '"_s +
                     volume[0] + u"'"_s)
                  .at(0),
              volume.mid(1));
  }
  EXPECT_EQ(Count(u"Wsda_Jn Where FolderNo Not In (Select FolderNo From Wsda_Aj)"_s), 0);
}

TEST_P(DemoRecords, OfTheArchiveHaveNumbersThatNoTwoShare) {
  for (const QString& table : {u"Wsda_Jn"_s, u"Gdwj"_s}) {
    QStringList numbers = Column(u"Select ArchiveNo From "_s + table);
    EXPECT_EQ(numbers.removeDuplicates(), 0) << qPrintable(table);
  }
  const QStringList item =
      Select(u"Select ArchiveNo,FondsNo,FileYear,AecNo,ItemNo From Gdwj Where Retention = '永久'"_s).at(0);
  EXPECT_EQ(item[0], u"%1-WS·%2-00Y-%3-%4"_s.arg(item[1], item[2], item[3], item[4].rightJustified(4, u'0')));
}

TEST_P(DemoRecords, ThatAreArchivedStandInTheArchiveToo) {
  EXPECT_EQ(Count(u"Lwdj Where FileStatus = '已归档'"_s), Count(u"Wsda_Jn"_s));
  EXPECT_EQ(Count(u"Fwdj Where FileStatus = '已归档'"_s), Count(u"Gdwj"_s));
  EXPECT_GT(Count(u"Lwdj Where FileStatus = '需归档'"_s), 0);
}

TEST_P(DemoRecords, AgreeWithTheirFlowSheets) {
  struct Flow {
    QString head, details, status, state, done;
  };
  for (const Flow& flow :
       {Flow{u"Distribute_File"_s, u"Distribute_Details"_s, u"Distribute_Status"_s, u"DisPenseState"_s, u"已分发"_s},
        Flow{u"PassRead_File"_s, u"PassRead_Details"_s, u"PassRead_Status"_s, u"ReadState"_s, u"已传阅"_s},
        Flow{u"Transact_File"_s, u"Transact_Details"_s, u"Transact_Status"_s, u"HandleState"_s, u"已处理"_s}}) {
    const auto heads =
        Select(u"Select Register_ID,File_ID,File_Table,%1,MainTitle From %2"_s.arg(flow.status, flow.head));
    EXPECT_GT(heads.size(), 5u);
    for (const QStringList& head : heads) {
      const QStringList record =
          Select(u"Select %1,Amaintitle From %2 Where ArchiveID='%3'"_s.arg(flow.state, head[2], head[1])).at(0);
      EXPECT_EQ(record[0] == flow.done, head[3] == flow.done || head[3] == u"已完成"_s) << qPrintable(head.join(u' '));
      EXPECT_EQ(record[1], head[4]);
      const bool untouched = head[3].startsWith(u"未"_s);
      EXPECT_EQ(Count(flow.details + u" Where Register_ID='"_s + head[0] + u"'"_s) == 0, untouched);
    }
  }
}

TEST_P(DemoRecords, StandOnRoutesFromTheFirstNodeToTheLast) {
  const QStringList routes = Column(u"Select File_ID From Curr_Flow"_s);
  EXPECT_FALSE(routes.isEmpty());
  EXPECT_GT(Count(u"PassRead_File Where Register_ID Not In (Select File_ID From Curr_Flow)"_s), 0)
      << "a sheet that cannot be started";
  for (const QString& route : routes) {
    const auto nodes = Select(u"select Node_Number,Next_Node,Node_Member from Curr_FlowNode where Flow_ID='"_s + route +
                              u"' Order By Node_Number"_s);
    EXPECT_EQ(nodes.front()[0], u"1"_s);
    EXPECT_EQ(nodes.back()[1], u"0"_s);
    for (std::size_t i = 1; i < nodes.size(); ++i) EXPECT_EQ(nodes[i - 1][1], nodes[i][0]);
  }
}

TEST_P(DemoRecords, HaveOriginalsWhoseFilesLieInTheStore) {
  EXPECT_EQ(Column(u"Select Info_Description From Report_Info Where Report_Id = '2002123456789'"_s).at(0), StorePath());
  QSet<QString> holders, documents;
  for (const QStringList& row : Select(u"Select ID,Type,FilePath,Size,RecordID From Original_Text"_s)) {
    const QFile file(StorePath() + u'/' + row[2] + u'/' + row[0] + row[1]);
    EXPECT_EQ(QString::number(file.size()), row[3]) << qPrintable(file.fileName());
    holders << row[4];
  }
  for (const QString& table : kBusinessTables)
    for (const QString& key : Column(u"Select ArchiveID From "_s + table)) documents << key;
  EXPECT_TRUE(documents.contains(holders));
  const double share =
      double(Count(u"Lwdj Where ArchiveID In (Select RecordID From Original_Text)"_s)) / Count(u"Lwdj"_s);
  EXPECT_NEAR(share, 0.33, 0.08);
}

class DemoMaker : public OnEachDatabase {
 protected:
  int Events() { return Database().Value(u"select count(*) from Dsj"_s).toInt(); }
};
FOLVANE_ON_EACH_DATABASE(DemoMaker);

TEST_P(DemoMaker, WritesOverNothingWithoutBeingTold) {
  demo::DemoOptions options;
  options.records = 200;
  demo::MakeDemoDatabase(*Connected(), options);
  options.records = 100;
  EXPECT_THROW(demo::MakeDemoDatabase(*Connected(), options), DataError);
  EXPECT_EQ(Events(), 6);
  options.replace = true;
  demo::MakeDemoDatabase(*Connected(), options);
  EXPECT_EQ(Events(), 3);
}

TEST_P(DemoMaker, LeavesNothingWhenItCannotFinish) {
  Database().Native(u"create table Dsj (x integer)"_s);
  EXPECT_THROW(demo::MakeDemoDatabase(*Connected(), {}), DataError);
  EXPECT_EQ(DatabaseSession::Of(*Connected()).Table(u"Lwdj"_s), nullptr);
  EXPECT_EQ(DatabaseSession::Of(*Connected()).Table(u"DynamicWindows"_s), nullptr);
}

TEST_P(DemoMaker, TellsHowFarItIs) {
  demo::DemoOptions options;
  options.records = 100;
  int last = 0;
  options.progress = [&](int done, int total) {
    EXPECT_EQ(total, 100);
    last = done;
  };
  demo::MakeDemoDatabase(*Connected(), options);
  EXPECT_EQ(last, 100);
}

class DemoUsers : public DemoTest {
 protected:
  QStringList Rights(const QString& user, const QString& table) {
    const auto rows = Select(
        u"Select PopEditData,PopPrintData,PopLookFile,PopCondition From UserPopedomScope Where UserID = '%1' And "
        "PopTableName = '%2'"_s.arg(user, table));
    return rows.empty() ? QStringList() : rows.at(0);
  }
};
FOLVANE_ON_EACH_DATABASE(DemoUsers);

TEST_P(DemoUsers, AreAnAdministratorAClerkOneOfASectionAndOneWithoutRights) {
  EXPECT_EQ(Column(u"Select UserID From UserPopedom Order By UserID"_s).join(u' '), u"1 2 3 4"_s);
  for (const QString& table : {u"Lwdj"_s, u"Fwdj"_s})
    EXPECT_EQ(Rights(u"2"_s, table), (QStringList{u"1"_s, u"1"_s, u"1"_s, u""_s}));
  for (const QString& table : kBusinessTables) EXPECT_TRUE(Rights(u"4"_s, table).isEmpty());
}

TEST_P(DemoUsers, OfASectionSeeSomeOfTheRecordsAndTheConditionNamesItsField) {
  const QString condition = Rights(u"3"_s, u"Lwdj"_s).at(3);
  const int seen = Count(u"Lwdj Where ("_s + condition + u")"_s);
  EXPECT_GT(seen, 0);
  EXPECT_LT(seen, Count(u"Lwdj"_s));
  for (const QString& field :
       Column(u"Select Distinct(FieldName) from UserPopedomScopeDetails Where PopTableName='Lwdj' And UserId = '3'"_s))
    EXPECT_TRUE(condition.contains(u"Lwdj."_s + field));
  for (const QString& table : {u"Fwdj"_s, u"Gdwj"_s})
    EXPECT_GT(Count(table + u" Where ("_s + Rights(u"3"_s, table).at(3) + u")"_s), 0);
}

}  // namespace
}  // namespace folvane::test
