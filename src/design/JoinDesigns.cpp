#include <type_traits>

#include "design/Shape.h"
#include "design/TableEdits.h"

namespace folvane {
namespace design {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kRoot = 1;  ///< stands above the first classes

/// Gives what another design knows by numbers the numbers that mean the same in one's own: with another name, the
/// number of another office stands for something else.
class Renumbering {
 public:
  Renumbering(const Design& own, const Design& other, QStringList& told) : own_(own), other_(other), told_(told) {}

  Design Take() {
    DropStrangers();
    NumberClasses();
    NumberReports();
    return std::move(other_);
  }

 private:
  // The rights of a person are not given to somebody who has the number here.
  void DropStrangers() {
    std::erase_if(other_.users, [&](const Design::User& user) {
      const Design::User* here = FindSame(own_.users, user);
      if (!here || here->name == user.name) return false;
      told_ << u"用户“%1”没有加入：编号 %2 在这里是“%3”"_s.arg(user.name, user.id, here->name);
      return true;
    });
  }

  static QStringList PathOf(const Design& design, const Design::Class& item) {
    QStringList path;
    const Design::Class* at = &item;
    for (std::size_t steps = 0; at && steps <= design.classes.size(); ++steps) {
      path << at->name;
      at = at->parent == kRoot ? nullptr : FindByKey(design.classes, QString::number(at->parent));
    }
    return path;
  }

  template <class Item>
  static std::vector<Item> Together(std::vector<Item> own, const std::vector<Item>& other) {
    own.insert(own.end(), other.begin(), other.end());
    return own;
  }

  int NumberFor(const Design& before, const Design::Class& item) {
    const Design::Class* here = FindSame(own_.classes, item);
    if (!here || here->name == item.name) return item.id;
    for (const Design::Class& each : own_.classes)
      if (PathOf(own_, each) == PathOf(before, item)) return each.id;
    const int number = FreeClassId(Together(own_.classes, other_.classes));
    told_ << u"类别“%1”的编号改为 %2"_s.arg(item.name).arg(number);
    return number;
  }

  void NumberClasses() {
    const Design before = other_;
    QHash<int, int> numbers;
    for (std::size_t at = 0; at < before.classes.size(); ++at) {
      const int number = NumberFor(before, before.classes[at]);
      numbers.insert(before.classes[at].id, number);
      other_.classes[at].id = number;
    }
    for (Design::Class& item : other_.classes) item.parent = numbers.value(item.parent, item.parent);
    for (Design::Table& table : other_.tables) table.classId = numbers.value(table.classId, table.classId);
  }

  void NumberReports() {
    for (Design::Report& report : other_.reports) {
      const auto isSame = [&](const Design::Report& here) {
        return here.name == report.name && IsSame(here.group, report.group);
      };
      const Design::Report* here = FindSame(own_.reports, report);
      if (!here || isSame(*here)) continue;
      const auto found = std::find_if(own_.reports.begin(), own_.reports.end(), isSame);
      if (found != own_.reports.end()) {
        report.id = found->id;
        continue;
      }
      report.id = FreeReportId(Together(own_.reports, other_.reports));
      told_ << u"报表“%1”的编号改为 %2，模板文件也要改名"_s.arg(report.name, report.id);
    }
  }

  const Design& own_;
  Design other_;
  QStringList& told_;
};

// Tables, transfers and reports come whole; what is shared with others gains and keeps its parts.
template <class T>
constexpr bool kGainsParts = std::is_same_v<T, Design::Dictionary> || std::is_same_v<T, Design::User>;

template <class T>
void Join(T& into, const T& from) {
  Shape<T>::Lists([&](const char*, const char16_t*, auto list) {
    using Item = typename std::decay_t<decltype(into.*list)>::value_type;
    for (const Item& item : from.*list) {
      Item* present = FindSame(into.*list, item);
      if (!present) {
        (into.*list).push_back(item);
        continue;
      }
      const Item before = *present;
      *present = item;
      if constexpr (kGainsParts<Item>) {
        Shape<Item>::Lists([&](const char*, const char16_t*, auto parts) { present->*parts = before.*parts; });
        Join(*present, item);
      }
    }
  });
}

}  // namespace
}  // namespace design

Design Joined(const Design& design, const Design& other, QStringList* told) {
  QStringList words;
  Design joined = design;
  design::Join(joined, design::Renumbering(design, other, words).Take());
  PutInOrder(joined);
  if (told) *told = words;
  return joined;
}

}  // namespace folvane
