#pragma once

#include <QStringList>
#include <functional>
#include <string>
#include <unordered_map>

#include "data/dialect/Emitter.h"
#include "data/dialect/Literals.h"

namespace folvane::sql {

/// All that is kept of a translation.
struct Translated {
  Translation statement, condition, otherwise;
  bool givesRows = false, conditional = false;
  std::vector<int> pinned;  ///< literals that the translation was made for
  QStringList pinnedValues;
};

/// Translations by the template of their statements, those of one template apart by the literals that they were made
/// for. Bounded: when it is full it begins anew, which costs less than keeping account of what was used last.
class TemplateCache {
 public:
  const Translated* Find(std::u16string_view key, const std::vector<Literal>& literals, const QString& statement);
  const Translated& Keep(std::u16string_view key, Translated translated);
  void Clear();
  std::size_t Size() const { return count_; }

  static constexpr std::size_t kMost = 512, kMostOfOneTemplate = 16;

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::u16string_view text) const;
  };

  std::unordered_map<std::u16string, std::vector<Translated>, Hash, std::equal_to<>> kept_;
  std::size_t count_ = 0;
};

}  // namespace folvane::sql
