#include <map>

#include "design/Checks.h"
#include "design/RowChanges.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

using Weight = DesignFinding::Weight;

// Words that switch a flag off as well as any other does.
bool IsUsualWord(const QString& column, const QString& word) {
  static const std::map<QString, QStringList> usual{
      {u"NullFlags"_s, {u"否"_s, u"是"_s}},
      {u"ZJCFlags"_s, {u"是"_s, u"否"_s}},
      {u"ControlIndex"_s, {u"1"_s, u"0"_s}},
      {u"ControlsType"_s, {u"1"_s, u"0"_s}},
      {u"IsSystem"_s, {u"1"_s, u"0"_s}},
      {u"PopEditData"_s, {u"1"_s, u"0"_s}},
      {u"PopPrintData"_s, {u"1"_s, u"0"_s}},
      {u"PopLookFile"_s, {u"1"_s, u"0"_s}},
      {u"ShowMode"_s, {u"显示代号"_s, u"显示名称"_s, u"显示内容"_s}},
  };
  const auto words = usual.find(column);
  return words != usual.end() && (word.isEmpty() || words->second.contains(word));
}

/// Compares the rows that are there with those that the design read from them is kept in.
class RowCheck {
 public:
  RowCheck(Checked& checked, const RowSet& present, const RowSet& understood) : checked_(checked), present_(present) {
    for (const QVariantList& row : understood.rows) understood_.emplace(understood.KeyOf(row), &row);
  }

  void Run() {
    for (const QVariantList& row : present_.rows) {
      const QString key = present_.KeyOf(row);
      const auto found = understood_.find(key);
      if (found == understood_.end())
        Add(u"row-orphan"_s, row, u"没有所属，设计中看不到它"_s, u"这一行不起作用"_s,
            u"请补上它所属的一行，或删除它"_s);
      else if (!present_.isInOrder && ++seen_[key] > 1)
        Add(u"row-twice"_s, row, u"有两行"_s, u"以哪一行为准不一定"_s, u"请删除多余的一行"_s);
      else
        CompareValues(row, *found->second);
    }
  }

 private:
  void CompareValues(const QVariantList& row, const QVariantList& understood) {
    for (qsizetype at = 0; at < row.size(); ++at) {
      const QString column = present_.columns[at], word = row[at].toString();
      if (row[at] == understood[at] || IsUsualWord(column, word)) continue;
      if (present_.key.contains(column)) continue;  // another spelling of the same name
      Add(u"row-value"_s, row, u"%1 是“%2”，设计中是“%3”"_s.arg(column, word, understood[at].toString()),
          u"窗口可能按另一个值工作"_s, u"请改为设计中的值"_s);
    }
  }

  void Add(const QString& kind, const QVariantList& row, const QString& what, const QString& consequence,
           const QString& remedy) {
    checked_.findings.push_back(
        {Weight::Warning, kind, present_.table + u' ' + present_.TitleOf(row), what, consequence, remedy, {}});
  }

  Checked& checked_;
  const RowSet& present_;
  std::map<QString, const QVariantList*> understood_;
  std::map<QString, int> seen_;
};

}  // namespace

void CheckRows(Checked& checked) {
  if (!checked.connection) return;
  const StoredRows stored = ReadStoredRows(*checked.connection);
  const std::vector<RowSet> present = RowSetsOf(stored);
  const std::vector<RowSet> understood = RowSetsOf(RowsOf(DesignOf(stored), KeysFor(stored, {})));
  for (std::size_t at = 0; at < present.size(); ++at) RowCheck(checked, present[at], understood[at]).Run();
}

}  // namespace folvane::design
