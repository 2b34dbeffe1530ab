#include "components/transfer/NumberExample.h"

#include <folvane/ArchiveRules.h>
#include <folvane/DataError.h>
#include <folvane/ResultSet.h>

#include "components/common/Quoted.h"
#include "design/transfer/NumberLength.h"
#include "design/transfer/SampleValue.h"

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;
using components::Quoted;

QString FirstValue(Connection& connection, const QString& statement) {
  const ResultSet rows(connection, statement);
  return rows.RowCount() > 0 ? rows.Text(0, 0) : QString();
}

}  // namespace

QString SampleValue(Connection& connection, const NumberFormat& format, std::size_t part, BusinessTables& tables) {
  const SampleSource source{
      [&] { return FirstValue(connection, u"Select FondsNo From FondsDefine Order By FondsNo"_s); },
      [&] { return FirstValue(connection, u"Select ClassNo From EntityClass Order By ClassNo"_s); },
      [&](const QString& dictionary) {
        return FirstValue(connection,
                          u"Select Name From AssistantDicKey Where DicID = (Select DicID From AssistantDictionary "
                          "Where Name=%1) Order By Note"_s.arg(Quoted(dictionary)));
      }};
  try {
    return SampleValue(format, part, tables, source);
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
