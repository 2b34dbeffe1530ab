#pragma once

#include <QtGlobal>

namespace folvane::test {

/// The random numbers of one step. They follow from the seed and the step alone, so that a step draws the same however
/// many numbers those before it drew. (SplitMix64.)
class Dice {
 public:
  Dice(quint64 seed, quint64 step) : state_(seed * 0x9E3779B97F4A7C15u ^ step * 0xD1342543DE82EF95u) { Next(); }

  /// At least `first`, at most `last`.
  int Between(int first, int last) { return first + int(Next() % (quint64(last) - quint64(first) + 1)); }
  bool OneIn(int chances) { return Between(1, chances) == 1; }
  /// Any of what has a size and an index; of nothing there is none to take.
  template <typename List>
  decltype(auto) AnyOf(const List& list) {
    return list[decltype(list.size())(Between(0, int(list.size()) - 1))];
  }

 private:
  quint64 Next() {
    quint64 mixed = state_ += 0x9E3779B97F4A7C15u;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    return mixed ^ (mixed >> 31);
  }
  quint64 state_;
};

}  // namespace folvane::test
