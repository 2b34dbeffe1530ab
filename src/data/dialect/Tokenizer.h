#pragma once

#include <QString>
#include <vector>

namespace folvane::sql {

enum class TokenKind {
  Word,    ///< a name or a keyword, as written
  Quoted,  ///< a name in brackets or double quotes, without them
  Text,    ///< a text literal, its doubled quotes made single
  Number,
  Sign,  ///< an operator or a punctuation mark
  End,
};

struct Token {
  TokenKind kind = TokenKind::End;
  QString text;
  qsizetype at = 0;  ///< where it begins in the statement

  bool IsWord(QLatin1String word) const {
    return kind == TokenKind::Word && text.compare(word, Qt::CaseInsensitive) == 0;
  }
  bool IsSign(QLatin1String sign) const { return kind == TokenKind::Sign && text == sign; }
};

/// Takes a statement apart; the last token is End. Comments are passed over.
/// @throws DataError Untranslatable for a quote, a bracket or a comment that is not closed, or a foreign character
std::vector<Token> Tokenize(const QString& statement);

}  // namespace folvane::sql
