#pragma once

#include <QString>
#include <vector>

#include "data/dialect/Parser.h"
#include "data/dialect/Tokenizer.h"

namespace folvane::sql {

/// A recursive descent parser; one object reads one statement.
class StatementParser {
 public:
  explicit StatementParser(const QString& text) : text_(text), tokens_(Tokenize(text)) {}
  Parsed ReadAll();

 private:
  // Tokens.
  const Token& Now(std::size_t ahead = 0) const;
  bool IsWord(const char* word, std::size_t ahead = 0) const { return Now(ahead).IsWord(QLatin1String(word)); }
  bool IsSign(const char* sign, std::size_t ahead = 0) const { return Now(ahead).IsSign(QLatin1String(sign)); }
  bool IsName(std::size_t ahead = 0) const;
  bool TakeWord(const char* word) { return IsWord(word) && ++at_; }
  bool TakeSign(const char* sign) { return IsSign(sign) && ++at_; }
  void NeedWord(const char* word);
  void NeedSign(const char* sign);
  QString NeedName();
  [[noreturn]] void RejectHere() const;
  /// Refuses the words of forms that the other databases have no counterpart for.
  void RefuseKnownForms() const;

  // Literals that belong to the structure.
  int NeedStructuralNumber();
  QString TakeStructuralText();

  // Statements.
  Statement ReadStatement();
  Statement ReadConditional();
  Statement ReadInsert();
  void ReadValues(Statement& statement);
  Statement ReadUpdate();
  Statement ReadDelete();
  TableReference ReadTarget();

  // Queries.
  QueryPtr ReadQuery();
  QueryPtr ReadSelect();
  void ReadTop(Query& query);
  SelectItem ReadItem();
  void ReadTables(Query& query);
  QString ReadJoinWords();
  TableReference ReadTable();
  void ReadOrder(Query& query);

  // Expressions, from the loosest binding to the tightest.
  ExpressionPtr ReadExpression();
  ExpressionPtr ReadAnd();
  ExpressionPtr ReadNot();
  ExpressionPtr ReadPredicate();
  ExpressionPtr ReadComparison(ExpressionPtr left);
  ExpressionPtr ReadIsNull(ExpressionPtr left);
  ExpressionPtr ReadLike(ExpressionPtr left);
  ExpressionPtr ReadBetween(ExpressionPtr left);
  ExpressionPtr ReadIn(ExpressionPtr left);
  ExpressionPtr ReadSum();
  ExpressionPtr ReadProduct();
  ExpressionPtr ReadSigned();
  ExpressionPtr ReadPrimary();
  ExpressionPtr ReadLiteral();
  ExpressionPtr ReadBracketed();
  ExpressionPtr ReadExists();
  ExpressionPtr ReadName();
  ExpressionPtr ReadCase();
  ExpressionPtr ReadCast();
  ExpressionPtr ReadConvert();
  void ReadType(Expression& cast);
  ExpressionPtr ReadCall();

  const QString& text_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  int literals_ = 0;
  int depth_ = 0;
  std::vector<int> structural_;
};

}  // namespace folvane::sql
