#include "browser/OriginalCommands.h"

#include "browser/OriginalsView.h"
#include "originals/OriginalFileAction.h"
#include "originals/OriginalStore.h"
#include "records/ListStatus.h"
#include "records/RecordList.h"
#include "shell/Messages.h"
#include "shell/SqlText.h"
#include "widgets/BusyPointer.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

QString OriginalCommands::RecordKey() const { return list_.Table().isEmpty() ? QString() : list_.SelectedKey(); }

void OriginalCommands::Add(const QStringList& files) {
  if (const QString record = RecordKey(); !record.isEmpty()) Act(record, kAddOriginals, {}, files);
}

void OriginalCommands::Browse() {
  const QString record = RecordKey(), file = originals_.CurrentId();
  if (!record.isEmpty() && !file.isEmpty()) Act(record, kBrowseOriginals, file);
}

void OriginalCommands::Look() {
  if (originals_.CurrentId().isEmpty()) originals_.ChooseFirst();
  if (!RecordKey().isEmpty() && originals_.Count() == 0) status_.ShowNotice(u"选中的文件没有原文"_s);
  Browse();
}

void OriginalCommands::Scan() {
  if (const QString record = RecordKey(); !record.isEmpty()) Act(record, kScanOriginals);
}

void OriginalCommands::Delete() {
  const QString record = RecordKey(), file = originals_.CurrentId();
  if (record.isEmpty() || file.isEmpty()) return;
  if (ShowMessage(u"确定要删除当前原文吗?"_s, MessageFlag::YesNo | MessageFlag::Information,
                  originals_.window()->windowTitle()) != Answer::Yes)
    return;
  const BusyPointer busy;
  const QString left = DeleteOriginalsAndTell(u" Where ID = '"_s + EscapeSql(file) + u"' And RecordID = '"_s +
                                              EscapeSql(record) + u"'"_s);
  originals_.RemoveCurrent();
  status_.ShowNotice(left);
  if (originals_.Count() == 0) list_.ShowOriginals(false);
}

void OriginalCommands::Act(const QString& record, const QString& action, const QString& fileId,
                           const QStringList& files) {
  const int before = originals_.Count();
  OriginalFileAction(record, action, fileId, files);
  originals_.ShowOriginalsOf(record);
  list_.ShowOriginals(originals_.Count() > 0);
  if (const int added = originals_.Count() - before; added > 0) status_.ShowNotice(u"已加 %1 件原文"_s.arg(added));
}

}  // namespace folvane
