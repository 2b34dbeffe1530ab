#include "components/transfer/NumberExample.h"

#include <folvane/ArchiveRules.h>
#include <folvane/DataError.h>
#include <folvane/HostServices.h>
#include <folvane/ResultSet.h>

#include "components/common/Quoted.h"
#include "design/transfer/NumberLength.h"

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;
using components::Quoted;

QString FirstValue(Connection& connection, const QString& statement) {
  const ResultSet rows(connection, statement);
  return rows.RowCount() > 0 ? rows.Text(0, 0) : QString();
}

QString KnownValue(Connection& connection, const TableField& field) {
  if (IsSame(field.name, u"FondsNo"_s))
    return FirstValue(connection, u"Select FondsNo From FondsDefine Order By FondsNo"_s);
  if (IsSame(field.name, u"AecNo"_s))
    return FirstValue(connection, u"Select ClassNo From EntityClass Order By ClassNo"_s);
  if (!field.dictionary.isEmpty())
    return FirstValue(connection,
                      u"Select Name From AssistantDicKey Where DicID = (Select DicID From AssistantDictionary "
                      "Where Name=%1) Order By Note"_s.arg(Quoted(field.dictionary)));
  const bool isYear = field.name.endsWith(u"Year"_s, Qt::CaseInsensitive) || field.caption.contains(u'年');
  if (isYear) return Services().now().toString(u"yyyy"_s);
  return field.typeWord.contains(u"日期"_s) ? Services().now().toString(u"yyyy-MM-dd"_s) : QString();
}

}  // namespace

QString SampleValue(Connection& connection, const NumberFormat& format, std::size_t part, BusinessTables& tables) {
  const TableField* field = tables.Get(format.table).Find(format.parts[part].field);
  if (!field || part + 1 == format.parts.size()) return u"1"_s;
  try {
    const QString known = KnownValue(connection, *field);
    return known.isEmpty() ? u"1"_s : known;
  } catch (const DataError& error) {
    if (error.Kind() != DataErrorKind::Statement) throw;
    return u"1"_s;  // an office without that table
  }
}

QString ExampleNumber(const NumberFormat& format, const QStringList& values) {
  return ComposeArchiveNumber(NumberFieldsOf(format, format.parts.size(), values), format.table);
}

QString ExampleFolder(const NumberFormat& format, const QStringList& values) {
  return format.parts.size() < 2
             ? QString()
             : ComposeArchiveNumber(NumberFieldsOf(format, format.parts.size() - 1, values), format.table);
}

}  // namespace folvane::transfer
