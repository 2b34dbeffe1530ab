#include "browser/RelatedRecords.h"

#include "browser/TableNavigation.h"
#include "records/RecordList.h"
#include "records/TableParameters.h"
#include "shell/SqlText.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

QString RelatedRecords::ConditionOnCurrent(const QString& field) const {
  return field + u" = '"_s + EscapeSql(list_.Records()[field].Text()) + u"'"_s;
}

void RelatedRecords::OpenParent() {
  const QString parent = parameters_.Selected(Parameter::Parent);
  if (list_.Table().isEmpty() || parent.isEmpty()) return;
  const QString relation = parameters_.Selected(Parameter::Relation);
  QString condition;
  if (list_.Rows().Count() == 0) {
    condition = parameters_.Tag();
  } else if (!relation.isEmpty()) {
    condition = ConditionOnCurrent(relation);
  }
  parameters_.SetTag(QString());
  const int row = parameters_.Find(parent);
  if (row == 0) return;
  tables_.OpenTable(row);
  ShowFrom(condition);
}

// The list starts at the parent record; when that is not among the rows it stays at the first.
void RelatedRecords::ShowFrom(const QString& condition) {
  if (list_.Rows().Count() == 0) {
    list_.ShowNone();
    return;
  }
  Recordset& records = list_.Records();
  records.MoveFirst();
  if (!condition.isEmpty()) records.Find(condition);
  if (records.EOF_()) records.MoveFirst();
  list_.ShowFromCursor();
}

void RelatedRecords::OpenChildren() {
  const QString child = parameters_.Selected(Parameter::Child);
  const int row = child.isEmpty() ? 0 : parameters_.Find(child);
  if (row == 0) return;
  const QString relation = parameters_.Selected(Parameter::ChildRelation);
  if (!relation.isEmpty()) {
    const QString condition = ConditionOnCurrent(relation);
    parameters_.SetTag(condition);
    parameters_.Set(row, Parameter::Filter, condition);
  }
  tables_.OpenTable(row);
}

}  // namespace folvane
