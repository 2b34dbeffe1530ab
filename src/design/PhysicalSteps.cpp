#include <folvane/DataError.h>

#include "catalogue/Catalogue.h"
#include "data/DatabaseSession.h"
#include "design/Names.h"
#include "design/PhysicalTables.h"
#include "design/Shape.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

using Kind = PhysicalStep::Kind;

const QString kKey = u"ArchiveID"_s;
constexpr int kLongestText = 4000;  ///< what is longer goes into a column without a length

qint64 Count(Connection& connection, const TableInfo& table, const QByteArray& condition) {
  DatabaseSession& session = DatabaseSession::Of(connection);
  const QByteArray where = condition.isEmpty() ? QByteArray() : " WHERE " + condition;
  const FetchedRows rows =
      session.FetchNative({"SELECT count(*) FROM " + session.Words().Quoted(table.name) + where, {}});
  return rows.rows->At(0, 0).ToVariant().toLongLong();
}

qint64 CountFilled(Connection& connection, const TableInfo& table, const ColumnInfo& column) {
  const QByteArray name = DatabaseSession::Of(connection).Words().Quoted(column.name);
  const bool isText = GroupOfType(column.type) == TypeGroup::Text;
  return Count(connection, table, name + " IS NOT NULL" + (isText ? " AND " + name + " <> ''" : QByteArray()));
}

void RequireName(const QString& name, const QString& what) {
  const QString complaint = NameComplaint(name);
  if (!complaint.isEmpty()) throw DataError(DataErrorKind::Usage, u"不能建立%1：%2。"_s.arg(what, complaint));
}

// PostgreSQL would cut the name of the index, and might find that of another one.
bool HasRoomForIndex(const QString& table, const QString& field) {
  return u"IX_%1_%2"_s.arg(table, field).toUtf8().size() <= kMostServerBytes;
}

/// The steps of one database.
class Steps {
 public:
  Steps(Connection& connection, const Design& base, const Design& wanted)
      : connection_(connection), session_(DatabaseSession::Of(connection)), base_(base), wanted_(wanted) {}

  std::vector<PhysicalStep> Find() {
    for (const Design::Table& table : wanted_.tables) Make(table);
    if (session_.Words().text)
      for (const Design::Table& table : base_.tables) Remove(table);
    return std::move(steps_);
  }

 private:
  // Whether what the database lacks of it is ours to make; of a table that was not changed it may go on lacking.
  bool IsToBeMade(const Design::Table& table, const QString& name, const QString& what) {
    const Design::Table* before = FindSame(base_.tables, table);
    const bool isChanged = !before || before->fields != table.fields;
    if (!isChanged && (!session_.Words().text || !NameComplaint(name).isEmpty())) return false;
    RequireName(name, what);
    if (!session_.Words().text)
      throw DataError(DataErrorKind::Untranslatable,
                      u"数据库中没有%1。该数据库中的表和列由其管理工具建立，请先建立。"_s.arg(what));
    return true;
  }

  // The tables of the flows are the library's own, and are as they are.
  void RequireOwnColumns(const Design::Table& table, const folvane::Table& own) const {
    const Design::Table* before = FindSame(base_.tables, table);
    for (const Design::Field& field : table.fields) {
      if (own.Find(field.name) || (before && FindNamed(before->fields, field.name))) continue;
      throw DataError(DataErrorKind::Usage,
                      u"“%1”是系统自己的表，没有%2这一列，也不能增加。"_s.arg(own.name, WordFor(table, field)));
    }
  }

  void Make(const Design::Table& table) {
    if (const folvane::Table* own = FindCatalogueTable(table.name)) return RequireOwnColumns(table, *own);
    if (table.fields.empty()) return;
    if (const TableInfo* info = session_.Table(table.name)) return MakeColumns(table, *info);
    if (!IsToBeMade(table, table.name, u"表“%1”"_s.arg(table.name.left(60)))) return;
    std::vector<Column> columns;
    for (const Design::Field& field : table.fields) {
      if (!IsToBeMade(table, field.name, WordFor(table, field))) return;
      columns.push_back(ColumnOf(field));
    }
    std::vector<QStringList> indexes;
    if (FindNamed(table.fields, table.relationField) && !IsSame(table.relationField, kKey) &&
        HasRoomForIndex(table.name, table.relationField))
      indexes.push_back({table.relationField});
    steps_.push_back({Kind::CreateTable, BusinessTable(table.name, std::move(columns), std::move(indexes))});
  }

  static QString WordFor(const Design::Table& table, const Design::Field& field) {
    return u"表“%1”的列“%2”"_s.arg(table.name.left(60), field.name.left(60));
  }

