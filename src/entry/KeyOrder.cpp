#include "entry/KeyOrder.h"

#include <algorithm>

#include "catalogue/FieldRows.h"
#include "catalogue/ReadRows.h"
#include "data/OneTransaction.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"
#include "shell/TableFields.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QStringList AllNames(const QString& table) {
  QStringList names;
  for (const auto& row : ReadRows<DictionaryFieldRow>(
           SharedConnection(), u"Select ChnFieldName from DynamicWindows Where TableName='"_s + table + u"'"_s))
    names << row.chnFieldName;
  return names;
}

QString FieldOf(const QString& table, const QString& name) {
  const auto rows = ReadRows<DictionaryFieldRow>(SharedConnection(),
                                                 u"Select FieldName from DynamicWindows Where TableName='"_s + table +
                                                     u"' and ChnFieldName='"_s + EscapeSql(name) + u"'"_s);
  return rows.empty() ? QString() : rows.front().fieldName;
}

}  // namespace

KeyOrderList::KeyOrderList(const QString& table) : table_(table) {
  const auto controls = ReadRows<EntryControlRow>(
      SharedConnection(), u"Select DataField From SaveControls Where DataSource='"_s + table +
                              u"' and ControlType<>'3' And DataField <> '' Order By KeyOrder"_s);
  if (controls.empty()) names_ = AllNames(table);
  for (const EntryControlRow& control : controls) names_ << GetChnFieldName(table, control.dataField);
}

int KeyOrderList::Move(int from, int to) {
  const auto isPosition = [&](int position) { return position >= 1 && position <= Count(); };
  if (!isPosition(from) || !isPosition(to)) return from;
  names_.move(from - 1, to - 1);
  return to;
}

void KeyOrderList::Commit() const {
  InOneTransaction(*SharedConnection(), [this] {
    for (int i = 1; i <= Count(); ++i) {
      SharedConnection()->Execute(u"Update SaveControls Set KeyOrder='"_s + QString::number(i) +
                                  u"' Where DataSource='"_s + table_ + u"' and DataField='"_s +
                                  FieldOf(table_, names_[i - 1]) + u"' and ControlType<>'3'"_s);
    }
  });
}

std::vector<ControlId> ReadKeyList(const QString& table) {
  std::vector<ControlId> keys(1);
  for (const auto& row : ReadRows<EntryControlRow>(
           SharedConnection(), u"Select ControlType,ControlIndex From SaveControls Where DataSource='"_s + table +
                                   u"' And SaveControls.ControlType <> 3 And SaveControls.ControlType <> 5 "
                                   "Order By SaveControls.KeyOrder"_s))
    keys.push_back({row.controlType, row.controlIndex});
  return keys;
}

ControlId EnterWalk::Current() const {
  return size_t(position_) < keys_.size() ? keys_[size_t(position_)] : ControlId();
}

EnterWalk::Step EnterWalk::Next(const ControlId& from, bool mayEdit) {
  const auto found = std::find(keys_.begin() + 1, keys_.end(), from);
  if (found != keys_.end()) position_ = int(found - keys_.begin());
  const bool isLast = position_ + 1 >= int(keys_.size());
  if (isLast && mayEdit) return Step::AddRecord;
  position_ = isLast ? 1 : position_ + 1;
  return Step::Focus;
}

}  // namespace folvane
