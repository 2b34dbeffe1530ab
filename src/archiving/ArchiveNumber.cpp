#include "archiving/ArchiveNumber.h"

#include <folvane/ClsCodeConvert.h>

#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QString KeyCodeOf(const QString& table, const QString& field, const QString& value) {
  Recordset records;
  records.Open(
      u"Select KeyCode From AssistantDicKey Where DicID = (Select DicID From AssistantDictionary "
      "Where Name=(Select AuxiDictDetails From Dynamicwindows Where TableName = '"_s +
          table + u"' And FieldName = '"_s + field + u"')) ANd Name = "_s + UnescapedLiteral(value),
      SharedConnection());
  return records.EOF_() ? value : records[u"KeyCode"_s].Text();
}

}  // namespace

bool NumberFormat::HasFolder() const { return folderField != u"(无)"; }

NumberFormat SharedNumberFormat() {
  const SharedState& shared = Shared();
  NumberFormat format;
  format.storeField = shared.ArchNoStoreField;
  format.folderField = shared.ArchNoFolderField;
  for (qsizetype i = 1; i < shared.ArchNoFieldName.size(); ++i) {
    format.fixedFields.push_back({shared.ArchNoFieldName[i], shared.ArchNoFieldValue.value(i),
                                  shared.ArchNoSeparator.value(i), shared.ArchNoShowCode.value(i),
                                  shared.ArchNoLength.value(i)});
  }
  if (format.fixedFields.empty()) return format;
  format.itemField = format.fixedFields.back();
  format.fixedFields.pop_back();
  return format;
}

QString ScopeClauseOf(const NumberFormat& format) {
  QString clause;
  for (const NumberField& field : format.fixedFields)
    clause += u" And "_s + field.name + u" = "_s + UnescapedLiteral(field.value);
  return clause.isEmpty() ? clause : u" Where "_s + clause.mid(5);
}

QString LookupCodeName(int kind, const QString& code) {
  return kind == 1 || kind == 2 ? ClsCodeConvert().ConvertChn(qint16(kind), code) : QString();
}

QString ComposeNoPiece(const NumberField& field, const QString& value, const QString& table) {
  if (IsFondsOrClass(field.name)) return NumberPiece(field, field.showCode ? value : LookupCodeName(1, value));
  return NumberPiece(field, field.showCode ? KeyCodeOf(table, field.name, value) : value);
}

QString FixedPieces(const NumberFormat& format, const QString& table) {
  QString number;
  for (const NumberField& field : format.fixedFields)
    number += field.separator + ComposeNoPiece(field, field.value, table);
  return number;
}

}  // namespace folvane
