#include "archiving/TransferTables.h"

#include "design/transfer/FieldTypes.h"
#include "shell/SharedState.h"
#include "shell/TableFields.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

bool IsBlank(const Field& field) { return field.Text().trimmed().isEmpty(); }

TransferTables::TransferTables(const TransferOrder& transfer) : order(transfer), format(SharedNumberFormat()) {
  ReadFieldMap();
  formatScopeClause = ScopeClauseOf(format);
  source.Open(order.sourceStatement, SharedConnection());
  destination.Open(u"Select * From "_s + order.destinationTable + u" Where 1 = 2"_s, SharedConnection());
  FindFields();
  ArchiveCounter = FirstCounter(destination, sequenceField, order.destinationTable, formatScopeClause);
  if (IsCounted() && CountsPages() && hasDocOrder && hasQuantity)
    PageCounter = FirstPage(order.destinationTable, formatScopeClause, ArchiveCounter);
}

void TransferTables::ReadFieldMap() {
  Recordset records;
  records.Open(
      u"Select * From DataTransfer_Details Where IniRecId = (Select RecId From "
      "DataTransfer_ini Where SourceTbl = '"_s +
          order.sourceTable + u"' And DesTbl = '"_s + order.destinationTable + u"')"_s,
      SharedConnection());
  for (; !records.EOF_(); records.MoveNext())
    ArchiveFieldMap.push_back(
        {records[u"SourceField"_s].Text(), records[u"DesField"_s].Text(), records[u"SourceChn"_s].Text()});
}

void TransferTables::FindFields() {
  hasInputDate = FieldExists(destination, u"InputDate"_s);
  hasFileStatus = FieldExists(source, u"FileStatus"_s);
  hasArchiveFlag = FieldExists(destination, u"ArchiveFlag"_s);
  hasDocOrder = FieldExists(destination, u"DocOrder"_s);
  hasQuantity = FieldExists(destination, u"Quantity"_s);
  sequenceField = SequenceFieldOf(format, hasDocOrder);
  for (MappedField& mapped : ArchiveFieldMap) {
    mapped.sourceIndex = source.Fields().IndexOf(mapped.SourceField);
    mapped.destinationIndex = destination.Fields().IndexOf(mapped.DesField);
  }
}

QString SequenceFieldOf(const NumberFormat& format, bool hasDocOrder) {
  return format.CountsPages() && hasDocOrder ? u"DocOrder"_s : format.itemField.name;
}

int FirstCounter(const Recordset& destination, const QString& field, const QString& table, const QString& scopeClause) {
  if (!IsCountableFieldType(destination[field].Type())) return kNoCounter;
  Recordset records;
  records.Open(u"Select Max("_s + field + u") From "_s + table + scopeClause, SharedConnection());
  const Field greatest = records.Fields().Item(0);
  return greatest.IsNull() ? 1 : CounterOf(NumberIn(greatest.Text()) + 1);
}

int FirstPage(const QString& table, const QString& scopeClause, int counter) {
  Recordset records;
  records.Open(u"Select PageNo,Quantity From "_s + table +
                   (scopeClause.isEmpty() ? u" Where "_s : scopeClause + u" And "_s) + u"DocOrder = '"_s +
                   QString::number(counter - 1) + u'\'',
               SharedConnection());
  if (records.EOF_() || IsBlank(records[u"PageNo"_s])) return 1;
  const Field quantity = records[u"Quantity"_s];
  const double pages = IsBlank(quantity) ? 1 : NumberIn(quantity.Text());
  return CounterOf(NumberIn(records[u"PageNo"_s].Text()) + pages);
}

}  // namespace folvane
