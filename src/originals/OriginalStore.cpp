#include "originals/OriginalStore.h"

#include <QFile>

#include "base/Surroundings.h"
#include "data/Recordset.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kLocationId = u"2002123456789"_s;

QString DefaultRoot() { return ProgramDirectory() + u"\\Data"_s; }

void ReadServerRoot(const Recordset& location) {
  if (!location.EOF_()) {
    Shared().OriginalRoot = location[u"Info_Type"_s].Text();
    return;
  }
  SharedConnection()->Execute(u"Insert Into Report_Info(Report_Id,Info_Type) Values('"_s + kLocationId + u"','')"_s);
  Shared().OriginalRoot.clear();
}

void ReadDirectoryRoot(const Recordset& location) {
  if (location.EOF_()) {
    SharedConnection()->Execute(u"Insert Into Report_Info(Report_Id,Info_Description) Values('"_s + kLocationId +
                                u"','"_s + DefaultRoot() + u"')"_s);
    Shared().OriginalRoot = DefaultRoot();
    return;
  }
  QString root = location[u"Info_Description"_s].Text();
  if (root.trimmed().isEmpty()) {
    SharedConnection()->Execute(u"Update Report_Info Set Info_Description='"_s + DefaultRoot() +
                                u"' Where Report_Id = '"_s + kLocationId + u"'"_s);
    root = DefaultRoot();
  } else if (root.endsWith(u'\\')) {
    root.chop(1);
  }
  Shared().OriginalRoot = root;
}

}  // namespace

bool OriginalsLieOnFtp() { return Shared().DatabaseKind == u"SQL SERVER"_s || Shared().DatabaseKind == u"SYSBASE"_s; }

void InitOriginalStore() {
  Recordset location;
  location.Open(u"Select Info_Description,Info_Type from Report_Info Where Report_Id = '"_s + kLocationId + u"'"_s,
                SharedConnection());
  if (OriginalsLieOnFtp()) {
    ReadServerRoot(location);
  } else {
    ReadDirectoryRoot(location);
  }
}

void DeleteOriginals(const QString& whereClause) {
  Recordset going, all;
  going.Open(u"Select ID,Type,FilePath,RecordID From Original_Text"_s + whereClause, SharedConnection());
  all.Open(u"Select * From Original_Text"_s, SharedConnection());
  for (; !going.EOF_(); going.MoveNext()) {
    const QString id = going[u"ID"_s].Text();
    if (!IsOnlyHolder(all, id, going[u"RecordID"_s].Text()) || OriginalsLieOnFtp()) continue;
    QFile::remove(OriginalPath(going[u"FilePath"_s].Text(), id, going[u"Type"_s].Text()));
  }
  going.Close();
  all.Close();
  SharedConnection()->Execute(u"Delete From Original_Text"_s + whereClause);
}

bool IsOnlyHolder(Recordset& originals, const QString& fileId, const QString& recordId) {
  originals.SetFilter(u"ID = '"_s + EscapeSql(fileId) + u"' And RecordID <> '"_s + EscapeSql(recordId) + u"'"_s);
  return originals.EOF_();
}

QString OriginalPath(const QString& filePath, const QString& fileId, const QString& type) {
  const QString directory = filePath.isEmpty() ? QString() : filePath + u'\\';
  QString path = Shared().OriginalRoot + u'\\' + directory + fileId + type;
  return ExistingPath(path.replace(u'\\', u'/'));
}

}  // namespace folvane
