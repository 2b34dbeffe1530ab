#pragma once

#include <algorithm>
#include <type_traits>

#include <folvane/DataError.h>

#include "design/Shape.h"
#include "designer/GridModel.h"

namespace folvane::designer {

/// A column of a grid of things: how it looks, and what it reads and writes.
template <class T>
struct ThingColumn {
  GridColumn look;
  std::function<QVariant(const T&)> read;
  /// The thing stands in the design that is changed. May throw, which refuses the change.
  std::function<void(Design&, T&, const QVariant&)> write{};
  std::function<bool(const T&)> isLocked{};
};

/// A column over one member, with the member's own word as its title.
template <class T, class Value>
ThingColumn<T> ColumnOf(Value T::*member, int width) {
  GridColumn look;
  for (const auto& each : design::Shape<T>::Values()) {
    const auto* same = std::get_if<Value T::*>(&each.member);
    if (same && *same == member) look.title = QString::fromUtf16(each.word);
  }
  using Kind = GridColumn::Kind;
  look.kind = std::is_same_v<Value, bool> ? Kind::Check : std::is_same_v<Value, int> ? Kind::Number : Kind::Text;
  look.width = width;
  const auto write = [member](Design&, T& item, const QVariant& value) {
    item.*member = value.template value<Value>();
    if constexpr (std::is_same_v<Value, QString>) item.*member = (item.*member).trimmed();
  };
  return {look, [member](const T& item) { return QVariant::fromValue(item.*member); }, write};
}

/// The same, with texts to choose from.
template <class T>
ThingColumn<T> ChoiceOf(QString T::*member, int width, std::function<QStringList(int row)> choices,
                        GridColumn::Kind kind = GridColumn::Kind::Choice) {
  ThingColumn<T> column = ColumnOf(member, width);
  column.look.kind = kind;
  column.look.choices = std::move(choices);
  return column;
}

/// Which things of a design a grid shows, and what may be done with them.
template <class T>
struct ThingRules {
  /// Their list in a design; null when it is not there.
  std::function<const std::vector<T>*(const Design&)> locate;
  /// A new one; none can be added without it.
  std::function<T(const Design&)> fresh{};
  /// Puts a new one in with all that belongs to it; without it the thing alone is put behind the others.
  std::function<void(Design&, const T&)> add{};
  /// Takes one out with all that belongs to it; without it the thing alone goes.
  std::function<void(Design&, const T&)> remove{};
  /// Numbers the list as it stands after a move; rows cannot be moved without it.
  std::function<void(std::vector<T>&)> number{};
};

/// The list of a design that is being changed.
template <class T>
std::vector<T>& ListIn(Design& design, const ThingRules<T>& rules) {
  const std::vector<T>* list = rules.locate(design);
  if (!list) throw DataError(DataErrorKind::Usage, QStringLiteral("要修改的内容已不在设计中。"));
  return const_cast<std::vector<T>&>(*list);  // it lies within the design, which may be changed
}

/// Things of one kind in a grid.
template <class T>
class ThingModel : public GridModel {
 public:
  ThingModel(DesignSession& session, ThingRules<T> rules, std::vector<ThingColumn<T>> columns, QObject* parent)
      : GridModel(session, LooksOf(columns), parent), rules_(std::move(rules)), columns_(std::move(columns)) {}

  /// The thing in a row; null behind the last.
  const T* At(int row) const {
    const std::vector<T>* list = rules_.locate(Session().Wanted());
    return list && row >= 0 && std::size_t(row) < list->size() ? &(*list)[std::size_t(row)] : nullptr;
  }

  bool CanAdd() const override { return bool(rules_.fresh) && rules_.locate(Session().Wanted()); }
  int Add() override {
    try {
      const T item = rules_.fresh(Session().Wanted());
      const QString words = QStringLiteral("新增") + design::Shape<T>::TitleOf(item);
      return Session().Change(words, [&](Design& wanted) { Put(wanted, item); }) ? Count() - 1 : -1;
    } catch (const DataError& error) {
      Q_EMIT Session().Told(error.Message());
      return -1;
    }
  }

  void Remove(const std::vector<int>& rows) override {
    std::vector<T> items;
    for (const int row : rows)
      if (const T* item = At(row)) items.push_back(*item);
    if (items.empty()) return;
    const QString title = design::Shape<T>::TitleOf(items.front());
    const QString words = items.size() == 1 ? title : QStringLiteral("%1等 %2 项").arg(title).arg(items.size());
    Session().Change(QStringLiteral("删去") + words, [&](Design& wanted) {
      for (const T& item : items) {
        if (rules_.remove) {
          rules_.remove(wanted, item);
          continue;
        }
        std::vector<T>& list = ListIn(wanted, rules_);
        if (const auto at = std::find(list.begin(), list.end(), item); at != list.end()) list.erase(at);
      }
    });
  }

