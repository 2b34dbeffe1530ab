#include "entry/FieldChecks.h"

#include <algorithm>

#include "base/CodePage.h"
#include "base/OuterBlanks.h"
#include "base/TypedValues.h"
#include "data/Recordset.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kDateLength = 8;

CheckFailure Failure(const QString& reason, const ControlId& control) {
  return {kNotSaved + reason, MessageFlag::Information, control};
}

int LimitOf(const ShownField& field) {
  const std::optional<int> limit = LimitIn(field.limitText);
  if (!limit) throw NumberError(u"类型不匹配：“"_s + field.limitText + u"”中没有长度"_s);
  return *limit;
}

std::optional<CheckFailure> CheckRequired(const ShownField& field) {
  if (!field.text.isEmpty()) return {};
  return Failure(u"“"_s + field.caption + u"”字段值不能为空！请输入数据！"_s, field.control);
}

std::optional<CheckFailure> CheckFixedLength(const ShownField& field) {
  if (field.control.type == ControlKind::DTP) return {};
  const bool isDate = field.control.type == ControlKind::DTP_Arch;
  const int wanted = isDate ? kDateLength : LimitOf(field);
  const int length = isDate ? int(field.text.size()) : ByteLength(field.text);
  if (length == wanted || length == 0) return {};
  return Failure(u"“"_s + field.caption + u"”字段值必须为"_s + QString::number(wanted) + u"个字符，请重新输入!"_s,
                 field.control);
}

// Null when the form has no such field.
const ShownField* FindField(const ShownFields& fields, const ControlId& control) {
  const auto found =
      std::find_if(fields.begin(), fields.end(), [&](const ShownField& field) { return field.control == control; });
  return found == fields.end() ? nullptr : &*found;
}

// Fields that were not built, of a kind that the form does not know, are passed over.
template <class Check>
std::optional<CheckFailure> FirstFailure(const ShownFields& fields, const std::vector<ControlId>& list, Check check) {
  for (const ControlId& control : list) {
    const ShownField* field = FindField(fields, control);
    if (!field) continue;
    if (auto failure = check(*field)) return failure;
  }
  return {};
}

QString ValueOf(const QString& column, const ShownFields& fields) {
  const ShownField* first = nullptr;
  for (const ShownField& field : fields) {
    if (field.dataField == column && (!first || field.control.type < first->control.type)) first = &field;
  }
  return first ? first->text : QString();
}

// The condition with what was entered in place of the columns. Values are not quoted for the statement: one with an
// apostrophe cannot be judged.
QString WithValues(const EntryRights& rights, Recordset& limited, const ShownFields& fields) {
  QString condition = rights.condition;
  for (; !limited.EOF_(); limited.MoveNext()) {
    const QString column = limited[u"FieldName"_s].Text();
    condition.replace(rights.table + u'.' + column, UnescapedLiteral(ValueOf(column, fields)));
  }
  return condition;
}

bool IsBadDate(const QString& text) {
  const QString month = text.mid(4, 2), day = text.right(2);
  const QString date = text.left(4) + u'-' + month + u'-' + day;
  return !IsDate(date) && month != u"00" && day != u"00";
}

}  // namespace

std::optional<CheckFailure> CheckPopedom(const EntryRights& rights, const ShownFields& fields) {
  Recordset records;
  records.Open(u"Select Distinct(FieldName) from UserPopedomScopeDetails Where PopTableName='"_s + rights.table +
                   u"' And UserId = '"_s + Shared().UserId + u"'"_s,
               SharedConnection());
  if (records.EOF_()) return {};
  const QString condition = WithValues(rights, records, fields);
  records.Close();
  records.Open(u"If Not ("_s + condition +
                   u") Select 'False' As Result,Count(1)as T from DynamicWindows "
                   "Else Select 'True' As Result,Count(1)as T From DynamicWindows"_s,
               SharedConnection());
  if (records[u"Result"_s].Text() == u"True") return {};
  return CheckFailure{kNotSaved + u"您输入的数据与您的权限不符！\r\n"_s + rights.words, 0, {}};
}

std::optional<CheckFailure> CheckData(const ShownFields& fields, const EntryLayout& layout) {
  if (auto failure = FirstFailure(fields, layout.RequiredList, CheckRequired)) return failure;
  return FirstFailure(fields, layout.FixedLengthList, CheckFixedLength);
}

std::optional<CheckFailure> CheckArchiveDates(const ShownFields& fields) {
  const ShownField* first = nullptr;
  for (const ShownField& field : fields) {
    if (field.control.type != ControlKind::DTP_Arch || field.text.size() != kDateLength || !IsBadDate(field.text))
      continue;
    if (!first || field.control.index < first->control.index) first = &field;
  }
  if (!first) return {};
  return Failure(u"您输入的日期不合法！请重新输入！"_s, first->control);
}

QString FondsNoIn(const ShownFields& fields) {
  QString number;
  for (const ShownField& field : fields) {
    if (field.control.type == ControlKind::F_FondsNo && field.dataField.toUpper() == u"FONDSNO") number = field.text;
  }
  return number;
}

QString OneLine(const QString& text) {
  const QString line = WithoutOuterBlanks(QString(text).remove(u'\n'));
  return WithoutOuterBlanks(QString(line).remove(u'\r'));
}

}  // namespace folvane
