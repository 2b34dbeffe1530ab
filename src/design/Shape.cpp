#include "design/Shape.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

// 题名 Amaintitle, or the name alone.
QString Named(const QString& word, const QString& caption, const QString& name) {
  if (caption.isEmpty() || caption == name) return word + u'“' + name + u'”';
  return word + u'“' + caption + u"”("_s + name + u')';
}

QString Joint(const QString& one, const QString& other) { return Folded(one) + u'\n' + Folded(other); }

}  // namespace

QString WithoutEndBlanks(QString text) {
  while (text.endsWith(u' ')) text.chop(1);
  return text;
}

QString Folded(const QString& name) { return WithoutEndBlanks(name).toLower(); }

const Members<Design::Class>& Shape<Design::Class>::Values() {
  static const Members<Design::Class> members{{"id", u"编号", &Design::Class::id},
                                              {"name", u"名称", &Design::Class::name},
                                              {"parent", u"上级", &Design::Class::parent}};
  return members;
}

QString Shape<Design::Class>::TitleOf(const Design::Class& item) {
  return Named(u"类别"_s, item.name, QString::number(item.id));
}

const Members<Design::Field>& Shape<Design::Field>::Values() {
  using Field = Design::Field;
  static const Members<Field> members{{"name", u"名称", &Field::name},
                                      {"caption", u"标题", &Field::caption},
                                      {"type", u"类型", &Field::type},
                                      {"length", u"长度", &Field::length},
                                      {"dictionary", u"字典", &Field::dictionary},
                                      {"required", u"必填", &Field::isRequired},
                                      {"fixed length", u"定长", &Field::isFixedLength},
                                      {"inherited", u"继承上级记录", &Field::isInherited},
                                      {"carried", u"沿用前一记录", &Field::isCarried}};
  return members;
}

QString Shape<Design::Field>::TitleOf(const Design::Field& item) { return Named(u"字段"_s, item.caption, item.name); }

const Members<Design::Control>& Shape<Design::Control>::Values() {
  using Control = Design::Control;
  static const Members<Control> members{
      {"field", u"字段", &Control::field},     {"type", u"控件类型", &Control::type},
      {"index", u"控件序号", &Control::index}, {"key", u"回车次序", &Control::keyOrder},
      {"left", u"左", &Control::left},         {"top", u"上", &Control::top},
      {"width", u"宽", &Control::width},       {"height", u"高", &Control::height}};
  return members;
}

QString Shape<Design::Control>::TitleOf(const Design::Control& item) {
  const QString control = u"%1 号 %2 类"_s.arg(item.index).arg(item.type);
  return item.field.isEmpty() ? u"控件("_s + control + u')' : u"字段“%1”的控件(%2)"_s.arg(item.field, control);
}

std::pair<int, QString> Shape<Design::Control>::PlaceOf(const Design::Control& item) {
  return {item.keyOrder, u"%1 %2"_s.arg(item.type, 11).arg(item.index, 11)};
}

const Members<Design::ListColumn>& Shape<Design::ListColumn>::Values() {
  using ListColumn = Design::ListColumn;
  static const Members<ListColumn> members{{"field", u"字段", &ListColumn::field},
                                           {"caption", u"标题", &ListColumn::caption},
                                           {"width", u"列宽", &ListColumn::width},
                                           {"order", u"次序", &ListColumn::order}};
  return members;
}

QString Shape<Design::ListColumn>::TitleOf(const Design::ListColumn& item) {
  return Named(u"列表的列"_s, item.caption, item.field);
}

const Members<Design::SearchField>& Shape<Design::SearchField>::Values() {
  using SearchField = Design::SearchField;
  static const Members<SearchField> members{{"field", u"字段", &SearchField::field},
                                            {"caption", u"标题", &SearchField::caption},
                                            {"type", u"输入框类型", &SearchField::type},
                                            {"index", u"输入框序号", &SearchField::index},
                                            {"order", u"次序", &SearchField::order}};
  return members;
}

QString Shape<Design::SearchField>::TitleOf(const Design::SearchField& item) {
  return Named(u"查询字段"_s, item.caption, item.field);
}

const Members<Design::NumberPart>& Shape<Design::NumberPart>::Values() {
  using NumberPart = Design::NumberPart;
  static const Members<NumberPart> members{{"field", u"字段", &NumberPart::field},
                                           {"caption", u"标题", &NumberPart::caption},
                                           {"separator", u"分隔符", &NumberPart::separator},
                                           {"code", u"显示代号", &NumberPart::showsCode},
                                           {"length", u"宽度", &NumberPart::length}};
  return members;
}

QString Shape<Design::NumberPart>::TitleOf(const Design::NumberPart& item) {
  return Named(u"档号段"_s, item.caption, item.field);
}

const Members<Design::Table>& Shape<Design::Table>::Values() {
  using Table = Design::Table;
  static const Members<Table> members{{"name", u"名称", &Table::name},
                                      {"caption", u"标题", &Table::caption},
                                      {"kind", u"种类", &Table::kind},
                                      {"class", u"所属类别", &Table::classId},
                                      {"parent", u"上级表", &Table::parent},
                                      {"relation", u"关联字段", &Table::relationField},
                                      {"number field", u"档号字段", &Table::numberField},
                                      {"folder number field", u"案卷号字段", &Table::folderNumberField}};
  return members;
}

QString Shape<Design::Table>::TitleOf(const Design::Table& item) { return Named(u"表"_s, item.caption, item.name); }

