#include "entry/SaveMessages.h"

#include <algorithm>

#include "data/ValueText.h"
#include "entry/FieldChecks.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/TableFields.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kStillShown = u"您输入的内容仍保留在界面上。"_s;
const QString kShownNotWritten = u"您输入的内容仍保留在界面上，没有写入数据库。"_s;

QString CaptionOf(const QString& field, const EntryLayout& layout) {
  const auto row = std::find_if(layout.rows.begin(), layout.rows.end(), [&](const LayoutRow& each) {
    return each.dataField.compare(field, Qt::CaseInsensitive) == 0;
  });
  return row == layout.rows.end() ? field : row->caption;
}

QString InOneLine(const QString& value) { return value.isEmpty() ? u"（空）"_s : value.simplified(); }

QString ListOf(const std::vector<FieldConflict>& conflicts) {
  QStringList lines;
  for (const FieldConflict& conflict : conflicts) {
    QString line = conflict.caption + u"："_s + InOneLine(conflict.theirs);
    if (conflict.mine != conflict.theirs) line += u"（您的内容：%1）"_s.arg(InOneLine(conflict.mine));
    lines << line;
  }
  return lines.join(u"\r\n"_s);
}

}  // namespace

MessageRequest RefusalMessage(const QString& table, const DataError& error, const QString& title) {
  return {kNotSaved + ErrorTextFor(table, error), MessageFlag::Critical, title, kStillShown, ErrorDetails(error)};
}

MessageRequest NewKeyQuestion(const QString& table, const DataError& error, const QString& title) {
  return {kNotSaved + ErrorTextFor(table, error) + u"\r\n是否换用新的关键字再次保存？"_s,
          MessageFlag::YesNo + MessageFlag::Question, title, kStillShown, ErrorDetails(error)};
}

MessageRequest ConflictQuestion(const QString& title) {
  return {kNotSaved + u"该记录已被其他用户修改！\r\n"_s + kShownNotWritten + u"\r\n是否查看对方保存的数据？"_s,
          MessageFlag::YesNo + MessageFlag::Warning, title};
}

std::vector<FieldConflict> ConflictsIn(const Recordset& records, const QStringList& contested,
                                       const EntryLayout& layout) {
  std::vector<FieldConflict> conflicts;
  for (int i = 0; i < records.Fields().Count(); ++i) {
    const Field field = records.Fields().Item(i);
    if (contested.contains(field.Name()))
      conflicts.push_back({CaptionOf(field.Name(), layout), field.Text(), ValueText(field.OriginalValue())});
  }
  return conflicts;
}

MessageRequest OverwriteQuestion(const std::vector<FieldConflict>& conflicts, const QString& title) {
  return {u"对方保存的数据：\r\n"_s + ListOf(conflicts) +
              u"\r\n\r\n是否用您的内容保存？选择“否”返回继续编辑，也可以取消本次操作。"_s,
          MessageFlag::YesNo + MessageFlag::Question + MessageFlag::SecondIsDefault, title};
}

MessageRequest DeleteQuestion(const QStringList& changed, const EntryLayout& layout, const QString& title) {
  QStringList captions;
  for (const QString& field : changed) captions << CaptionOf(field, layout);
  MessageRequest question{u"确实要删除当前的记录及相关原文吗？"_s, MessageFlag::YesNo + MessageFlag::Information,
                          title};
  if (!captions.isEmpty())
    question.note = u"其他用户刚刚修改了该记录：%1。界面上显示的是修改后的内容。"_s.arg(captions.join(u'、'));
  return question;
}

MessageRequest DeletionMessage(const QString& title) {
  return {kNotSaved + u"该记录已被其他用户删除！\r\n"_s + kShownNotWritten + u"\r\n请抄录需要的内容后取消本次操作。"_s,
          MessageFlag::Warning, title};
}

}  // namespace folvane
