#include "flows/SheetChanges.h"

#include <QStringList>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

void AddChange(QStringList& changes, const std::vector<GridColumn>& columns, const QString& field,
               const QString& before, const QString& now) {
  if (before != now) changes << u"%1由“%2”改为“%3”"_s.arg(CaptionOf(columns, field), before, now);
}

}  // namespace

QString ChangesInWords(const Flow& flow, const HeadValues& before, const HeadValues& now) {
  QStringList changes;
  for (const auto& [column, value] : flow.headUpdate) {
    AddChange(changes, flow.headColumns, column.section(u'=', 0, 0).trimmed(), before.*value, now.*value);
  }
  return changes.join(u'，');
}

QString ChangesInWords(const Flow& flow, const DetailValues& before, const DetailValues& now) {
  const std::vector<std::pair<QString, QString DetailValues::*>> fields{
      {u"File_ID"_s, &DetailValues::serial},
      {u"Lead_Unit"_s, &DetailValues::unit},
      {flow.detailDate, &DetailValues::date},
      {u"Quantity"_s, &DetailValues::quantity},
      {u"Transact_Mode"_s, &DetailValues::mode},
      {u"Is_Back"_s, &DetailValues::isBack},
      {u"Back_Date"_s, &DetailValues::backDate},
      {u"Real_BackDate"_s, &DetailValues::realBackDate},
      {u"Back_Quantity"_s, &DetailValues::backQuantity},
      {u"Transact_Result"_s, &DetailValues::result}};
  QStringList changes;
  for (const auto& [field, value] : fields) AddChange(changes, flow.detailColumns, field, before.*value, now.*value);
  return changes.join(u'，');
}

}  // namespace folvane
