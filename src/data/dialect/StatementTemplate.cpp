#include "data/dialect/StatementTemplate.h"

#include <algorithm>
#include <array>

#include "data/dialect/LikePatterns.h"

namespace folvane::sql {

namespace {

// A literal stands in the key as one sign of this range: its kind above its traits.
constexpr char16_t kFirstSign = 0xE000, kLastSign = 0xF8FF;  // the private use area of Unicode

constexpr bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
constexpr bool IsAsciiLetter(char16_t c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); }

bool StartsWord(char16_t c) {
  return IsAsciiLetter(c) || c == u'_' || c == u'#' || c == u'@' || (c > 127 && QChar(c).isLetter());
}
bool ContinuesWord(char16_t c) {
  return IsAsciiLetter(c) || IsDigit(c) || c == u'_' || c == u'#' || c == u'@' || c == u'$' ||
         (c > 127 && QChar(c).isLetterOrNumber());
}

bool IsWord(QStringView word, const char* known) {
  return word.compare(QLatin1String(known), Qt::CaseInsensitive) == 0;
}

constexpr qsizetype kLongText = 16;

unsigned char TraitsOf(QStringView text) {
  unsigned char traits = Literal::Plain;
  for (const QChar c : text)
    if (c >= u'A' && c <= u'z') traits = 0;
  if (text.size() >= kLongText) traits |= Literal::Long;
  return traits;
}

unsigned char TraitsOfPattern(QStringView pattern) {
  unsigned char traits = Literal::IsPattern;
  if (pattern.contains(u'[') && ReadPattern(pattern.toString()).hasClass) traits |= Literal::HasClass;
  if (pattern.endsWith(u'%')) traits |= Literal::EndsOpen;
  if (pattern.endsWith(u'_') || pattern.endsWith(u' ')) traits |= Literal::EndsAnywhere;
  return traits;
}

}  // namespace

bool StatementTemplate::Read(const QString& statement) {
  begin_ = reinterpret_cast<Position>(statement.utf16());
  end_ = begin_ + statement.size();
  if (key_.size() < size_t(statement.size())) key_.resize(size_t(statement.size()));
  length_ = 0;
  literals_.clear();
  judged_ = afterLike_ = false;
  for (Position at = begin_; at && at < end_;) {
    const char16_t c = *at;
    if (StartsWord(c)) {
      at = ReadWord(at);
      continue;
    }
    if (c == u'\'')
      at = ReadText(at);
    else if (IsDigit(c) || (c == u'.' && at + 1 < end_ && IsDigit(at[1])))
      at = ReadNumber(at);
    else if (c == u'[' || c == u'"')
      at = SkipTo(at, c == u'[' ? u']' : u'"');
    else if ((c == u'-' || c == u'/') && at + 1 < end_ && at[1] == (c == u'-' ? u'-' : u'*'))
      at = SkipComment(at);
    else {
      if (c >= kFirstSign && c <= kLastSign) return false;
      if (c > u' ') afterLike_ = false;
      key_[length_++] = c;
      ++at;
    }
    if (!at) return false;
  }
  return true;
}

void StatementTemplate::Keep(Position from, Position to) {
  std::copy(from, to, key_.data() + length_);
  length_ += size_t(to - from);
}

void StatementTemplate::KeepLiteral(const Literal& literal) {
  key_[length_++] = char16_t(kFirstSign + literal.kind * 256 + literal.traits);
  literals_.push_back(literal);
}

StatementTemplate::Position StatementTemplate::ReadWord(Position at) {
  Position end = at + 1;
  while (end < end_ && ContinuesWord(*end)) ++end;
  if (end - at == 1 && (*at == u'N' || *at == u'n') && end < end_ && *end == u'\'') return ReadText(end);
  NoteWord(at, end - at);
  Keep(at, end);
  return end;
}

void StatementTemplate::NoteWord(Position word, qsizetype length) {
  afterLike_ = false;
  if (length < 2 || length > 6) return;
  const QStringView text(word, length);
  static constexpr std::array kComparing{"select", "where", "delete", "having", "when", "if", "on"};
  if (!judged_)
    judged_ = std::any_of(kComparing.begin(), kComparing.end(), [&](const char* known) { return IsWord(text, known); });
  else if (length == 4)
    afterLike_ = IsWord(text, "like");
}

StatementTemplate::Position StatementTemplate::ReadText(Position at) {
  Literal literal;
  literal.begin = at + 1 - begin_;
  for (Position from = at + 1;;) {
    const qsizetype quote = QStringView(from, end_ - from).indexOf(u'\'');
    if (quote < 0) return nullptr;
    at = from + quote;
    from = at + 2;
    if (at + 1 == end_ || at[1] != u'\'') break;
    literal.hasDoubledQuotes = true;
  }
  literal.length = at - begin_ - literal.begin;
  const QStringView inner(begin_ + literal.begin, literal.length);
  if (afterLike_)
    literal.traits = TraitsOfPattern(inner);
  else if (judged_)
    literal.traits = TraitsOf(inner);
  KeepLiteral(literal);
  return at + 1;
}

StatementTemplate::Position StatementTemplate::ReadNumber(Position at) {
  Literal literal;
  literal.kind = Literal::Integer;
  literal.begin = at - begin_;
  const auto digits = [&] {
    while (at < end_ && IsDigit(*at)) ++at;
  };
  digits();
  if (at < end_ && *at == u'.') {
    literal.kind = Literal::Decimal;
    ++at;
    digits();
  }
  if (at + 1 < end_ && (*at == u'e' || *at == u'E')) {
    const bool hasSign = at[1] == u'-' || at[1] == u'+';
    if (IsDigit(at[1]) || (hasSign && at + 2 < end_ && IsDigit(at[2]))) {
      literal.kind = Literal::Float;
      at += 2;
      digits();
    }
  }
  literal.length = at - begin_ - literal.begin;
  KeepLiteral(literal);
  return at;
}

StatementTemplate::Position StatementTemplate::SkipTo(Position at, char16_t close) {
  for (Position end = at + 1; end < end_; ++end) {
    if (*end != close) continue;
    if (end + 1 < end_ && end[1] == close) {
      ++end;
      continue;
    }
    Keep(at, end + 1);
    afterLike_ = false;
    return end + 1;
  }
  return nullptr;
}

StatementTemplate::Position StatementTemplate::SkipComment(Position at) {
  const QStringView rest(at, end_ - at);
  qsizetype length = rest.indexOf(*at == u'-' ? QStringView(u"\n") : QStringView(u"*/"), 2);
  if (*at == u'-')
    length = length < 0 ? rest.size() : length;
  else if (length < 0)
    return nullptr;
  else
    length += 2;
  Keep(at, at + length);
  return at + length;
}

}  // namespace folvane::sql