  void PasteAt(int row, int column, const QStringList& lines) override {
    Refused refused;
    Session().Change(QStringLiteral("粘贴"), [&](Design& wanted) {
      for (const QString& line : lines) row += PasteLine(wanted, row, column, line.split(u'\t'), refused);
    });
    if (refused.count > 0)
      Q_EMIT Session().Told(QStringLiteral("%1 处未能粘贴：%2").arg(refused.count).arg(refused.reason));
  }

  bool CanMove() const override { return bool(rules_.number); }
  int Move(int row, int by) override {
    const int to = row + by;
    if (!At(row) || !At(to)) return row;
    const QString title = design::Shape<T>::TitleOf(*At(row));
    const bool isDone = Session().Change(QStringLiteral("移动") + title, [&](Design& wanted) {
      std::vector<T>& list = ListIn(wanted, rules_);
      std::swap(list[std::size_t(row)], list[std::size_t(to)]);
      rules_.number(list);
    });
    return isDone ? to : row;
  }

 protected:
  int Count() const override {
    const std::vector<T>* list = rules_.locate(Session().Wanted());
    return list ? int(list->size()) : 0;
  }
  QVariant Value(int row, int column) const override { return columns_[std::size_t(column)].read(*At(row)); }
  bool IsLocked(int row, int column) const override {
    const ThingColumn<T>& own = columns_[std::size_t(column)];
    return !own.write || (own.isLocked && own.isLocked(*At(row)));
  }

  bool Write(int row, int column, const QVariant& value) override {
    const ThingColumn<T>& own = columns_[std::size_t(column)];
    const QString words = QStringLiteral("修改%1的%2").arg(design::Shape<T>::TitleOf(*At(row)), own.look.title);
    return Session().Change(words, [&](Design& wanted) { Set(wanted, row, own, value); });
  }

 private:
  /// What could not be pasted.
  struct Refused {
    int count = 0;
    QString reason;  ///< of the last one
  };

  void Put(Design& wanted, const T& item) const {
    rules_.add ? rules_.add(wanted, item) : ListIn(wanted, rules_).push_back(item);
  }

  void Set(Design& wanted, int row, const ThingColumn<T>& column, const QVariant& value) const {
    std::vector<T>& list = ListIn(wanted, rules_);
    column.write(wanted, list[std::size_t(row)], value);
    RequireSingle(list, list[std::size_t(row)]);
  }

  // Does it wholly or not at all.
  template <class Work>
  static bool Attempt(Design& wanted, Refused& refused, const Work& work) {
    const Design before = wanted;
    try {
      work();
      return true;
    } catch (const DataError& error) {
      wanted = before;
      refused = {refused.count + 1, error.Message()};
      return false;
    }
  }

  // A new row whose first cell is refused is not added; empty cells leave it as new ones are. Answers how many rows it
  // takes.
  int PasteLine(Design& wanted, int row, int at, const QStringList& cells, Refused& refused) const {
    const Design before = wanted;
    const bool isNew = std::size_t(row) >= ListIn(wanted, rules_).size();
    if (isNew && (!rules_.fresh || cells.join(QString()).trimmed().isEmpty())) return 0;
    if (isNew && !Attempt(wanted, refused, [&] { Put(wanted, rules_.fresh(wanted)); })) return 0;
    for (const QString& cell : cells) {
      if (std::size_t(at) >= columns_.size()) break;
      const ThingColumn<T>& own = columns_[std::size_t(at++)];
      if (isNew && cell.isEmpty() && &cell != &cells.front()) continue;
      const bool isLocked = !own.write || (own.isLocked && own.isLocked(ListIn(wanted, rules_)[std::size_t(row)]));
      const bool isCheck = own.look.kind == GridColumn::Kind::Check;
      const QVariant value = isCheck ? QVariant(cell.trimmed() == QStringLiteral("是")) : QVariant(cell);
      if (isLocked || Attempt(wanted, refused, [&] { Set(wanted, row, own, value); })) continue;
      if (!isNew || &cell != &cells.front()) continue;
      wanted = before;
      return 0;
    }
    return 1;
  }

  static std::vector<GridColumn> LooksOf(const std::vector<ThingColumn<T>>& columns) {
    std::vector<GridColumn> looks;
    for (const ThingColumn<T>& column : columns) looks.push_back(column.look);
    return looks;
  }

  // One field may give two parts of an archive number; everything else is known by its key.
  static void RequireSingle(const std::vector<T>& list, const T& item) {
    if constexpr (!std::is_same_v<T, Design::NumberPart>) {
      const QString key = design::Shape<T>::KeyOf(item);
      const auto isSame = [&](const T& other) { return design::Shape<T>::KeyOf(other) == key; };
      if (std::count_if(list.begin(), list.end(), isSame) > 1)
        throw DataError(DataErrorKind::Usage, QStringLiteral("已有%1。").arg(design::Shape<T>::TitleOf(item)));
    }
  }

  ThingRules<T> rules_;
  std::vector<ThingColumn<T>> columns_;
};

}  // namespace folvane::designer
