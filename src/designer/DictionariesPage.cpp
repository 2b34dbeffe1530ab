#include "designer/DictionariesPage.h"

#include <QSplitter>
#include <QVBoxLayout>
#include <set>

#include "design/TableEdits.h"
#include "designer/DesignGrid.h"
#include "designer/Labels.h"
#include "shell/EventGuard.h"
#include "widgets/KeptSizes.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

using Dictionary = Design::Dictionary;
using Entry = Design::DictionaryEntry;

const QString kSizesName = u"FrmDesigner.DictionariesPage"_s;
const QString kUsualKind = u"2 - 字符型"_s;

// A text that is not in the list yet: the word itself, or with a number behind it.
template <class Thing>
QString FreeText(const std::vector<Thing>& things, const QString& word) {
  QString text = word;
  for (int number = 2; design::FindNamed(things, text); ++number) text = word + QString::number(number);
  return text;
}

QString SortKey(std::size_t number) { return QString::number(number).rightJustified(3, u'0'); }

QString NextSortKey(const std::vector<Entry>& entries) {
  int highest = 0;
  for (const Entry& entry : entries) highest = std::max(highest, entry.sortKey.toInt());
  return SortKey(std::size_t(highest) + 1);
}

void NumberEntries(std::vector<Entry>& entries) {
  for (std::size_t at = 0; at < entries.size(); ++at) entries[at].sortKey = SortKey(at + 1);
}

QString UsesOf(const Design& design, const Dictionary& dictionary) {
  QStringList uses;
  for (const Design::Table& table : design.tables)
    for (const Design::Field& field : table.fields)
      if (design::IsSame(field.dictionary, dictionary.name))
        uses << (table.caption.isEmpty() ? table.name : table.caption) + u'.' +
                    (field.caption.isEmpty() ? field.name : field.caption);
  return uses.join(u'、');
}

QStringList KindsOf(const Design& design) {
  std::set<QString> kinds{kUsualKind};
  for (const Dictionary& dictionary : design.dictionaries)
    if (!dictionary.kind.isEmpty()) kinds.insert(dictionary.kind);
  return {kinds.begin(), kinds.end()};
}

ThingColumn<Entry> EntryText() {
  auto text = ColumnOf(&Entry::text, 28);
  text.write = [](Design&, Entry& entry, const QVariant& value) {
    entry.text = value.toString().trimmed();
    if (entry.text.isEmpty()) throw DataError(DataErrorKind::Usage, u"词条没有内容。"_s);
  };
  return text;
}

}  // namespace

DictionariesPage::DictionariesPage(DesignSession& session)
    : DesignPage(session, u"DictionariesPage"_s), beside_(new QSplitter) {
  dictionaries_ = new DesignGrid(NewDictionaries(), u"GrdDictionaries"_s, u"字典(&D)"_s,
                                 u"还没有字典。\n按 Ins 增加一个。"_s, this);
  entries_ = new DesignGrid(NewEntries(), u"GrdEntries"_s, u"词条(&E)"_s,
                            u"字典还没有词条。\n按 Ins 增加一个，或粘贴从电子表格复制的词条。"_s, this);
  beside_->setObjectName(u"SplDictionaries"_s);
  beside_->setChildrenCollapsible(false);
  beside_->addWidget(dictionaries_);
  beside_->addWidget(entries_);
  RestoreSizes(*beside_, kSizesName, {460, 440});
  auto* down = new QVBoxLayout(this);
  down->addWidget(beside_, 1);
  down->addWidget(
      NewHint(u"字段在“字段”中选用字典；字典改名时字段随之更改。词条按排序号列出，代号用在档号中。"_s, this));
  setFocusProxy(dictionaries_);
  ConnectGuarded(dictionaries_, &DesignGrid::CurrentRowChanged, this, [this] { entries_->Refresh(); });
}

DictionariesPage::~DictionariesPage() { KeepSizes(*beside_, kSizesName); }

void DictionariesPage::Refresh() { dictionaries_->Refresh(); }

int DictionariesPage::Current() const { return dictionaries_->CurrentRow(); }

void DictionariesPage::ShowDictionary(const QString& name) {
  const std::vector<Dictionary>& all = Session().Wanted().dictionaries;
  dictionaries_->Refresh();
  if (const Dictionary* found = design::FindNamed(all, name)) dictionaries_->GoTo(int(found - all.data()));
}

GridModel* DictionariesPage::NewDictionaries() {
  ThingRules<Dictionary> rules;
  rules.locate = [](const Design& design) { return &design.dictionaries; };
  rules.fresh = [](const Design& design) {
    return Dictionary{FreeText(design.dictionaries, u"新字典"_s), kUsualKind, false, {}};
  };
  rules.remove = [this](Design& wanted, const Dictionary& dictionary) {
    if (const int uses = design::RemoveDictionary(wanted, dictionary.name))
      Q_EMIT Session().Told(u"字典“%1”已删去，用它的 %2 个字段不再有可选的词条。"_s.arg(dictionary.name).arg(uses));
  };
  auto name = ColumnOf(&Dictionary::name, 18);
  name.write = [](Design& wanted, Dictionary& dictionary, const QVariant& value) {
    const QString to = value.toString().trimmed();
    if (const Dictionary* other = design::FindNamed(wanted.dictionaries, to); other && other != &dictionary)
      throw DataError(DataErrorKind::Usage, u"已有字典“%1”。"_s.arg(to));
    design::RenameDictionary(wanted, QString(dictionary.name), to);
  };
  auto kind = ChoiceOf(
      &Dictionary::kind, 14, [this](int) { return KindsOf(Session().Wanted()); }, GridColumn::Kind::FreeChoice);
  ThingColumn<Dictionary> uses;
  uses.look = {u"用于"_s, GridColumn::Kind::Text, 24, {}, u"用这个字典的字段"_s};
  uses.read = [this](const Dictionary& dictionary) { return UsesOf(Session().Wanted(), dictionary); };
  return new ThingModel<Dictionary>(Session(), rules, {name, kind, uses}, this);
}

GridModel* DictionariesPage::NewEntries() {
  ThingRules<Entry> rules;
  rules.locate = [this](const Design& design) -> const std::vector<Entry>* {
    const int current = Current();
    return current >= 0 && std::size_t(current) < design.dictionaries.size()
               ? &design.dictionaries[std::size_t(current)].entries
               : nullptr;
  };
  rules.fresh = [this](const Design& design) {
    const std::vector<Entry>& entries = design.dictionaries[std::size_t(Current())].entries;
    return Entry{FreeText(entries, u"新词条"_s), {}, NextSortKey(entries), false};
  };
  rules.number = NumberEntries;
  auto sortKey = ColumnOf(&Entry::sortKey, 8);
  sortKey.look.tip = u"词条按它列出；上移、下移时重新编排"_s;
  auto system = ColumnOf(&Entry::isSystem, 8);
  system.look.tip = u"系统自带的词条"_s;
  system.write = nullptr;
  return new ThingModel<Entry>(Session(), rules, {EntryText(), ColumnOf(&Entry::code, 10), sortKey, system}, this);
}

}  // namespace folvane::designer
