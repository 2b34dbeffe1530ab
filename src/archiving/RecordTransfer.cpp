#include "archiving/RecordTransfer.h"

#include <folvane/createdname.h>

#include "archiving/TransferScope.h"
#include "archiving/TransferWords.h"
#include "base/CodePage.h"
#include "base/OuterBlanks.h"
#include "base/Surroundings.h"
#include "data/ValueText.h"
#include "design/transfer/FieldTypes.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QString TodayText() { return Today().toString(u"yyyy-MM-dd"_s); }

// The answer of the question about a value that does not convert.
int AskAboutValue(FieldBranch branch, const QString& caption, const QString& title) {
  const bool number = branch == FieldBranch::Number;
  return ShowMessage(u"记录归档时发现：‘"_s + caption +
                         (number ? u"’不能转化为对应字段的数字类型，以下是不合格目录的题名"_s
                                 : u"’不能转化为对应字段的日期类型，以下是不合格目录的题名"_s) +
                         u"\r\n"_s + title + u"\r\n"_s + u"是否保存数据继续归档？选择‘是’则跳过该字段继续；"_s +
                         (number ? u"选择‘否’则将已归档的记录保存后结束归档操作；选择‘取消’则将所有状态回到归档前！"_s
                                 : u"选择‘否’则将已归档的记录保存；选择‘取消’则将所有状态回到归档前！"_s),
                     MessageFlag::YesNoCancel + MessageFlag::Question);
}

// The value of a record as its field takes it; none when it does not convert.
std::optional<QVariant> Converted(const QString& text, const Field& field) {
  switch (BranchOf(field.Type())) {
    case FieldBranch::Number:
      return NumberFor(field.Type(), text);
    case FieldBranch::Date:
      return DateFor(text);
    default:
      return LimitByteLength(text, field.DefinedSize());
  }
}

}  // namespace

RecordResult RecordTransfer::TransferOneRecord(const QString& archiveId) {
  try {
    return Transfer(archiveId);
  } catch (const std::exception& error) {
    failure_ = MessageRequest{u"数据归档时出现错误，所有操作将被取消！   "_s + ErrorText(error),
                              MessageFlag::Warning,
                              kTransferTitle,
                              {},
                              ErrorDetails(error)};
    return RecordResult::Cancel;
  }
}

RecordResult RecordTransfer::Transfer(const QString& archiveId) {
  if (!IsToBeTransferred(archiveId)) return RecordResult::Skipped;
  AddRow();
  if (const auto ending = TakeMappedFields()) {
    tables_.destination.CancelUpdate();
    return *ending;
  }
  if (tables_.IsCounted()) tables_.ArchiveCounter = CounterOf(tables_.ArchiveCounter + 1);
  CountPages();
  const QString number = tables_.format.storeField.isEmpty() ? QString() : ComposeNumber();
  tables_.destination.UpdateBatch(AffectKind::Current);
  if (tables_.order.withOriginals) CopyOriginals(archiveId);
  if (resultMsg_.isEmpty()) resultMsg_ = u"起始件档号为："_s + WithoutFirstSeparator(number);
  writtenKeys_.insert(key_);
  return RecordResult::Transferred;
}

bool RecordTransfer::IsToBeTransferred(const QString& archiveId) {
  Recordset& source = tables_.source;
  source.SetFilter(u"ArchiveID = '"_s + EscapeSql(archiveId) + u'\'');
  if (tables_.hasFileStatus && (source.EOF_() || source[u"FileStatus"_s].Text() != kToBeArchived)) return false;
  return CheckUserScope(tables_) && !source.EOF_();
}

void RecordTransfer::AddRow() {
  Recordset& row = tables_.destination;
  row.AddNew();
  key_ = createdname().CreateName();
  row[u"ArchiveID"_s].SetValue(key_);
  if (tables_.hasInputDate) row[u"InputDate"_s].SetValue(TodayText());
  if (tables_.hasArchiveFlag) row[u"ArchiveFlag"_s].SetValue(u"已组卷"_s);
  if (tables_.IsCounted()) row[tables_.sequenceField].SetValue(tables_.ArchiveCounter);
}

std::optional<RecordResult> RecordTransfer::TakeMappedFields() {
  for (const MappedField& mapped : tables_.ArchiveFieldMap) {
    if (const auto ending = TakeField(mapped)) return ending;
  }
  return {};
}

std::optional<RecordResult> RecordTransfer::TakeField(const MappedField& mapped) {
  const QVariant value = FieldAt(tables_.source, mapped.sourceIndex, mapped.SourceField).Value();
  if (!value.isValid()) return {};
  const QString text = WithoutOuterBlanks(ValueText(value));
  Field field = FieldAt(tables_.destination, mapped.destinationIndex, mapped.DesField);
  if (const std::optional<QVariant> converted = Converted(text, field)) {
    field.SetValue(*converted);
    return {};
  }
  const FieldBranch branch = BranchOf(field.Type());
  switch (AskAboutValue(branch, mapped.SourceChn, tables_.source[u"Amaintitle"_s].Text())) {
    case Answer::Yes:
      field.SetValue(branch == FieldBranch::Number ? QVariant(1) : QVariant(TodayText()));
      return {};
    case Answer::No:
      return RecordResult::EndKeeping;
    default:
      return RecordResult::Cancel;
  }
}

void RecordTransfer::CountPages() {
  if (!tables_.CountsPages() || !tables_.hasQuantity || !tables_.hasDocOrder || tables_.ArchiveCounter <= 0) return;
  tables_.destination[u"PageNo"_s].SetValue(tables_.PageCounter);
  Field quantity = tables_.destination[u"Quantity"_s];
  if (IsBlank(quantity)) quantity.SetValue(1);
  tables_.PageCounter = CounterOf(tables_.PageCounter + NumberIn(quantity.Text()));
}

QString RecordTransfer::Piece(const NumberField& field) const {
  return field.separator +
         ComposeNoPiece(field, tables_.destination[field.name].Text(), tables_.order.destinationTable);
}

QString RecordTransfer::ComposeNumber() {
  const NumberFormat& format = tables_.format;
  Recordset& row = tables_.destination;
  QString number, folder;
  for (const NumberField& field : format.fixedFields) {
    row[field.name].SetValue(field.value);
    number += Piece(field);
    if (format.HasFolder()) folder = number;
  }
  number += Piece(format.itemField);
  if (format.HasFolder()) row[format.folderField].SetValue(WithoutFirstSeparator(folder));
  row[format.storeField].SetValue(WithoutFirstSeparator(number));
  numbers_.insert(WithoutFirstSeparator(number));
  return number;
}

void RecordTransfer::CopyOriginals(const QString& archiveId) {
  SharedConnection()->Execute(
      u"Insert Into Original_Text(ID,Original_Name,Type,RecordID,Size,FileOrder,FilePath) "
      "(Select ID,Original_Name,Type,'"_s +
      key_ + u"',Size,FileOrder,FilePath From Original_Text Where RecordID = '"_s + EscapeSql(archiveId) + u"')"_s);
}

}  // namespace folvane
