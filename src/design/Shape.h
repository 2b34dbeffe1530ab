#pragma once

#include <QString>
#include <QStringList>
#include <algorithm>
#include <utility>
#include <variant>
#include <vector>

#include <folvane/Design.h>

// What a design consists of, told once: reading, writing, comparing and joining designs go by it.
namespace folvane::design {

/// A name as databases compare it: without regard to case and to blanks at the end.
QString Folded(const QString& name);
QString WithoutEndBlanks(QString text);
inline bool IsSame(const QString& one, const QString& other) { return Folded(one) == Folded(other); }

/// A member that is a single value: what it is called in the file and in sentences.
template <class T>
struct Member {
  const char* key;
  const char16_t* word;
  std::variant<QString T::*, int T::*, bool T::*, QStringList T::*> member;
};

template <class T>
using Members = std::vector<Member<T>>;

/// What a thing of a design is like. Each has Values, its single values; Lists, which shows the visitor each list of
/// things within it: key, word and member; and, short of the design itself, KeyOf, by which it is known within its
/// list, and TitleOf, which names it in sentences. kIsInOrder says that the order of the list means something.
template <class T>
struct Shape;

template <>
struct Shape<Design::Class> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::Class>& Values();
  static QString KeyOf(const Design::Class& item) { return QString::number(item.id); }
  static QString TitleOf(const Design::Class& item);
  static std::pair<int, QString> PlaceOf(const Design::Class& item) { return {item.id, {}}; }
  template <class Visit>
  static void Lists(Visit&&) {}
};

template <>
struct Shape<Design::Field> {
  static constexpr bool kIsInOrder = true;
  static const Members<Design::Field>& Values();
  static QString KeyOf(const Design::Field& item) { return Folded(item.name); }
  static QString TitleOf(const Design::Field& item);
  template <class Visit>
  static void Lists(Visit&&) {}
};

template <>
struct Shape<Design::Control> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::Control>& Values();
  static QString KeyOf(const Design::Control& item) {
    return QString::number(item.type) + QLatin1Char(' ') + QString::number(item.index);
  }
  static QString TitleOf(const Design::Control& item);
  static std::pair<int, QString> PlaceOf(const Design::Control& item);
  template <class Visit>
  static void Lists(Visit&&) {}
};

template <>
struct Shape<Design::ListColumn> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::ListColumn>& Values();
  static QString KeyOf(const Design::ListColumn& item) { return Folded(item.field); }
  static QString TitleOf(const Design::ListColumn& item);
  static std::pair<int, QString> PlaceOf(const Design::ListColumn& item) { return {item.order, KeyOf(item)}; }
  template <class Visit>
  static void Lists(Visit&&) {}
};

template <>
struct Shape<Design::SearchField> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::SearchField>& Values();
  static QString KeyOf(const Design::SearchField& item) { return Folded(item.field); }
  static QString TitleOf(const Design::SearchField& item);
  static std::pair<int, QString> PlaceOf(const Design::SearchField& item) { return {item.order, KeyOf(item)}; }
  template <class Visit>
  static void Lists(Visit&&) {}
};

template <>
struct Shape<Design::NumberPart> {
  static constexpr bool kIsInOrder = true;
  static const Members<Design::NumberPart>& Values();
  static QString KeyOf(const Design::NumberPart& item) { return Folded(item.field); }
  static QString TitleOf(const Design::NumberPart& item);
  template <class Visit>
  static void Lists(Visit&&) {}
};

template <>
struct Shape<Design::Table> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::Table>& Values();
  static QString KeyOf(const Design::Table& item) { return Folded(item.name); }
  static QString TitleOf(const Design::Table& item);
  static std::pair<int, QString> PlaceOf(const Design::Table& item) { return {0, KeyOf(item)}; }
  template <class Visit>
  static void Lists(Visit&& visit) {
    visit("fields", u"字段", &Design::Table::fields);
    visit("form", u"录入界面", &Design::Table::controls);
    visit("list", u"列表", &Design::Table::columns);
    visit("search", u"查询字段", &Design::Table::searchFields);
    visit("number", u"档号", &Design::Table::numberParts);
  }
};

template <>
struct Shape<Design::DictionaryEntry> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::DictionaryEntry>& Values();
  static QString KeyOf(const Design::DictionaryEntry& item) { return Folded(item.text); }
  static QString TitleOf(const Design::DictionaryEntry& item);
  static std::pair<int, QString> PlaceOf(const Design::DictionaryEntry& item);
  template <class Visit>
  static void Lists(Visit&&) {}
};

template <>
struct Shape<Design::Dictionary> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::Dictionary>& Values();
  static QString KeyOf(const Design::Dictionary& item) { return Folded(item.name); }
  static QString TitleOf(const Design::Dictionary& item);
  static std::pair<int, QString> PlaceOf(const Design::Dictionary& item) { return {0, KeyOf(item)}; }
  template <class Visit>
  static void Lists(Visit&& visit) {
    visit("entries", u"词条", &Design::Dictionary::entries);
  }
};