const Members<Design::DictionaryEntry>& Shape<Design::DictionaryEntry>::Values() {
  using Entry = Design::DictionaryEntry;
  static const Members<Entry> members{{"text", u"内容", &Entry::text},
                                      {"code", u"代号", &Entry::code},
                                      {"sort", u"排序", &Entry::sortKey},
                                      {"system", u"系统词条", &Entry::isSystem}};
  return members;
}

QString Shape<Design::DictionaryEntry>::TitleOf(const Design::DictionaryEntry& item) {
  return u"词条“%1”"_s.arg(item.text);
}

std::pair<int, QString> Shape<Design::DictionaryEntry>::PlaceOf(const Design::DictionaryEntry& item) {
  return {0, item.sortKey + u'\n' + KeyOf(item)};
}

const Members<Design::Dictionary>& Shape<Design::Dictionary>::Values() {
  using Dictionary = Design::Dictionary;
  static const Members<Dictionary> members{{"name", u"名称", &Dictionary::name},
                                           {"kind", u"种类", &Dictionary::kind},
                                           {"system", u"系统字典", &Dictionary::isSystem}};
  return members;
}

QString Shape<Design::Dictionary>::TitleOf(const Design::Dictionary& item) { return u"字典“%1”"_s.arg(item.name); }

const Members<Design::Fonds>& Shape<Design::Fonds>::Values() {
  static const Members<Design::Fonds> members{{"number", u"全宗号", &Design::Fonds::number},
                                              {"name", u"名称", &Design::Fonds::name}};
  return members;
}

QString Shape<Design::Fonds>::TitleOf(const Design::Fonds& item) { return u"全宗“%1”"_s.arg(item.number); }

const Members<Design::EntityClass>& Shape<Design::EntityClass>::Values() {
  using EntityClass = Design::EntityClass;
  static const Members<EntityClass> members{{"fonds", u"全宗号", &EntityClass::fonds},
                                            {"number", u"分类号", &EntityClass::number},
                                            {"name", u"名称", &EntityClass::name}};
  return members;
}

QString Shape<Design::EntityClass>::KeyOf(const Design::EntityClass& item) { return Joint(item.fonds, item.number); }

QString Shape<Design::EntityClass>::TitleOf(const Design::EntityClass& item) {
  return u"全宗“%1”的实体分类“%2”"_s.arg(item.fonds, item.number);
}

const Members<Design::Retention>& Shape<Design::Retention>::Values() {
  static const Members<Design::Retention> members{{"name", u"名称", &Design::Retention::name},
                                                  {"code", u"代号", &Design::Retention::code}};
  return members;
}

QString Shape<Design::Retention>::TitleOf(const Design::Retention& item) { return u"保管期限“%1”"_s.arg(item.name); }

const Members<Design::TransferLink>& Shape<Design::TransferLink>::Values() {
  using TransferLink = Design::TransferLink;
  static const Members<TransferLink> members{{"source", u"来源字段", &TransferLink::source},
                                             {"destination", u"目标字段", &TransferLink::destination},
                                             {"caption", u"标题", &TransferLink::caption}};
  return members;
}

QString Shape<Design::TransferLink>::KeyOf(const Design::TransferLink& item) {
  return Joint(item.destination, item.source);
}

QString Shape<Design::TransferLink>::TitleOf(const Design::TransferLink& item) {
  return u"字段对应“%1→%2”"_s.arg(item.source, item.destination);
}

const Members<Design::TransferMap>& Shape<Design::TransferMap>::Values() {
  static const Members<Design::TransferMap> members{{"source", u"来源表", &Design::TransferMap::source},
                                                    {"destination", u"目标表", &Design::TransferMap::destination}};
  return members;
}

QString Shape<Design::TransferMap>::KeyOf(const Design::TransferMap& item) {
  return Joint(item.source, item.destination);
}

QString Shape<Design::TransferMap>::TitleOf(const Design::TransferMap& item) {
  return u"归档对应“%1→%2”"_s.arg(item.source, item.destination);
}

const Members<Design::Report>& Shape<Design::Report>::Values() {
  using Report = Design::Report;
  static const Members<Report> members{{"id", u"编号", &Report::id},
                                       {"name", u"名称", &Report::name},
                                       {"group", u"所属", &Report::group},
                                       {"type", u"种类", &Report::type}};
  return members;
}

QString Shape<Design::Report>::TitleOf(const Design::Report& item) { return Named(u"报表"_s, item.name, item.id); }

const Members<Design::Rights>& Shape<Design::Rights>::Values() {
  using Rights = Design::Rights;
  static const Members<Rights> members{{"table", u"表", &Rights::table},
                                       {"words", u"说明", &Rights::words},
                                       {"edit", u"可修改", &Rights::mayEdit},
                                       {"print", u"可打印", &Rights::mayPrint},
                                       {"originals", u"可查看原文", &Rights::mayLookAtOriginals},
                                       {"condition", u"条件", &Rights::condition},
                                       {"condition fields", u"条件的字段", &Rights::conditionFields}};
  return members;
}

QString Shape<Design::Rights>::TitleOf(const Design::Rights& item) { return u"对表“%1”的权限"_s.arg(item.table); }

const Members<Design::User>& Shape<Design::User>::Values() {
  static const Members<Design::User> members{{"id", u"编号", &Design::User::id},
                                             {"name", u"姓名", &Design::User::name}};
  return members;
}

QString Shape<Design::User>::TitleOf(const Design::User& item) { return Named(u"用户"_s, item.name, item.id); }

}  // namespace folvane::design
