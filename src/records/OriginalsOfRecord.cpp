#include "records/OriginalsOfRecord.h"

#include "catalogue/ReadRows.h"
#include "data/Recordset.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

std::vector<OriginalRow> ReadOriginals(const QString& recordKey) {
  return ReadRows<OriginalRow>(SharedConnection(), u"Select * from Original_Text Where RecordId='"_s +
                                                       EscapeSql(recordKey) + u"'  Order By FileOrder"_s);
}

bool HasOriginals(const QString& recordKey) {
  Recordset rows;
  rows.Open(u"Select * From Original_Text Where RecordID = '"_s + EscapeSql(recordKey) + u"'"_s, SharedConnection());
  return !rows.EOF_();
}

}  // namespace folvane
