#include "readymade/Office.h"

#include <QHash>
#include <algorithm>
#include <functional>

#include <folvane/Catalogue.h>

#include "base/CodePage.h"
#include "catalogue/Catalogue.h"
#include "catalogue/RowWriter.h"
#include "host/readymade/ReadyMade.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kRecords = 3;
constexpr int kLongest = 400;  ///< bytes of a sample, a condition takes no more than 500

Design AllDesigns() {
  QStringList names;
  for (const host::ReadyMade& each : host::ReadyMades()) names << each.name;
  Design design = host::JoinedDesign(names);
  design.fonds.push_back({u"X043"_s, u"市档案馆"_s});
  design.entityClasses.push_back({u"X043"_s, u"BGS"_s, u"办公室"_s});
  design.users.push_back({u"1"_s, u"李馆长"_s, {}});
  PutInOrder(design);
  return design;
}

void AddRecords(Connection& connection, const Design::Table& table,
                const std::function<QVariant(const Design::Field&, int record)>& sample) {
  QStringList columns{u"ArchiveID"_s};
  for (const Design::Field& field : table.fields) columns << field.name;
  RowWriter rows(connection, table.name, columns);
  for (int record = 1; record <= kRecords; ++record) {
    std::vector<QVariant> values{u"2026030508301%1"_s.arg(record, 6, 10, QChar(u'0'))};
    for (const Design::Field& field : table.fields) values.push_back(sample(field, record));
    rows.Add(std::move(values));
  }
  rows.Finish();
}

}  // namespace

std::vector<std::string> BusinessTables() {
  std::vector<std::string> names;
  for (const Design::Table& table : AllDesigns().tables)
    if (table.classId != 0) names.push_back(table.name.toStdString());
  return names;
}

const Design& OfficeTest::TheDesign() {
  static const Design design = AllDesigns();
  return design;
}

const Design::Table& OfficeTest::TableOf(const QString& name) {
  return *std::find_if(TheDesign().tables.begin(), TheDesign().tables.end(),
                       [&](const Design::Table& each) { return each.name == name; });
}

const Design::Field* OfficeTest::FieldOf(const Design::Table& table, const QString& name) {
  const auto found = std::find_if(table.fields.begin(), table.fields.end(),
                                  [&](const Design::Field& each) { return each.name == name; });
  return found == table.fields.end() ? nullptr : &*found;
}

const Design::Dictionary* OfficeTest::DictionaryOf(const Design::Field& field) {
  for (const Design::Dictionary& each : TheDesign().dictionaries)
    if (each.name == field.dictionary) return &each;
  return nullptr;
}

QString OfficeTest::Sample(const Design::Field& field) {
  static const QHash<QString, QString> usual{{u"FondsNo"_s, u"X043"_s},
                                             {u"CategoryCode"_s, u"WS"_s},
                                             {u"FileYear"_s, u"2026"_s},
                                             {u"VolumeNo"_s, u"0001"_s},
                                             {u"GroupNo"_s, u"0001"_s},
                                             {u"AecNo"_s, u"BGS"_s},
                                             {u"FolderNo"_s, u"X043-WS·2026-00Y-0001"_s},
                                             {u"FileNo"_s, u"RS-0001"_s},
                                             {u"FileStatus"_s, u"需归档"_s}};
  if (const auto found = usual.constFind(field.name); found != usual.constEnd()) return *found;
  if (const Design::Dictionary* dictionary = DictionaryOf(field); dictionary && !dictionary->entries.empty())
    return dictionary->entries.front().text;
  if (field.type == u"档案日期型"_s) return u"20260305"_s;
  if (field.type == u"日期型"_s || field.type == u"时间型"_s || field.name.endsWith(u"Date"_s)) return u"2026-03-05"_s;
  if (field.type == u"数值型"_s || field.type == u"数字型"_s) return u"12"_s;
  if (field.isFixedLength) return QString(field.length, u'1');
  return LimitByteLength((field.caption + u"的内容"_s).repeated(field.length), std::min(field.length, kLongest));
}

bool OfficeTest::IsCounted(const Design::Field& field) { return field.name == u"RegID"_s || field.name == u"ItemNo"_s; }

QVariant OfficeTest::ValueOf(const Design::Field& field, int record) {
  if (IsCounted(field)) return qlonglong(record);
  const bool isNumber = field.type == u"数值型"_s || field.type == u"数字型"_s;
  return isNumber ? QVariant(Sample(field).toLongLong()) : QVariant(Sample(field));
}

void OfficeTest::SetUpTestSuite() {
  office_ = TestDatabase::Create("SQLite");
  const auto connection = office_->Connect();
  Transaction transaction(*connection);
  CreateTables(*connection);
  ApplyDesign(*connection, PlanDesign(*connection, {}, TheDesign()));
  for (const Design::Table& table : TheDesign().tables)
    if (table.classId != 0) AddRecords(*connection, table, ValueOf);
  transaction.Commit();
}

void OfficeTest::SetUp() {
  FixClock(QDateTime(QDate(2026, 3, 6), QTime(9, 30)));
  Shared().Connection = office_->Connect();
  Shared().UserId = u"1"_s;
  Shared().UserName = u"李馆长"_s;
}

void OfficeTest::TearDown() {
  if (Shared().CurrentRecords.IsOpen()) Shared().CurrentRecords.Close();
  Shared().Connection.reset();
  Shared().UserId.clear();
}

}  // namespace folvane::test
