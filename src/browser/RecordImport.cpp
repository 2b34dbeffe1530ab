#include "browser/RecordImport.h"

#include <array>
#include <utility>

#include <folvane/DataError.h>

#include "base/CodePage.h"
#include "base/TypedValues.h"
#include "bulk/ReturnTo.h"
#include "data/TextFold.h"
#include "data/ValueText.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kKeyField = u"ArchiveID"_s;

/// Fields of old files and what they are called now.
const std::array kOldNames{std::pair{u"Reponsibleby"_s, u"Responsibleby"_s},
                           std::pair{u"CreateDate"_s, u"CreatedDate"_s}};

bool IsDateField(const Field& field) { return field.Type() == AdoType::DbDate || field.Type() == AdoType::DbTimeStamp; }

bool IsNumber(const QVariant& value) {
  return value.typeId() == QMetaType::LongLong || value.typeId() == QMetaType::Double ||
         value.typeId() == QMetaType::Bool;
}

// What is no date stays as it is, for its field to refuse or to take.
QString DateText(const QString& text) {
  const std::optional<QDate> date = ReadDate(text);
  return date ? date->toString(u"yyyy-MM-dd"_s) : text;
}

}  // namespace

RecordImport::RecordImport(QString table, Recordset& records) : table_(std::move(table)), records_(records) {}

std::optional<qint64> RecordImport::Run(const QString& path, const Progress& progress) {
  file_.OpenFile(path);
  FindWays();
  const ReturnTo before(records_);
  try {
    if (AddAll(progress)) {
      records_.UpdateBatch(AffectKind::AllChapters);
      return added_.size();
    }
  } catch (const std::exception&) {
    records_.CancelBatch();
    throw;
  }
  records_.CancelBatch();
  return {};
}

void RecordImport::FindWays() {
  const FieldList from = file_.Fields(), to = records_.Fields();
  key_ = from.IndexOf(kKeyField);
  if (key_ < 0) throw DataError(DataErrorKind::File, u"文件中没有字段“%1”，不能导入。"_s.arg(kKeyField));
  for (int at = 0; at < from.Count(); ++at) {
    const int target = TargetOf(from.Item(at).Name());
    if (target < 0) continue;
    const bool sameName = from.Item(at).Name().compare(to.Item(target).Name(), Qt::CaseInsensitive) == 0;
    ways_.push_back({at, target, sameName && (IsDateField(from.Item(at)) || IsDateField(to.Item(target)))});
  }
}

int RecordImport::TargetOf(const QString& field) const {
  const FieldList fields = records_.Fields();
  if (const int same = fields.IndexOf(field); same >= 0) return same;
  for (const auto& [oldName, name] : kOldNames)
    if (field.compare(oldName, Qt::CaseInsensitive) == 0) return fields.IndexOf(name);
  return -1;
}

bool RecordImport::AddAll(const Progress& progress) {
  const qint64 total = file_.RecordCount();
  for (qint64 done = 0; !file_.EOF_(); file_.MoveNext(), ++done) {
    if (!progress(done, total)) return false;
    try {
      if (IsNew(file_.Fields().Item(key_).Text())) AddRow();
    } catch (const DataError& error) {
      throw DataError(error.Kind(), u"文件中的第 %1 条记录：%2"_s.arg(done + 1).arg(error.Message()), error.Statement(),
                      error.NativeCode());
    }
  }
  return progress(total, total);
}

bool RecordImport::IsNew(const QString& key) {
  const QByteArray folded = FoldText(key);
  if (folded.isEmpty()) throw DataError(DataErrorKind::File, u"字段“%1”没有值。"_s.arg(kKeyField));
  if (added_.contains(folded)) return false;
  Recordset present;
  present.Open(u"Select * From "_s + table_ + u" Where ArchiveID = '"_s + EscapeSql(key) + u'\'', SharedConnection(),
               CursorType::Static, LockType::ReadOnly);
  if (!present.EOF_()) return false;
  added_.insert(folded);
  return true;
}

void RecordImport::AddRow() {
  records_.AddNew();
  for (const Way& way : ways_) {
    const QVariant value = file_.Fields().Item(way.from).Value();
    if (value.isValid()) records_.Fields().Item(way.to).SetValue(Converted(value, way));
  }
}

QVariant RecordImport::Converted(const QVariant& value, const Way& way) const {
  const Field field = records_.Fields().Item(way.to);
  if (way.isDate) return DateText(ValueText(value));
  switch (GroupOfType(field.Type())) {
    case TypeGroup::Text:
      return LimitByteLength(ValueText(value), field.DefinedSize());
    case TypeGroup::Number:
      return IsNumber(value) ? value : QVariant(ValueText(value));
    default:
      return value;
  }
}

}  // namespace folvane
