#include "entry/RowConflict.h"

#include <algorithm>

#include "data/ValueText.h"
#include "shell/CommonRoutines.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kNotSaved = u"当前数据保存失败，原因在于："_s;
const QString kKept = u"您输入的内容仍保留在界面上，没有写入数据库。"_s;

QString CaptionOf(const QString& field, const EntryLayout& layout) {
  const auto row = std::find_if(layout.rows.begin(), layout.rows.end(), [&](const LayoutRow& each) {
    return each.dataField.compare(field, Qt::CaseInsensitive) == 0;
  });
  return row == layout.rows.end() ? field : row->caption;
}

QString Shown(const QString& value) { return value.isEmpty() ? u"（空）"_s : value.simplified(); }

QString ListOf(const std::vector<RowConflict::Difference>& differences) {
  QStringList lines;
  for (const auto& difference : differences) {
    QString line = difference.caption + u"："_s + Shown(difference.theirs);
    if (difference.mine != difference.theirs) line += u"（您的内容：%1）"_s.arg(Shown(difference.mine));
    lines << line;
  }
  return lines.isEmpty() ? u"对方的数据与您打开时相同。"_s : lines.join(u"\r\n"_s);
}

}  // namespace

RowConflict ReadConflict(const Recordset& records, const EntryLayout& layout, const QString& table) {
  Recordset theirs;
  theirs.Open(u"Select * From "_s + table + u" Where ArchiveID = '"_s +
                  EscapeSql(ValueText(records[u"ArchiveID"_s].OriginalValue())) + u"'"_s,
              SharedConnection());
  RowConflict conflict;
  conflict.isDeleted = theirs.EOF_();
  for (int i = 0; i < records.Fields().Count() && !conflict.isDeleted; ++i) {
    const Field field = records.Fields().Item(i);
    const QString read = ValueText(field.OriginalValue()), saved = theirs[field.Name()].Text();
    if (saved == read) continue;
    const bool isMine = field.Text() != read;
    conflict.differences.push_back({CaptionOf(field.Name(), layout), isMine ? field.Text() : saved, saved});
  }
  return conflict;
}

bool AskAboutConflict(const RowConflict& conflict, const QString& title) {
  if (conflict.isDeleted) {
    ShowMessage(kNotSaved + u"该记录已被其他用户删除！\r\n"_s + kKept + u"\r\n请抄录需要的内容后取消本次操作。"_s,
                MessageFlag::Warning, title);
    return false;
  }
  if (ShowMessage(kNotSaved + u"该记录已被其他用户修改！\r\n"_s + kKept + u"\r\n是否查看对方保存的数据？"_s,
                  MessageFlag::YesNo + MessageFlag::Warning, title) != Answer::Yes)
    return false;
  return ShowMessage(u"对方保存的数据：\r\n"_s + ListOf(conflict.differences) +
                         u"\r\n\r\n是否用您的内容保存？选择“否”返回继续编辑，也可以取消本次操作。"_s,
                     MessageFlag::YesNo + MessageFlag::Question + MessageFlag::SecondIsDefault, title) == Answer::Yes;
}

}  // namespace folvane
