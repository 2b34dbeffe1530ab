#include "records/OriginalsOfRecord.h"

#include "data/Recordset.h"
#include "shell/SharedState.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

std::vector<OriginalEntry> ReadOriginals(const QString& recordKey) {
  Recordset rows;
  rows.Open(u"Select * from Original_Text Where RecordId='"_s + recordKey + u"'  Order By FileOrder"_s,
            SharedConnection());
  std::vector<OriginalEntry> originals;
  for (; !rows.EOF_(); rows.MoveNext()) {
    originals.push_back(
        {rows[u"ID"_s].Text(), rows[u"Original_Name"_s].Text(), rows[u"Type"_s].Text(), rows[u"Size"_s].Text()});
  }
  return originals;
}

bool HasOriginals(const QString& recordKey) {
  Recordset rows;
  rows.Open(u"Select * From Original_Text Where RecordID = '"_s + recordKey + u"'"_s, SharedConnection());
  return !rows.EOF_();
}

}  // namespace folvane
