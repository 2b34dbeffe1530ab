#include "design/RandomDesign.h"

#include <QSet>

#include "base/CodePage.h"
#include "design/Names.h"
#include "design/Shape.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

// Words that files, statements and databases might take for something else.
const QStringList kPieces{u"题名"_s, u"'"_s,    u"''"_s,  u"\""_s, u": "_s,     u"- "_s,     u"#"_s,     u" #"_s,
                          u"%"_s,    u"\\"_s,   u"\n"_s,  u"\t"_s, u"\r\n"_s,   u"true"_s,   u"0188"_s,  u"1e5"_s,
                          u"~"_s,    u"null"_s, u"["_s,   u"]"_s,  u"{"_s,      u"}"_s,      u","_s,     u"&"_s,
                          u"*"_s,    u"!"_s,    u"|"_s,   u">"_s,  u"@"_s,      u"`"_s,      u"--"_s,    u"/*"_s,
                          u"?"_s,    u"$1"_s,   u"；"_s,  u"　"_s, u"A"_s,      u"z"_s,      u"😀"_s,     u"é"_s,
                          u" "_s,    u"..."_s,  u"---"_s, u"。"_s, u"\u0001"_s, u"\u0085"_s, u"\u2028"_s};

QString Shortened(QString text, int mostBytes) {
  while (ByteLength(text) > mostBytes) text.chop(text.back().isLowSurrogate() ? 2 : 1);
  return design::WithoutEndBlanks(text);
}

// Each as a name, once.
class Names {
 public:
  explicit Names(Dice& dice) : dice_(dice) {}

  QString Next() {
    for (;;) {
      QString name;
      static const QStringList pieces{u"A"_s, u"b"_s, u"_"_s, u"7"_s, u"题"_s, u"卷"_s, u"ID"_s, u"Note"_s};
      for (int left = dice_.Between(1, dice_.OneIn(8) ? 20 : 4); left > 0; --left) name += dice_.AnyOf(pieces);
      if (!design::NameComplaint(name).isEmpty() || taken_.contains(design::Folded(name))) continue;
      taken_ << design::Folded(name);
      return name;
    }
  }

 private:
  Dice& dice_;
  QSet<QString> taken_;
};

// Calls `make` so often, and keeps what has a key of its own.
template <class Item, class Make>
std::vector<Item> Some(Dice& dice, int most, Make make) {
  std::vector<Item> items;
  for (int left = dice.Between(0, most); left > 0; --left) {
    const Item item = make();
    if (!design::FindSame(items, item)) items.push_back(item);
  }
  return items;
}

QString NonEmpty(Dice& dice, int mostBytes) {
  const QString text = RandomText(dice, mostBytes);
  return text.isEmpty() ? u"x"_s : text;
}

int RandomNumber(Dice& dice) { return dice.OneIn(10) ? dice.Between(-2147483647, 2147483646) : dice.Between(0, 12); }

Design::Field RandomField(Dice& dice, const QString& name) {
  static const QStringList types{u"数值型"_s,     u"自动编号"_s,   u"数字型"_s, u"时间型"_s,
                                 u"日期型"_s,     u"档案日期型"_s, u"文本型"_s, u"文件编号型"_s,
                                 u"机关代字型"_s, u""_s,           u"别的"_s};
  Design::Field field{name, RandomText(dice, 100), dice.AnyOf(types), dice.Between(0, 300), RandomText(dice, 100)};
  if (dice.OneIn(10)) field.length = dice.Between(-5, 100000);
  for (bool* flag : {&field.isRequired, &field.isFixedLength, &field.isInherited, &field.isCarried})
    *flag = dice.OneIn(3);
  return field;
}

void AddLayout(Design::Table& table, Dice& dice) {
  table.controls = Some<Design::Control>(dice, 6, [&]() -> Design::Control {
    return {RandomText(dice, 50), RandomNumber(dice), RandomNumber(dice), RandomNumber(dice),
            RandomNumber(dice),   RandomNumber(dice), RandomNumber(dice), RandomNumber(dice)};
  });
  table.columns = Some<Design::ListColumn>(dice, 5, [&]() -> Design::ListColumn {
    return {NonEmpty(dice, 50), RandomText(dice, 100), RandomNumber(dice), RandomNumber(dice)};
  });
  table.searchFields = Some<Design::SearchField>(dice, 5, [&]() -> Design::SearchField {
    return {NonEmpty(dice, 50), RandomText(dice, 100), RandomNumber(dice), RandomNumber(dice), RandomNumber(dice)};
  });
  for (int left = dice.Between(0, 4); left > 0; --left)
    table.numberParts.push_back({RandomText(dice, 50), RandomText(dice, 100),
                                 dice.OneIn(3) ? u" "_s : RandomText(dice, 10), dice.OneIn(2), RandomNumber(dice)});
  if (table.numberParts.empty()) return;
  table.numberField = RandomText(dice, 50);
  table.folderNumberField = dice.OneIn(2) ? u"(无)"_s : RandomText(dice, 50);
}

