#include "data/dialect/Tokenizer.h"

#include <array>

#include "data/dialect/Refusal.h"

namespace folvane::sql {

namespace {

bool StartsWord(QChar c) { return c.isLetter() || c == u'_' || c == u'#' || c == u'@'; }
bool ContinuesWord(QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u'#' || c == u'@' || c == u'$'; }

class Scanner {
 public:
  explicit Scanner(const QString& text) : text_(text) {}

  std::vector<Token> All() {
    std::vector<Token> tokens;
    do tokens.push_back(Next());
    while (tokens.back().kind != TokenKind::End);
    return tokens;
  }

 private:
  QChar Peek(qsizetype ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : QChar(); }

  Token Next() {
    SkipBlanks();
    const qsizetype start = at_;
    if (at_ >= text_.size()) return {TokenKind::End, {}, start};
    const QChar c = Peek();
    if (c == u'\'') return {TokenKind::Text, Quoted(u'\'', u'\''), start};
    if ((c == u'N' || c == u'n') && Peek(1) == u'\'') {
      ++at_;
      return {TokenKind::Text, Quoted(u'\'', u'\''), start};
    }
    if (c == u'[') return {TokenKind::Quoted, Quoted(u'[', u']'), start};
    if (c == u'"') return {TokenKind::Quoted, Quoted(u'"', u'"'), start};
    if (c.isDigit() || (c == u'.' && Peek(1).isDigit())) return {TokenKind::Number, Number(), start};
    if (StartsWord(c)) {
      while (at_ < text_.size() && ContinuesWord(text_[at_])) ++at_;
      return {TokenKind::Word, text_.mid(start, at_ - start), start};
    }
    return {TokenKind::Sign, Sign(), start};
  }

  void SkipBlanks() {
    for (;;) {
      if (at_ < text_.size() && text_[at_].isSpace()) {
        ++at_;
      } else if (Peek() == u'-' && Peek(1) == u'-') {
        while (at_ < text_.size() && text_[at_] != u'\n') ++at_;
      } else if (Peek() == u'/' && Peek(1) == u'*') {
        const qsizetype end = text_.indexOf(QLatin1String("*/"), at_ + 2);
        if (end < 0) Refuse(QStringLiteral("没有结束的注释"), text_);
        at_ = end + 2;
      } else {
        return;
      }
    }
  }

  QString Quoted(QChar open, QChar close) {
    QString inner;
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] != close) {
        inner += text_[at_];
      } else if (Peek(1) == close) {
        inner += close;
        ++at_;
      } else {
        ++at_;
        return inner;
      }
    }
    Refuse(QStringLiteral("没有配对的“%1”").arg(open), text_);
  }

  QString Number() {
    const qsizetype start = at_;
    const auto digits = [&] {
      while (at_ < text_.size() && text_[at_].isDigit()) ++at_;
    };
    digits();
    if (Peek() == u'.') {
      ++at_;
      digits();
    }
    if ((Peek() == u'e' || Peek() == u'E') &&
        (Peek(1).isDigit() || ((Peek(1) == u'-' || Peek(1) == u'+') && Peek(2).isDigit()))) {
      at_ += 2;
      digits();
    }
    return text_.mid(start, at_ - start);
  }

  QString Sign() {
    static constexpr std::array<const char*, 24> kSigns{"<>", "<=", ">=", "!=", "!<", "!>", "=", "<",
                                                        ">",  "(",  ")",  ",",  ".",  "+",  "-", "*",
                                                        "/",  "%",  ";",  "&",  "|",  "^",  "~", ":"};
    for (const char* sign : kSigns)
      if (QStringView(text_).mid(at_).startsWith(QLatin1String(sign))) {
        at_ += qstrlen(sign);
        return QLatin1String(sign);
      }
    Refuse(QStringLiteral("不能识别的字符“%1”").arg(text_[at_]), text_);
  }

  const QString& text_;
  qsizetype at_ = 0;
};

}  // namespace

std::vector<Token> Tokenize(const QString& statement) { return Scanner(statement).All(); }

}  // namespace folvane::sql
