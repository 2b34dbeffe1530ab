#include "entry/RegIdRule.h"

#include <QDateTime>

#include "base/TypedValues.h"
#include "data/DatabaseSession.h"
#include "data/ValueText.h"
#include "forms/EntryLayout.h"
#include "records/RecordStatement.h"
#include "shell/Lookups.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kYearLength = 4;

bool CountsByCreatedDate(int formula) {
  return formula == RegFormula::CreatedDate || formula == RegFormula::CreatedDateAndRights;
}

bool CountsByFileDate(int formula) {
  return formula == RegFormula::FileDate || formula == RegFormula::FileDateAndRights;
}

bool CountsByRights(int formula) {
  return formula == RegFormula::CreatedDateAndRights || formula == RegFormula::FileDateAndRights;
}

QString Condition(const RegIdRule& rule, const QString& fieldName, const QString& prefix) {
  if (rule.formula == RegFormula::BrowserCondition) return JoinedWithRights(rule.rowLimit, rule.filter);
  const QString rights = rule.rowLimit.trimmed();
  const QString year = fieldName + u" Like '"_s + EscapeSql(prefix) + u"%'"_s;
  return CountsByRights(rule.formula) && !rights.isEmpty() ? year + u" AND "_s + rights : year;
}

QString YearOf(const QString& date) {
  const QDateTime moment = ReadDateTime(date);
  return moment.isValid() ? moment.toString(u"yyyy"_s) : date.left(kYearLength);
}

// The date column whose number follows what is typed into the field, "" for none.
QString FollowedDate(const RegIdRule& rule, const TypedField& field) {
  const QString name = field.dataField.toUpper();
  const bool isText = field.controlType == ControlKind::Txt || field.controlType == ControlKind::DTP_Arch;
  if (isText && name == u"CREATEDDATE" && CountsByCreatedDate(rule.formula)) return u"CreatedDate"_s;
  const bool isDate = isText || field.controlType == ControlKind::DTP;
  if (isDate && name == u"FILEDATE" && CountsByFileDate(rule.formula)) return u"FileDate"_s;
  return {};
}

bool FollowsDocNo(const RegIdRule& rule, const TypedField& field) {
  const bool isNumberBox = field.controlType == ControlKind::Txt || field.controlType == ControlKind::F_Organ;
  return isNumberBox && rule.formula == RegFormula::DocNo && field.dataField.toUpper() == u"DOCNO";
}

}  // namespace

int NextRegId(const RegIdRule& rule, const QString& fieldName, const QString& prefix) {
  const QString condition = Condition(rule, fieldName, prefix);
  const QVariant greatest =
      GetMaxValue(u"RegID"_s, condition.isEmpty() ? rule.table : rule.table + u" Where "_s + condition);
  return ToInteger(QString::number(qint64(ToInteger(ValueText(greatest))) + 1));
}

bool IsRegIdShared(const Recordset& records, const RegIdRule& rule) {
  if (!rule.Computes() || rule.formula == RegFormula::DocNo) return false;
  const QString number = records[u"RegID"_s].Text();
  if (number.isEmpty()) return false;
  QString condition;
  if (rule.formula == RegFormula::BrowserCondition) {
    condition = Condition(rule, {}, {});
  } else {
    const QString field = CountsByCreatedDate(rule.formula) ? u"CreatedDate"_s : u"FileDate"_s;
    condition = Condition(rule, field, YearOf(records[field].Text()));
  }
  const QString same = u" Where RegID = '"_s + EscapeSql(number) + u'\'';
  const QString within = condition.isEmpty() ? QString() : u" And ("_s + condition + u')';
  return DatabaseSession::Of(*SharedConnection())
             .FetchUntold(u"Select RegID From "_s + rule.table + same + within, TextOrder::Plain)
             .rows->RowCount() > 1;
}

QString RunningNumberIn(const QString& docNo, bool useSign) {
  const qsizetype close = docNo.indexOf(useSign ? u'〕' : u']');
  const qsizetype end = docNo.indexOf(u'号');
  if (close < 0 || end <= close) return {};
  QString digits;
  for (const QChar letter : docNo.mid(close + 1, end - close - 1)) {
    if (letter >= u'0' && letter <= u'9') digits += letter;
  }
  return digits;
}

void ComputeRegId(Recordset& records, const RegIdRule& rule) {
  const auto put = [&](const QVariant& number) { records[u"RegID"_s].SetValue(number); };
  if (CountsByCreatedDate(rule.formula)) {
    put(NextRegId(rule, u"CreatedDate"_s, records[u"CreatedDate"_s].Text().left(kYearLength)));
  } else if (rule.formula == RegFormula::DocNo) {
    put(RunningNumberIn(records[u"DocNo"_s].Text(), rule.useSign));
  } else if (CountsByFileDate(rule.formula)) {
    if (const Field date = records[u"FileDate"_s]; !date.IsNull())
      put(NextRegId(rule, u"FileDate"_s, YearOf(date.Text())));
  } else if (rule.formula == RegFormula::BrowserCondition) {
    put(NextRegId(rule, {}, {}));
  }
}

bool FollowTyping(Recordset& records, const RegIdRule& rule, const TypedField& field, bool isNew) {
  if (field.text.isEmpty()) return false;
  if (FollowsDocNo(rule, field)) {
    records[u"RegID"_s].SetValue(RunningNumberIn(field.text, rule.useSign));
    return true;
  }
  const QString date = FollowedDate(rule, field);
  if (!isNew || date.isEmpty()) return false;
  records[u"RegID"_s].SetValue(NextRegId(rule, date, field.text.left(kYearLength)));
  return true;
}

}  // namespace folvane
