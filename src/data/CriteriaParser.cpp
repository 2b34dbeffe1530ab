#include <array>

#include <folvane/DataError.h>

#include "data/Criteria.h"
#include "data/ValueText.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

/// Reads a Find or Filter text. And binds tighter than Or; brackets over Or are multiplied out.
class CriteriaParser {
 public:
  CriteriaParser(const QString& text, const Rows& rows) : text_(text), rows_(rows) {}

  Criteria Parse() {
    Criteria criteria;
    criteria.alternatives_ = ReadOr();
    SkipBlanks();
    if (at_ < text_.size()) Fail();
    return criteria;
  }

 private:
  using Alternatives = std::vector<std::vector<Condition>>;
  // Far beyond what anybody writes, and what brackets over Or may be multiplied out to.
  static constexpr int kDeepest = 200;
  static constexpr std::size_t kMostAlternatives = 10'000;

  Alternatives ReadOr() {
    Alternatives alternatives = ReadAnd();
    while (TakeWord(u"or")) {
      Alternatives more = ReadAnd();
      alternatives.insert(alternatives.end(), more.begin(), more.end());
    }
    return alternatives;
  }

  Alternatives ReadAnd() {
    Alternatives left = ReadTerm();
    while (TakeWord(u"and")) {
      const Alternatives right = ReadTerm();
      if (left.size() * right.size() > kMostAlternatives) Fail();
      Alternatives product;
      for (const auto& a : left)
        for (const auto& b : right) {
          product.push_back(a);
          product.back().insert(product.back().end(), b.begin(), b.end());
        }
      left = std::move(product);
    }
    return left;
  }

  Alternatives ReadTerm() {
    if (!TakeSign(u"(")) return {{ReadCondition()}};
    if (++depth_ > kDeepest) Fail();
    Alternatives inner = ReadOr();
    if (!TakeSign(u")")) Fail();
    --depth_;
    return inner;
  }

  Condition ReadCondition() {
    const QString name = ReadName();
    const int column = rows_.IndexOf(name);
    if (column < 0) throw DataError(DataErrorKind::Usage, u"记录集中没有字段“%1”。"_s.arg(name));
    const Condition::Operator op = ReadOperator();
    return Condition(column, rows_.Columns()[size_t(column)], op, ReadLiteral());
  }

  QString ReadName() {
    SkipBlanks();
    if (at_ < text_.size() && text_[at_] == u'[') {
      const qsizetype end = text_.indexOf(u']', at_);
      if (end < 0) Fail();
      const QString name = text_.mid(at_ + 1, end - at_ - 1);
      at_ = end + 1;
      return name;
    }
    const qsizetype start = at_;
    while (at_ < text_.size() && (text_[at_].isLetterOrNumber() || text_[at_] == u'_' || text_[at_] == u'.')) ++at_;
    if (at_ == start) Fail();
    return text_.mid(start, at_ - start);
  }

  Condition::Operator ReadOperator() {
    struct Sign {
      QStringView text;
      Condition::Operator op;
    };
    static const std::array<Sign, 6> signs{{{u"<>", Condition::NotEqual},
                                            {u"<=", Condition::LessOrEqual},
                                            {u">=", Condition::GreaterOrEqual},
                                            {u"=", Condition::Equal},
                                            {u"<", Condition::Less},
                                            {u">", Condition::Greater}}};
    for (const Sign& sign : signs)
      if (TakeSign(sign.text)) return sign.op;
    if (TakeWord(u"like")) return Condition::Like;
    Fail();
  }

  QVariant ReadLiteral() {
    SkipBlanks();
    if (at_ < text_.size() && (text_[at_] == u'\'' || text_[at_] == u'#')) return ReadQuoted(text_[at_]);
    if (TakeWord(u"null")) return {};
    const qsizetype start = at_;
    while (at_ < text_.size() && !text_[at_].isSpace() && text_[at_] != u')') ++at_;
    const QString word = text_.mid(start, at_ - start);
    bool isNumber = false;
    const double number = word.toDouble(&isNumber);
    if (!isNumber) Fail();
    bool isWhole = false;
    const qint64 whole = word.toLongLong(&isWhole);
    return isWhole ? QVariant(whole) : QVariant(number);
  }

  QVariant ReadQuoted(QChar quote) {
    QString value;
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] != quote) {
        value += text_[at_];
      } else if (at_ + 1 < text_.size() && text_[at_ + 1] == quote) {
        value += text_[at_++];
      } else {
        ++at_;
        return value;
      }
    }
    Fail();
  }

  void SkipBlanks() {
    while (at_ < text_.size() && text_[at_].isSpace()) ++at_;
  }

  bool TakeSign(QStringView sign) {
    SkipBlanks();
    if (!QStringView(text_).mid(at_).startsWith(sign)) return false;
    at_ += sign.size();
    return true;
  }

  bool TakeWord(QStringView word) {
    SkipBlanks();
    const QStringView rest = QStringView(text_).mid(at_);
    if (!rest.startsWith(word, Qt::CaseInsensitive)) return false;
    if (rest.size() > word.size() && (rest[word.size()].isLetterOrNumber() || rest[word.size()] == u'_')) return false;
    at_ += word.size();
    return true;
  }

  [[noreturn]] void Fail() const { throw DataError(DataErrorKind::Usage, u"不能识别的筛选条件：%1"_s.arg(text_)); }

  const QString& text_;
  const Rows& rows_;
  qsizetype at_ = 0;
  int depth_ = 0;
};

Criteria Criteria::Parse(const QString& text, const Rows& rows) { return CriteriaParser(text, rows).Parse(); }

}  // namespace folvane