  void MakeColumns(const Design::Table& table, const TableInfo& info) {
    for (const Design::Field& field : table.fields) {
      const int at = info.IndexOf(field.name);
      if (at >= 0) {
        FitColumn(table, field, info, info.columns[std::size_t(at)]);
      } else if (IsToBeMade(table, field.name, WordFor(table, field))) {
        steps_.push_back({Kind::AddColumn, {info.name, {}, {}, {}}, ColumnOf(field)});
      }
    }
  }

  const Design::Field* FieldBefore(const Design::Table& table, const Design::Field& field) const {
    const Design::Table* before = FindSame(base_.tables, table);
    return before ? FindSame(before->fields, field) : nullptr;
  }

  // A length of 0 lifts the limit of a column where it was chosen; many designs have it for columns that have one.
  bool IsUnlimitedNow(const Design::Table& table, const Design::Field& field) const {
    const Design::Field* was = FieldBefore(table, field);
    return field.length <= 0 && was && was->length > 0;
  }

  void FitColumn(const Design::Table& table, const Design::Field& field, const TableInfo& info,
                 const ColumnInfo& present) {
    const Column column = ColumnOf(field);
    const bool isText = GroupOfType(present.type) == TypeGroup::Text;
    if (isText && (column.type == ColumnType::Text || column.type == ColumnType::LongText)) {
      const bool isLong = column.type == ColumnType::LongText;
      const bool isTooShort = isLong ? field.length > present.definedSize || IsUnlimitedNow(table, field)
                                     : column.length > present.definedSize;
      if (isTooShort && present.definedSize < kAnyLength && session_.Words().text)
        steps_.push_back({Kind::WidenColumn, {info.name, {}, {}, {}}, {present.name, column.type, column.length}});
      return;
    }
    if (isText) return;  // takes anything
    const Design::Field* was = FieldBefore(table, field);
    const bool isNumber = GroupOfType(present.type) == TypeGroup::Number;
    const bool suits = isNumber ? column.type == ColumnType::Integer
                                : GroupOfType(present.type) != TypeGroup::Date || column.type == ColumnType::Date;
    if (!suits && was && was->type != field.type)
      throw DataError(DataErrorKind::Usage, u"%1是%2列，不能改为“%3”。请另建一个字段。"_s.arg(
                                                WordFor(table, field), isNumber ? u"数字"_s : u"日期"_s, field.type));
  }

  void Remove(const Design::Table& table) {
    if (FindCatalogueTable(table.name)) return;
    const TableInfo* info = session_.Table(table.name);
    if (!info) return;
    const Design::Table* kept = FindSame(wanted_.tables, table);
    if (!kept) {
      // A table that never had a field was only mentioned.
      if (table.fields.empty()) return;
      // Ahead of the step: GCC 12 destroys the other members of an aggregate twice where one of them throws.
      const qint64 rows = Count(connection_, *info, {});
      steps_.push_back({Kind::DropTable, {info->name, {}, {}, {}}, {}, rows});
      return;
    }
    for (const Design::Field& field : table.fields) {
      const int at = info->IndexOf(field.name);
      const bool isKey = std::find(info->key.begin(), info->key.end(), at) != info->key.end();
      if (at < 0 || isKey || IsSame(field.name, kKey) || FindSame(kept->fields, field)) continue;
      const ColumnInfo& column = info->columns[std::size_t(at)];
      const qint64 rows = CountFilled(connection_, *info, column);
      steps_.push_back({Kind::DropColumn, {info->name, {}, {}, {}}, {column.name, ColumnType::Text, 0}, rows});
    }
  }

  Connection& connection_;
  DatabaseSession& session_;
  const Design &base_, &wanted_;
  std::vector<PhysicalStep> steps_;
};

}  // namespace

Column ColumnOf(const Design::Field& field) {
  constexpr int kKeyDigits = 20;
  if (IsSame(field.name, kKey))
    return {field.name, ColumnType::Text, std::clamp(field.length, kKeyDigits, kLongestText)};
  static const QStringList numbers{u"数值型"_s, u"自动编号"_s, u"数字型"_s}, dates{u"日期型"_s, u"时间型"_s};
  if (numbers.contains(field.type)) return {field.name, ColumnType::Integer, 0};
  if (dates.contains(field.type)) return {field.name, ColumnType::Date, 0};
  if (field.length <= 0 || field.length > kLongestText) return {field.name, ColumnType::LongText, 0};
  return {field.name, ColumnType::Text, field.length};
}

std::vector<PhysicalStep> PhysicalSteps(Connection& connection, const Design& base, const Design& wanted) {
  return Steps(connection, base, wanted).Find();
}

}  // namespace folvane::design
