#include "archiving/VolumeRecord.h"

#include <folvane/createdname.h>

#include "data/Recordset.h"
#include "shell/SharedState.h"
#include "shell/TableFields.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kKey = u"ArchiveID"_s;

void StoreIfThere(Recordset& records, const QString& field, const QVariant& value) {
  if (FieldExists(records, field)) records[field].SetValue(value);
}

// The fields of the parent that a record has, too, in the input of its own.
QStringList SharedFields(const VolumeOrder& order) {
  Recordset records;
  records.Open(u"Select FieldName From Dynamicwindows Where TableName = '"_s + order.parentTable +
                   u"' And FieldName in (SELECT FieldName From DynamicWindows WHERE (TableName = '"_s +
                   order.objectTable + u"') AND (ControlsType = 1))"_s,
               SharedConnection());
  QStringList fields;
  for (; !records.EOF_(); records.MoveNext()) fields << records.Fields().Item(0).Text();
  return fields;
}

void AddVolume(Recordset& volume, const VolumeOrder& order) {
  const QString title = order.askTitle();
  const QStringList shared = SharedFields(order);
  volume.AddNew();
  volume[kKey].SetValue(createdname().CreateName());
  QString number;
  for (const NumberField& field : order.format.fixedFields) {
    StoreIfThere(volume, field.name, field.value);
    number += field.separator + ComposeNoPiece(field, order.fieldText(field), order.dictionaryTable);
  }
  StoreIfThere(volume, order.storeField, WithoutFirstSeparator(number));
  StoreIfThere(volume, u"Amaintitle"_s, title);
  Recordset records;
  records.Open(u"Select * From "_s + order.objectTable + order.scopeClause, SharedConnection());
  for (const QString& field : shared) volume[field].SetValue(records[field].Value());
}

void StoreSums(Recordset& volume, const VolumeOrder& order) {
  Recordset sums;
  sums.Open(u"Select Sum(Quantity) as Sum1,Min(Createddate) as StartTime,Max(Createddate) as EndTime From "_s +
                order.objectTable + order.scopeClause,
            SharedConnection());
  StoreIfThere(volume, u"Quantity"_s, sums[u"Sum1"_s].Value());
  StoreIfThere(volume, u"DocStartDate"_s, sums[u"StartTime"_s].Value());
  StoreIfThere(volume, u"DocEndDate"_s, sums[u"EndTime"_s].Value());
}

}  // namespace

QString WriteVolumeRecord(const VolumeOrder& order) {
  Recordset volume;
  volume.Open(u"Select * From "_s + order.parentTable + order.scopeClause, SharedConnection());
  const bool isNew = volume.EOF_();
  if (isNew) AddVolume(volume, order);
  StoreSums(volume, order);
  volume.UpdateBatch(AffectKind::AllChapters);
  volume.UpdateBatch(AffectKind::Current);
  return isNew ? volume[kKey].Text().trimmed() : QString();
}

}  // namespace folvane
