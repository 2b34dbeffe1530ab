#include "catalogue/Catalogue.h"
#include "data/DatabaseSession.h"
#include "design/Checks.h"
#include "design/Names.h"
#include "design/PhysicalTables.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

using Weight = DesignFinding::Weight;

/// Compares a table of the design with that of the database.
class ColumnCheck {
 public:
  ColumnCheck(Checked& checked, const Design::Table& table)
      : checked_(checked), session_(DatabaseSession::Of(*checked.connection)), table_(table) {}

  void Run() {
    const TableInfo* info = session_.Table(table_.name);
    if (!info) return Add(u"table-missing"_s, {}, u"数据库中没有这个表"_s, u"打开这个表时出错"_s, MadeByApplying({}));
    for (const Design::Field& field : table_.fields) {
      const int at = info->IndexOf(field.name);
      if (at < 0)
        Add(u"column-missing"_s, &field, u"表中没有这一列"_s, u"录入和查询时出错"_s, MadeByApplying(field.name));
      else
        CheckColumn(field, info->columns[std::size_t(at)]);
    }
    if (info->IndexOf(u"ArchiveID"_s) < 0 && !FindCatalogueTable(table_.name))
      checked_.findings.push_back({Weight::Error,
                                   u"key-missing"_s,
                                   Shape<Design::Table>::TitleOf(table_),
                                   u"表没有主键列 ArchiveID"_s,
                                   u"打开这个表时出错"_s,
                                   u"请用数据库的管理工具增加此列（20 位文本）"_s,
                                   {}});
  }

 private:
  void Add(const QString& kind, const Design::Field* field, const QString& what, const QString& consequence,
           const std::function<void(Design&)>& mend) {
    checked_.findings.push_back({Weight::Error, kind,
                                 field ? Where(table_, *field) : Shape<Design::Table>::TitleOf(table_), what,
                                 consequence, mend ? u"应用设计时建立"_s : u"请用数据库的管理工具建立"_s, mend});
  }

  bool IsOurs() const { return session_.Words().text && !FindCatalogueTable(table_.name); }

  // Whether applying the design makes the table, or one of its columns.
  std::function<void(Design&)> MadeByApplying(const QString& column) const {
    const bool hasNames =
        column.isEmpty()
            ? NameComplaint(table_.name).isEmpty() &&
                  std::all_of(table_.fields.begin(), table_.fields.end(),
                              [](const Design::Field& field) { return NameComplaint(field.name).isEmpty(); })
            : NameComplaint(column).isEmpty();
    if (IsOurs() && hasNames) return ByApplying;
    return {};
  }

  std::function<void(Design&)> InField(const Design::Field& field, std::function<void(Design::Field&)> change) const {
    return InTable(table_, [name = field.name, change = std::move(change)](Design::Table& found) {
      if (Design::Field* mended = FindNamed(found.fields, name)) change(*mended);
    });
  }

  void CheckColumn(const Design::Field& field, const ColumnInfo& column) {
    const TypeGroup group = GroupOfType(column.type);
    if (group == TypeGroup::Text) return CheckLength(field, column);
    const ColumnType wanted = ColumnOf(field).type;
    const bool suits = group == TypeGroup::Number ? wanted == ColumnType::Integer
                                                  : group == TypeGroup::Date && wanted == ColumnType::Date;
    if (suits) return;
    const QString type = group == TypeGroup::Number ? u"数值型"_s : u"日期型"_s;
    const bool isKnown = group == TypeGroup::Number || group == TypeGroup::Date;
    checked_.findings.push_back(
        {Weight::Error, u"column-type"_s, Where(table_, field),
         isKnown ? u"类型是“%1”，数据库中的列却是%2列"_s.arg(field.type, type.left(2)) : u"数据库中的列是二进制列"_s,
         u"录入的内容不能保存，查询可能出错"_s, isKnown ? u"类型改为“%1”"_s.arg(type) : u"请去掉这个字段"_s,
         isKnown ? InField(field, [type](Design::Field& mended) { mended.type = type; }) : nullptr});
  }

  void CheckLength(const Design::Field& field, const ColumnInfo& column) {
    const Column wanted = ColumnOf(field);
    const bool isText = wanted.type == ColumnType::Text || wanted.type == ColumnType::LongText;
    if (!isText || field.length <= column.definedSize) return;
    const int size = column.definedSize;
    const std::function<void(Design&)> shorten =
        InField(field, [size](Design::Field& mended) { mended.length = size; });
    checked_.findings.push_back(
        {Weight::Error, u"column-short"_s, Where(table_, field),
         u"长度是 %1，数据库中的列只有 %2"_s.arg(field.length).arg(size), u"较长的内容不能保存"_s,
         IsOurs() ? u"应用设计时加长此列"_s : u"长度改为 %1"_s.arg(size), IsOurs() ? ByApplying : shorten});
  }

  Checked& checked_;
  DatabaseSession& session_;
  const Design::Table& table_;
};

}  // namespace

void CheckColumns(Checked& checked) {
  if (!checked.connection) return;
  for (const Design::Table& table : checked.design.tables)
    if (!table.fields.empty()) ColumnCheck(checked, table).Run();
}

}  // namespace folvane::design
