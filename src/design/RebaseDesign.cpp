#include "design/RebaseDesign.h"

#include <type_traits>

#include "design/Shape.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

/// Brings together what two have made of a design, on the way down.
class Rebase {
 public:
  explicit Rebase(QStringList& given) : given_(given) {}

  template <class T>
  void BringLists(const T& base, const T& wanted, T& now) {
    Shape<T>::Lists([&](const char*, const char16_t* word, auto list) {
      using Item = typename std::decay_t<decltype(base.*list)>::value_type;
      // The order means something there, and parts of a number are known by their places.
      if constexpr (std::is_same_v<Item, Design::NumberPart>) {
        if (wanted.*list == base.*list) return;
        now.*list == base.*list ? void(now.*list = wanted.*list) : void(given_ << QString::fromUtf16(word));
      } else {
        BringItems(base.*list, wanted.*list, now.*list);
      }
    });
  }

 private:
  template <class Item>
  void BringItems(const std::vector<Item>& base, const std::vector<Item>& wanted, std::vector<Item>& now) {
    for (const Item& item : wanted) {
      const Item* before = FindSame(base, item);
      Item* found = FindSame(now, item);
      if (before && item == *before) continue;
      if (found)
        BringItem(before ? *before : Item{}, item, *found, before != nullptr);
      else if (!before)
        now.push_back(item);
      else
        given_ << Shape<Item>::TitleOf(item);  // the others have taken it out
    }
    for (const Item& item : base) {
      if (FindSame(wanted, item)) continue;
      const Item* found = FindSame(now, item);
      if (found && *found == item)
        std::erase(now, item);
      else if (found)
        given_ << Shape<Item>::TitleOf(item);
    }
  }

  template <class Item>
  void BringItem(const Item& base, const Item& wanted, Item& now, bool hasBase) {
    bool isGiven = false;
    for (const Member<Item>& value : Shape<Item>::Values()) {
      std::visit(
          [&](auto member) {
            if (wanted.*member == now.*member || (hasBase && wanted.*member == base.*member)) return;
            if (hasBase && now.*member == base.*member)
              now.*member = wanted.*member;
            else
              isGiven = true;
          },
          value.member);
    }
    if (isGiven) given_ << Shape<Item>::TitleOf(wanted);
    BringLists(base, wanted, now);
  }

  QStringList& given_;
};

}  // namespace

Design Rebased(const Design& base, const Design& wanted, const Design& now, QStringList& given) {
  Design brought = now;
  Rebase(given).BringLists(base, wanted, brought);
  return brought;
}

}  // namespace folvane::design
