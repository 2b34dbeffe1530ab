#include "browser/RelatedRecords.h"

#include "browser/BrowserState.h"
#include "browser/ClassTreePart.h"
#include "browser/RecordListPart.h"
#include "data/Recordset.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

QString RelatedRecords::ConditionOnCurrent(const QString& field) const {
  return field + u" = '"_s + EscapeSql(Shared().CurrentRecords[field].Text()) + u"'"_s;
}

void RelatedRecords::OpenParent() {
  TableParameters& parameters = parts_.State.Parameters;
  const QString parent = parameters.Selected(Parameter::Parent);
  if (parts_.State.CurrTable.isEmpty() || parent.isEmpty()) return;
  const QString relation = parameters.Selected(Parameter::Relation);
  QString condition;
  if (parts_.State.List.Count() == 0) {
    condition = parameters.Tag();
  } else if (!relation.isEmpty()) {
    condition = ConditionOnCurrent(relation);
  }
  parameters.SetTag(QString());
  const int row = parameters.Find(parent);
  if (row == 0) return;
  tree_.OpenTable(row);
  ShowFrom(condition);
}

// The list starts at the parent record; when that is not among the rows it stays at the first.
void RelatedRecords::ShowFrom(const QString& condition) {
  if (parts_.State.List.Count() == 0) {
    list_.UpdateCommands();
    return;
  }
  Recordset& records = Shared().CurrentRecords;
  records.MoveFirst();
  if (!condition.isEmpty()) records.Find(condition);
  if (records.EOF_()) records.MoveFirst();
  list_.ShowFromCursor();
}

void RelatedRecords::OpenChildren() {
  TableParameters& parameters = parts_.State.Parameters;
  const QString child = parameters.Selected(Parameter::Child);
  const int row = child.isEmpty() ? 0 : parameters.Find(child);
  if (row == 0) return;
  const QString relation = parameters.Selected(Parameter::ChildRelation);
  if (!relation.isEmpty()) {
    const QString condition = ConditionOnCurrent(relation);
    parameters.SetTag(condition);
    parameters.Set(row, Parameter::Filter, condition);
  }
  tree_.OpenTable(row);
}

}  // namespace folvane
