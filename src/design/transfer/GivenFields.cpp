#include "design/transfer/GivenFields.h"

#include <folvane/ArchiveRules.h>

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

// Where pages are counted, the place in the volume counts the records.
QString CounterField(const NumberFormat& format, const BusinessTable& table) {
  const QString last = format.parts.empty() ? QString() : format.parts.back().field;
  return IsSame(last, u"PageNo"_s) && table.Has(u"DocOrder"_s) ? u"DocOrder"_s : last;
}

}  // namespace

bool IsCounted(const NumberFormat& format, const BusinessTable& table) {
  const TableField* counter = table.Find(CounterField(format, table));
  return counter && counter->isThere && IsCountableFieldType(counter->adoType);
}

QString GivenByTransfer(const QString& field, const BusinessTable& destination, const NumberFormat* format) {
  if (IsSame(field, u"ArchiveID"_s)) return u"记录的主键由归档时产生，不能对应"_s;
  if (!format || format->parts.empty()) return {};
  if (!format->storeField.isEmpty()) {
    if (IsSame(field, format->storeField)) return u"档号由归档时组成，此对应不起作用"_s;
    if (IsSame(field, format->folderField)) return u"案卷号由归档时组成，此对应不起作用"_s;
    for (std::size_t at = 0; at + 1 < format->parts.size(); ++at)
      if (IsSame(field, format->parts[at].field)) return u"此字段的值由归档参数给出，此对应不起作用"_s;
  }
  if (!IsCounted(*format, destination)) return {};
  if (IsSame(field, CounterField(*format, destination))) return u"顺序号由归档时编排，此对应会覆盖它"_s;
  const bool countsPages = IsSame(format->parts.back().field, u"PageNo"_s) && destination.Has(u"DocOrder"_s) &&
                           destination.Has(u"Quantity"_s);
  return countsPages && IsSame(field, u"PageNo"_s) ? u"页号由归档时编排，此对应不起作用"_s : QString();
}

}  // namespace folvane::transfer
