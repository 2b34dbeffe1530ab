#include "archiving/TransferForecast.h"

#include <optional>

#include "archiving/ArchiveFormat.h"
#include "archiving/TransferTables.h"
#include "shell/SharedState.h"
#include "shell/TableFields.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// The value of the item's field in the first record; none where the record itself gives it.
std::optional<int> FirstItem(const NumberFormat& format, const QString& table) {
  Recordset destination;
  destination.Open(u"Select * From "_s + table + u" Where 1 = 2"_s, SharedConnection());
  const bool hasDocOrder = FieldExists(destination, u"DocOrder"_s);
  const bool hasQuantity = FieldExists(destination, u"Quantity"_s);
  const QString scope = ScopeClauseOf(format);
  const QString field = SequenceFieldOf(format, hasDocOrder);
  const int counter = FirstCounter(destination, field, table, scope);
  if (counter == kNoCounter) return {};
  if (field == format.itemField.name) return counter;
  if (!hasQuantity) return {};
  return FirstPage(table, scope, counter);
}

}  // namespace

QString ForecastText(const QString& destination, const ShownFields& entered, int records) {
  const NumberFormat format = WithValues(SharedNumberFormat(), entered);
  if (format.itemField.name.isEmpty()) return u"目标库“%1”没有设置档号格式，不能归档"_s.arg(destination);
  const QString going = records == 0 ? u"请勾选要归档的文件"_s : u"将归档 %1 份文件"_s.arg(records);
  if (HasBlankParameter(entered)) return going + u"；录入各字段后，这里显示首件档号"_s;
  if (format.storeField.isEmpty()) return going + u"；目标库不形成档号"_s;
  const QString volume = WithoutFirstSeparator(FixedPieces(format, destination));
  const QString beginning = WithoutFirstSeparator(FixedPieces(format, destination) + format.itemField.separator);
  const std::optional<int> item = FirstItem(format, destination);
  const QString first =
      beginning + (item ? ComposeNoPiece(format.itemField, QString::number(*item), destination) : u"…"_s);
  return going + (volume.isEmpty() ? QString() : u"，归入“%1”"_s.arg(volume)) + u"，首件档号“%1”"_s.arg(first);
}

}  // namespace folvane