Design::Table RandomTable(Dice& dice, const QString& name) {
  Design::Table table;
  table.name = name;
  table.caption = RandomText(dice, 100);
  table.classId = dice.OneIn(4) ? 0 : dice.Between(1, 6);
  if (table.classId != 0) {
    table.parent = RandomText(dice, 50);
    table.relationField = RandomText(dice, 50);
  }
  const bool isMentionedOnly = table.classId != 0 && dice.OneIn(8);
  if (!isMentionedOnly) table.kind = dice.AnyOf(QStringList{u"F"_s, u"A"_s, u""_s, u"L"_s});
  Names names(dice);
  for (int left = isMentionedOnly ? 0 : dice.Between(1, 8); left > 0; --left)
    table.fields.push_back(RandomField(dice, dice.OneIn(12) ? u"ArchiveID"_s + names.Next() : names.Next()));
  if (!table.fields.empty() && dice.OneIn(5)) table.fields.back().name = u"ArchiveID"_s;
  if (!table.fields.empty() && table.classId != 0 && dice.OneIn(3)) table.relationField = table.fields.front().name;
  AddLayout(table, dice);
  return table;
}

Design::User RandomUser(Dice& dice) {
  Design::User user{RandomText(dice, 20), RandomText(dice, 50), {}};
  user.rights = Some<Design::Rights>(dice, 3, [&]() -> Design::Rights {
    Design::Rights rights{RandomText(dice, 50),
                          RandomText(dice, 255),
                          dice.OneIn(2),
                          dice.OneIn(2),
                          dice.OneIn(2),
                          RandomText(dice, 500),
                          {}};
    for (int left = dice.Between(0, 3); left > 0; --left)
      if (const QString field = RandomText(dice, 50); !rights.conditionFields.contains(field, Qt::CaseInsensitive))
        rights.conditionFields << field;
    return rights;
  });
  return user;
}

void AddDictionaries(Design& design, Dice& dice) {
  design.dictionaries = Some<Design::Dictionary>(dice, 4, [&]() -> Design::Dictionary {
    Design::Dictionary dictionary{NonEmpty(dice, 100), RandomText(dice, 20), dice.OneIn(2), {}};
    dictionary.entries = Some<Design::DictionaryEntry>(dice, 6, [&]() -> Design::DictionaryEntry {
      return {RandomText(dice, 200), RandomText(dice, 20), RandomText(dice, 50), dice.OneIn(2)};
    });
    return dictionary;
  });
}

}  // namespace

QString RandomText(Dice& dice, int mostBytes) {
  QString text;
  const int pieces = dice.OneIn(12) ? mostBytes : dice.Between(0, 6);
  for (int left = pieces; left > 0; --left) text += dice.AnyOf(kPieces);
  return Shortened(text, mostBytes);
}

Design RandomDesign(Dice& dice) {
  Design design;
  design.classes = Some<Design::Class>(dice, 6, [&]() -> Design::Class {
    return {RandomNumber(dice), RandomText(dice, 100), RandomNumber(dice)};
  });
  Names names(dice);
  for (int left = dice.Between(0, 5); left > 0; --left) design.tables.push_back(RandomTable(dice, names.Next()));
  AddDictionaries(design, dice);
  design.fonds = Some<Design::Fonds>(dice, 3, [&]() -> Design::Fonds {
    return {RandomText(dice, 20), RandomText(dice, 100)};
  });
  design.entityClasses = Some<Design::EntityClass>(dice, 3, [&]() -> Design::EntityClass {
    return {RandomText(dice, 20), RandomText(dice, 20), RandomText(dice, 100)};
  });
  design.retentions = Some<Design::Retention>(dice, 3, [&]() -> Design::Retention {
    return {RandomText(dice, 50), RandomText(dice, 20)};
  });
  design.transfers = Some<Design::TransferMap>(dice, 3, [&]() -> Design::TransferMap {
    return {RandomText(dice, 50), RandomText(dice, 50),
            Some<Design::TransferLink>(dice, 4, [&]() -> Design::TransferLink {
              return {RandomText(dice, 50), RandomText(dice, 50), RandomText(dice, 100)};
            })};
  });
  design.reports = Some<Design::Report>(dice, 3, [&]() -> Design::Report {
    return {RandomText(dice, 20), RandomText(dice, 100), RandomText(dice, 50), RandomText(dice, 2)};
  });
  design.users = Some<Design::User>(dice, 3, [&] { return RandomUser(dice); });
  PutInOrder(design);
  return design;
}

Design WorkedOn(const Design& design, Dice& dice) {
  Design worked = RandomDesign(dice);
  for (const Design::Table& before : design.tables) {
    if (dice.OneIn(3)) continue;
    std::erase_if(worked.tables, [&](const Design::Table& table) { return design::IsSame(table.name, before.name); });
    Design::Table table = before;
    if (table.fields.size() > 1 && dice.OneIn(2)) table.fields.erase(table.fields.begin());
    for (Design::Field& field : table.fields) {
      const QString type = field.type;
      if (dice.OneIn(3)) field = RandomField(dice, field.name);
      field.type = type;  // what numbers and dates are stay what they are
    }
    if (dice.OneIn(3)) table.controls.clear();
    if (dice.OneIn(3)) std::reverse(table.numberParts.begin(), table.numberParts.end());
    worked.tables.push_back(table);
  }
  for (const Design::Dictionary& before : design.dictionaries)
    if (!design::FindSame(worked.dictionaries, before) && !dice.OneIn(3)) worked.dictionaries.push_back(before);
  for (const Design::User& before : design.users)
    if (!design::FindSame(worked.users, before) && !dice.OneIn(3)) worked.users.push_back(before);
  PutInOrder(worked);
  return worked;
}

}  // namespace folvane::test
