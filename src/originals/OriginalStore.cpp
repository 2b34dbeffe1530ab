#include "originals/OriginalStore.h"

#include "data/Recordset.h"
#include "originals/OriginalFiles.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// The database kind that the host named says where the files lie.
std::unique_ptr<OriginalFiles> FilesInUse() {
  const QString& kind = Shared().DatabaseKind;
  return kind == u"SQL SERVER"_s || kind == u"SYSBASE"_s ? FtpOriginals() : DirectoryOriginals();
}

}  // namespace

void InitOriginalStore() {
  Recordset setting;
  setting.Open(u"Select Info_Description,Info_Type from Report_Info Where Report_Id = '"_s + kOriginalSetting + u"'"_s,
               SharedConnection());
  Shared().OriginalRoot = FilesInUse()->Root(setting);
}

void DeleteOriginals(const QString& whereClause) {
  const std::unique_ptr<OriginalFiles> files = FilesInUse();
  Recordset going, all;
  going.Open(u"Select ID,Type,FilePath,RecordID From Original_Text"_s + whereClause, SharedConnection());
  all.Open(u"Select * From Original_Text"_s, SharedConnection());
  for (; !going.EOF_(); going.MoveNext()) {
    const QString id = going[u"ID"_s].Text();
    if (IsOnlyHolder(all, id, going[u"RecordID"_s].Text()))
      files->Remove(going[u"FilePath"_s].Text(), id, going[u"Type"_s].Text());
  }
  going.Close();
  all.Close();
  SharedConnection()->Execute(u"Delete From Original_Text"_s + whereClause);
}

bool IsOnlyHolder(Recordset& originals, const QString& fileId, const QString& recordId) {
  originals.SetFilter(u"ID = '"_s + EscapeSql(fileId) + u"' And RecordID <> '"_s + EscapeSql(recordId) + u"'"_s);
  return originals.EOF_();
}

}  // namespace folvane
