#include <type_traits>

#include "design/Shape.h"

namespace folvane {
namespace design {
namespace {

// What stands between the parts of an archive number may be a blank.
bool KeepsEndBlanks(const Design::NumberPart&, const char* key) { return qstrcmp(key, "separator") == 0; }
template <class T>
bool KeepsEndBlanks(const T&, const char*) {
  return false;
}

template <class T>
void TidyTexts(T& item) {
  for (const Member<T>& value : Shape<T>::Values()) {
    if (const auto* text = std::get_if<QString T::*>(&value.member)) {
      if (!KeepsEndBlanks(item, value.key)) item.** text = WithoutEndBlanks(item.**text);
    } else if (const auto* texts = std::get_if<QStringList T::*>(&value.member)) {
      for (QString& each : item.**texts) each = WithoutEndBlanks(each);
      std::sort((item.**texts).begin(), (item.**texts).end(),
                [](const QString& one, const QString& other) { return Folded(one) < Folded(other); });
    }
  }
}

template <class T>
void Tidy(T& holder) {
  Shape<T>::Lists([&](const char*, const char16_t*, auto list) {
    using Item = typename std::decay_t<decltype(holder.*list)>::value_type;
    for (Item& item : holder.*list) {
      TidyTexts(item);
      Tidy(item);
    }
    if constexpr (!Shape<Item>::kIsInOrder)
      std::stable_sort((holder.*list).begin(), (holder.*list).end(), [](const Item& one, const Item& other) {
        return Shape<Item>::PlaceOf(one) < Shape<Item>::PlaceOf(other);
      });
  });
}

}  // namespace
}  // namespace design

void PutInOrder(Design& design) { design::Tidy(design); }

}  // namespace folvane
