#include "design/NumberExample.h"

#include "design/DesignedTransfers.h"
#include "design/Shape.h"
#include "design/transfer/NumberLength.h"
#include "design/transfer/NumberPiece.h"
#include "design/transfer/SampleValue.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

transfer::SampleSource SourceOf(const Design& design) {
  return {[&] { return design.fonds.empty() ? QString() : design.fonds.front().number; },
          [&] { return design.entityClasses.empty() ? QString() : design.entityClasses.front().number; },
          [&](const QString& name) {
            const Design::Dictionary* dictionary = FindNamed(design.dictionaries, name);
            return dictionary && !dictionary->entries.empty() ? dictionary->entries.front().text : QString();
          }};
}

QString CodeOf(const Design& design, const Design::Table& table, const QString& name, const QString& value) {
  const Design::Field* field = FindNamed(table.fields, name);
  const Design::Dictionary* dictionary = field ? FindNamed(design.dictionaries, field->dictionary) : nullptr;
  const Design::DictionaryEntry* entry = dictionary ? FindNamed(dictionary->entries, value) : nullptr;
  return entry ? entry->code : value;
}

QString FondsName(const Design& design, const QString& number) {
  const Design::Fonds* fonds = FindNamed(design.fonds, number);
  return fonds ? fonds->name : QString();
}

// As a transfer looks the value up.
QString ShownOf(const Design& design, const Design::Table& table, const NumberField& field) {
  if (IsFondsOrClass(field.name)) return field.showCode ? field.value : FondsName(design, field.value);
  return field.showCode ? CodeOf(design, table, field.name, field.value) : field.value;
}

}  // namespace

NumberExample ExampleOf(const Design& design, const Design::Table& table) {
  NumberExample example;
  if (table.numberParts.empty()) return example;
  transfer::BusinessTables tables = TablesOf(design, nullptr);
  const transfer::NumberFormat format = FormatOf(table);
  QStringList samples;
  for (std::size_t at = 0; at < format.parts.size(); ++at)
    samples << transfer::SampleValue(format, at, tables, SourceOf(design));
  QString number;
  for (const NumberField& field : transfer::NumberFieldsOf(format, format.parts.size(), samples)) {
    example.folder = WithoutFirstSeparator(number);
    number += field.separator + NumberPiece(field, ShownOf(design, table, field));
  }
  example.number = WithoutFirstSeparator(number);
  example.mostBytes = transfer::LengthOf(format, format.parts.size());
  return example;
}

}  // namespace folvane::design
