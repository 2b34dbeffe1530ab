#include <type_traits>

#include "design/Shape.h"

namespace folvane {
namespace design {
namespace {
using namespace Qt::Literals::StringLiterals;

template <class T>
QString TextOf(const T& item, const Member<T>& value) {
  if (const auto* text = std::get_if<QString T::*>(&value.member)) return u'“' + item.**text + u'”';
  if (const auto* number = std::get_if<int T::*>(&value.member)) return QString::number(item.**number);
  if (const auto* flag = std::get_if<bool T::*>(&value.member)) return item.**flag ? u"是"_s : u"否"_s;
  return u'“' + (item.*std::get<QStringList T::*>(value.member)).join(u'、') + u'”';
}

/// Gathers the differences of two designs on the way down.
class Comparison {
 public:
  std::vector<DesignChange> changes;

  template <class T>
  void CompareLists(const T& from, const T& to, const QString& where) {
    Shape<T>::Lists([&](const char*, const char16_t*, auto list) {
      using Item = typename std::decay_t<decltype(from.*list)>::value_type;
      if constexpr (std::is_same_v<Item, Design::NumberPart>) return CompareParts(from.*list, to.*list, where);
      for (const Item& item : from.*list)
        if (!FindSame(to.*list, item)) changes.push_back({Below(where, item), u"删去"_s});
      for (const Item& item : to.*list) {
        if (const Item* before = FindSame(from.*list, item))
          CompareItems(*before, item, Below(where, item));
        else
          changes.push_back({Below(where, item), u"新增"_s + SizeOf(item)});
      }
    });
  }

 private:
  template <class Item>
  static QString SizeOf(const Item&) {
    return {};
  }
  static QString SizeOf(const Design::Table& table) { return u"，%1 个字段"_s.arg(table.fields.size()); }
  static QString SizeOf(const Design::Dictionary& dictionary) {
    return u"，%1 个词条"_s.arg(dictionary.entries.size());
  }

  template <class Item>
  static QString Below(const QString& where, const Item& item) {
    return where + (where.isEmpty() ? QString() : u" "_s) + Shape<Item>::TitleOf(item);
  }

  template <class Item>
  void CompareItems(const Item& from, const Item& to, const QString& where) {
    QStringList differences;
    for (const Member<Item>& value : Shape<Item>::Values()) {
      const QString before = TextOf(from, value), after = TextOf(to, value);
      if (before != after) differences << u"%1由%2改为%3"_s.arg(QString::fromUtf16(value.word), before, after);
    }
    if (!differences.isEmpty()) changes.push_back({where, differences.join(u'，')});
    CompareLists(from, to, where);
  }

  // One field may give two parts.
  void CompareParts(const std::vector<Design::NumberPart>& from, const std::vector<Design::NumberPart>& to,
                    const QString& where) {
    for (std::size_t at = 0; at < std::max(from.size(), to.size()); ++at) {
      const QString part = where + u" 档号第 %1 段"_s.arg(at + 1);
      if (at >= to.size())
        changes.push_back({part, u"删去"_s});
      else if (at >= from.size())
        changes.push_back({part, u"新增"_s});
      else
        CompareItems(from[at], to[at], part);
    }
  }
};

}  // namespace
}  // namespace design

std::vector<DesignChange> CompareDesigns(const Design& from, const Design& to) {
  design::Comparison comparison;
  comparison.CompareLists(from, to, {});
  return std::move(comparison.changes);
}

}  // namespace folvane
