#include <QObject>
#include <algorithm>

#include <folvane/ClsSaveCollect.h>

#include "base/IgnoreErrors.h"
#include "catalogue/ReadRows.h"
#include "data/Recordset.h"
#include "entry/EntryControls.h"
#include "entry/ProofingRule.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr char kText[] = "text";

// In the order of the editor's lines, whatever the order that a database gives rows back in after they were changed.
std::vector<ProofingRuleRow> ReadRules(const QString& table) {
  std::vector<ProofingRuleRow> rules;
  IgnoreErrors([&] {
    rules = ReadRows<ProofingRuleRow>(SharedConnection(), u"Select * from SaveCollect Where TableName='"_s + table +
                                                              u"' And ControlType <> '3' And ControlType <> 0"_s);
  });
  std::stable_sort(rules.begin(), rules.end(), [](const ProofingRuleRow& one, const ProofingRuleRow& other) {
    return one.centerControlIndex < other.centerControlIndex;
  });
  return rules;
}

// Whether another record holds the text; with a fonds number, another record of that fonds.
bool IsDuplicate(const QString& table, const QString& fondsNo, const QString& field, const QString& text) {
  const QString column = fondsNo.isEmpty() ? u"1"_s : u"FondsNo"_s;
  Recordset records;
  records.Open(u"Select "_s + column + u" From "_s + table + u" Where "_s + field + u"='"_s + EscapeSql(text) +
                   u"' And ArchiveId <> '"_s + Shared().CurrentRecords[u"ArchiveId"_s].Text() + u"'"_s,
               SharedConnection());
  if (records.EOF_() || fondsNo.isEmpty()) return !records.EOF_();
  records.SetFilter(u"FondsNo = '"_s + EscapeSql(fondsNo) + u"'"_s);
  return !records.EOF_();
}

// The control is set by program, so that the record has to be told.
void ClearText(QObject& control, const QString& field) {
  control.setProperty(kText, QString());
  IgnoreErrors([&] { Shared().CurrentRecords[field].SetValue(QString()); });
}

}  // namespace

void ClsSaveCollect::SaveCollect(const QString& tableName, const QString& fondsNo, bool& failed) const {
  failed = false;
  for (const ProofingRuleRow& rule : ReadRules(tableName)) {
    QObject* control = FindControl(qint16(rule.controlIndex), qint16(rule.controlType));
    if (!control) continue;
    const QString text = control->property(kText).toString();
    std::optional<RuleBreach> breach;
    IgnoreErrors(
        [&] { breach = TestRule(rule, text, [&] { return IsDuplicate(tableName, fondsNo, rule.fieldName, text); }); });
    if (!breach) continue;
    failed = true;
    ShowMessage(breach->text, MessageFlag::Information, breach->title);
    if (breach->clears) ClearText(*control, rule.fieldName);
    return;
  }
}

QObject* ClsSaveCollect::FindControl(qint16 controlIndex, qint16 controlType) const {
  return FindEntryControl({controlType, controlIndex});
}

}  // namespace folvane
