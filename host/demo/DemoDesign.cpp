#include "host/demo/DemoDesign.h"

#include <algorithm>

#include <folvane/DataError.h>

#include "catalogue/Catalogue.h"
#include "catalogue/Ddl.h"
#include "catalogue/RowWriter.h"
#include "host/demo/TextLists.h"
#include "host/readymade/ReadyMade.h"

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

// The same seed makes the same keys: dictionaries came first of all, on the evening before the first record.
void WriteDictionaryKeys(Connection& connection, const Design& design) {
  constexpr int kDigits = 18;
  RowWriter rows(connection, u"AssistantDictionary"_s, {u"DicID"_s, u"Name"_s, u"ClassType"_s, u"IsSystem"_s});
  int number = 0;
  for (const Design::Dictionary& dictionary : design.dictionaries) {
    const QString key = u"20"_s + QString::number(++number).rightJustified(kDigits, u'0');
    rows.Add({key, dictionary.name, dictionary.kind, u"1"_s});
  }
  rows.Finish();
}

void AddSenders(Design& design) {
  const auto senders = std::find_if(design.dictionaries.begin(), design.dictionaries.end(),
                                    [](const Design::Dictionary& each) { return each.name == u"来文单位"_s; });
  int order = 0;
  for (const QStringList& line : ReadLines(u"senders.txt"_s))
    senders->entries.push_back({line[0], {}, QString::number(++order).rightJustified(3, u'0'), true});
}

}  // namespace

Design DemoDesign() {
  Design design = Joined(host::JoinedDesign({u"incoming"_s, u"outgoing"_s, u"archive-items"_s, u"archive-volumes"_s}),
                         ParseDesign(ReadData(u"demo.yaml"_s)));
  AddSenders(design);
  // Incoming documents go into the volumes here, and a table has one destination.
  std::erase_if(design.transfers,
                [](const Design::TransferMap& map) { return map.source == u"Lwdj"_s && map.destination == u"Gdwj"_s; });
  PutInOrder(design);
  return design;
}

void MakeTables(Connection& connection, const Design& design) {
  for (const Design::Table& table : design.tables) {
    if (!FindCatalogueTable(table.name) && HasTable(connection, table.name))
      throw DataError(DataErrorKind::Usage, u"数据库中已经有表“%1”。"_s.arg(table.name));
  }
  WriteDictionaryKeys(connection, design);
  ApplyDesign(connection, PlanDesign(connection, ReadDesign(connection), design));
}

void MakeIndexes(Connection& connection) {
  for (const auto& [table, field] : {std::pair{u"Lwdj"_s, u"CreatedDate"_s},
                                     {u"Fwdj"_s, u"CreatedDate"_s},
                                     {u"Fwdj"_s, u"DocNo"_s},
                                     {u"Wsda_Aj"_s, u"FolderNo"_s},
                                     {u"Gdwj"_s, u"ArchiveNo"_s}})
    CreateIndexes(connection, {table, {}, {}, {{field}}});
}

void DropTables(Connection& connection, const Design& design) {
  for (const Design::Table& table : design.tables)
    if (!FindCatalogueTable(table.name)) DropTable(connection, table.name);
}

}  // namespace folvane::demo
