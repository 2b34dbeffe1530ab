#include "data/dialect/TemplateCache.h"

#include <QHashFunctions>

namespace folvane::sql {

namespace {

bool IsFor(const Translated& translated, const std::vector<Literal>& literals, const QString& statement) {
  for (std::size_t i = 0; i < translated.pinned.size(); ++i) {
    const Literal& literal = literals[size_t(translated.pinned[i])];
    if (literal.ValueIn(statement) != translated.pinnedValues[qsizetype(i)]) return false;
  }
  return true;
}

}  // namespace

std::size_t TemplateCache::Hash::operator()(std::u16string_view text) const {
  return qHashBits(text.data(), text.size() * sizeof(char16_t));
}

const Translated* TemplateCache::Find(std::u16string_view key, const std::vector<Literal>& literals,
                                      const QString& statement) {
  const auto found = kept_.find(key);
  if (found == kept_.end()) return nullptr;
  for (const Translated& translated : found->second)
    if (IsFor(translated, literals, statement)) return &translated;
  return nullptr;
}

const Translated& TemplateCache::Keep(std::u16string_view key, Translated translated) {
  if (count_ >= kMost) Clear();
  std::vector<Translated>& variants = kept_[std::u16string(key)];
  if (variants.size() >= kMostOfOneTemplate) {
    count_ -= variants.size();
    variants.clear();
  }
  ++count_;
  variants.push_back(std::move(translated));
  return variants.back();
}

void TemplateCache::Clear() {
  kept_.clear();
  count_ = 0;
}

}  // namespace folvane::sql
