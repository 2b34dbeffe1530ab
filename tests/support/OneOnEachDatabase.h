#pragma once

#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>

namespace folvane::test {

/// What is costly to make and only looked at, one on each database for all cases of a program. T is made from the kind
/// of the database by the first case that asks, and goes with the program.
template <typename T>
class OneOnEachDatabase {
 public:
  static T& Of(const std::string& kind) {
    static_cast<void>(end_);
    std::unique_ptr<T>& one = ones_[kind];
    if (!one) one = std::make_unique<T>(kind);
    return *one;
  }

 private:
  struct End : testing::Environment {
    void TearDown() override { ones_.clear(); }
  };
  static inline std::map<std::string, std::unique_ptr<T>> ones_;
  static inline const testing::Environment* const end_ = testing::AddGlobalTestEnvironment(new End);
};

}  // namespace folvane::test
