#include "data/dialect/Tokenizer.h"

#include <array>

#include "data/dialect/Refusal.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }
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
    if (IsDigit(c) || (c == u'.' && IsDigit(Peek(1)))) return {TokenKind::Number, Number(), start};
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
        const qsizetype end = text_.indexOf("*/"_L1, at_ + 2);
        if (end < 0) RejectSyntax(u"注释没有结束"_s);
        at_ = end + 2;
      } else {
        return;
      }
    }
  }

  QString Quoted(QChar open, QChar close) {
    const qsizetype start = at_;
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
    RejectSyntax(u"“%1”处的%2没有配对"_s.arg(text_.mid(start, 20), open == u'[' ? u"方括号"_s : u"引号"_s));
  }

  QString Number() {
    const qsizetype start = at_;
    const auto digits = [&] {
      while (at_ < text_.size() && IsDigit(text_[at_])) ++at_;
    };
    digits();
    if (Peek() == u'.') {
      ++at_;
      digits();
    }
    if ((Peek() == u'e' || Peek() == u'E') &&
        (IsDigit(Peek(1)) || ((Peek(1) == u'-' || Peek(1) == u'+') && IsDigit(Peek(2))))) {
      at_ += 2;
      digits();
    }
    return text_.mid(start, at_ - start);
  }

  QString Sign() {
    static constexpr std::array kSigns{"<>", "<=", ">=", "!=", "!<", "!>", "=", "<", ">", "(", ")", ",",
                                       ".",  "+",  "-",  "*",  "/",  "%",  ";", "&", "|", "^", "~"};
    for (const char* sign : kSigns)
      if (QStringView(text_).mid(at_).startsWith(QLatin1String(sign))) {
        at_ += qstrlen(sign);
        return QLatin1String(sign);
      }
    RejectSyntax(u"不能识别的字符“%1”"_s.arg(text_[at_]));
  }

  const QString& text_;
  qsizetype at_ = 0;
};

}  // namespace

std::vector<Token> Tokenize(const QString& statement) { return Scanner(statement).All(); }

}  // namespace folvane::sql
