#pragma once

#include <QString>
#include <string>
#include <vector>

#include "data/dialect/Literals.h"

namespace folvane::sql {

/// A statement with its literals taken out. Statements of one template differ in values only and share a translation.
///
/// Read is one pass without an allocation of its own once its buffers have grown: it is all that a repeated statement
/// costs before its values are bound.
class StatementTemplate {
 public:
  /// False for a text that the tokenizer will refuse, and for one that holds the signs of the key itself.
  bool Read(const QString& statement);

  std::u16string_view Key() const { return {key_.data(), length_}; }
  /// In their order, which is that of the tokens.
  const std::vector<Literal>& Literals() const { return literals_; }

 private:
  using Position = const char16_t*;

  Position ReadWord(Position at);
  Position ReadText(Position at);
  Position ReadNumber(Position at);
  Position SkipTo(Position at, char16_t close);
  Position SkipComment(Position at);
  void NoteWord(Position word, qsizetype length);
  void Keep(Position from, Position to);
  void KeepLiteral(const Literal& literal);

  std::u16string key_;
  std::size_t length_ = 0;
  std::vector<Literal> literals_;
  Position begin_ = nullptr, end_ = nullptr;
  bool judged_ = false;     ///< a comparison may follow, which asks what a literal is like
  bool afterLike_ = false;  ///< the last word was Like
};

}  // namespace folvane::sql