template <>
struct Shape<Design::Fonds> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::Fonds>& Values();
  static QString KeyOf(const Design::Fonds& item) { return Folded(item.number); }
  static QString TitleOf(const Design::Fonds& item);
  static std::pair<int, QString> PlaceOf(const Design::Fonds& item) { return {0, KeyOf(item)}; }
  template <class Visit>
  static void Lists(Visit&&) {}
};

template <>
struct Shape<Design::EntityClass> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::EntityClass>& Values();
  static QString KeyOf(const Design::EntityClass& item);
  static QString TitleOf(const Design::EntityClass& item);
  static std::pair<int, QString> PlaceOf(const Design::EntityClass& item) { return {0, KeyOf(item)}; }
  template <class Visit>
  static void Lists(Visit&&) {}
};

template <>
struct Shape<Design::Retention> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::Retention>& Values();
  static QString KeyOf(const Design::Retention& item) { return Folded(item.name); }
  static QString TitleOf(const Design::Retention& item);
  static std::pair<int, QString> PlaceOf(const Design::Retention& item) { return {0, KeyOf(item)}; }
  template <class Visit>
  static void Lists(Visit&&) {}
};

template <>
struct Shape<Design::TransferLink> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::TransferLink>& Values();
  static QString KeyOf(const Design::TransferLink& item);
  static QString TitleOf(const Design::TransferLink& item);
  static std::pair<int, QString> PlaceOf(const Design::TransferLink& item) { return {0, KeyOf(item)}; }
  template <class Visit>
  static void Lists(Visit&&) {}
};

template <>
struct Shape<Design::TransferMap> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::TransferMap>& Values();
  static QString KeyOf(const Design::TransferMap& item);
  static QString TitleOf(const Design::TransferMap& item);
  static std::pair<int, QString> PlaceOf(const Design::TransferMap& item) { return {0, KeyOf(item)}; }
  template <class Visit>
  static void Lists(Visit&& visit) {
    visit("links", u"字段对应", &Design::TransferMap::links);
  }
};

template <>
struct Shape<Design::Report> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::Report>& Values();
  static QString KeyOf(const Design::Report& item) { return Folded(item.id); }
  static QString TitleOf(const Design::Report& item);
  static std::pair<int, QString> PlaceOf(const Design::Report& item) { return {0, KeyOf(item)}; }
  template <class Visit>
  static void Lists(Visit&&) {}
};

template <>
struct Shape<Design::Rights> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::Rights>& Values();
  static QString KeyOf(const Design::Rights& item) { return Folded(item.table); }
  static QString TitleOf(const Design::Rights& item);
  static std::pair<int, QString> PlaceOf(const Design::Rights& item) { return {0, KeyOf(item)}; }
  template <class Visit>
  static void Lists(Visit&&) {}
};

template <>
struct Shape<Design::User> {
  static constexpr bool kIsInOrder = false;
  static const Members<Design::User>& Values();
  static QString KeyOf(const Design::User& item) { return Folded(item.id); }
  static QString TitleOf(const Design::User& item);
  static std::pair<int, QString> PlaceOf(const Design::User& item) { return {item.id.toInt(), KeyOf(item)}; }
  template <class Visit>
  static void Lists(Visit&& visit) {
    visit("rights", u"权限", &Design::User::rights);
  }
};

template <>
struct Shape<Design> {
  template <class Visit>
  static void Lists(Visit&& visit) {
    visit("classes", u"类别", &Design::classes);
    visit("tables", u"表", &Design::tables);
    visit("dictionaries", u"字典", &Design::dictionaries);
    visit("fonds", u"全宗", &Design::fonds);
    visit("entity classes", u"实体分类", &Design::entityClasses);
    visit("retention periods", u"保管期限", &Design::retentions);
    visit("transfers", u"归档对应", &Design::transfers);
    visit("reports", u"报表", &Design::reports);
    visit("users", u"用户", &Design::users);
  }
};

/// The thing of a list that is known by that key, nullptr when there is none.
template <class List>
auto FindByKey(List& items, const QString& key) {
  using T = typename List::value_type;
  const auto found =
      std::find_if(items.begin(), items.end(), [&](const T& item) { return Shape<T>::KeyOf(item) == key; });
  return found == items.end() ? nullptr : &*found;
}

/// The thing of a list that is the same one as that of another design.
template <class List>
auto FindSame(List& items, const typename List::value_type& other) {
  return FindByKey(items, Shape<typename List::value_type>::KeyOf(other));
}

/// The table or dictionary of that name.
template <class List>
auto FindNamed(List& items, const QString& name) {
  return FindByKey(items, Folded(name));
}

}  // namespace folvane::design
