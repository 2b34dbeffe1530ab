#include "design/transfer/SampleValue.h"

#include <folvane/HostServices.h>

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

QString KnownValue(const TableField& field, const SampleSource& source) {
  if (IsSame(field.name, u"FondsNo"_s)) return source.firstFonds();
  if (IsSame(field.name, u"AecNo"_s)) return source.firstClass();
  if (!field.dictionary.isEmpty()) return source.firstEntry(field.dictionary);
  const bool isYear = field.name.endsWith(u"Year"_s, Qt::CaseInsensitive) || field.caption.contains(u'年');
  if (isYear) return Services().now().toString(u"yyyy"_s);
  return field.typeWord.contains(u"日期"_s) ? Services().now().toString(u"yyyy-MM-dd"_s) : QString();
}

}  // namespace

QString SampleValue(const NumberFormat& format, std::size_t part, BusinessTables& tables, const SampleSource& source) {
  const TableField* field = tables.Get(format.table).Find(format.parts[part].field);
  if (!field || part + 1 == format.parts.size()) return u"1"_s;
  const QString known = KnownValue(*field, source);
  return known.isEmpty() ? u"1"_s : known;
}

}  // namespace folvane::transfer
