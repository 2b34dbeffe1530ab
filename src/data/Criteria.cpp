#include "data/Criteria.h"

#include <QDateTime>
#include <cmath>
#include <cstring>

#include <folvane/DataError.h>

#include "data/TextFold.h"
#include "data/ValueText.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

// "*" and "%" stand for any run of characters, without regard to ASCII case.
bool MatchesLike(QByteArrayView text, QByteArrayView pattern) {
  qsizetype t = 0, p = 0, starText = -1, starPattern = -1;
  while (t < text.size()) {
    if (p < pattern.size() && (pattern[p] == '*' || pattern[p] == '%')) {
      starPattern = ++p;
      starText = t;
    } else if (p < pattern.size() && FoldAscii(text[t]) == pattern[p]) {
      ++t;
      ++p;
    } else if (starPattern >= 0) {
      p = starPattern;
      t = ++starText;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && (pattern[p] == '*' || pattern[p] == '%')) ++p;
  return p == pattern.size();
}

QByteArray NumberKey(double number) {
  if (number == 0) number = 0;  // the two zeros are one
  return QByteArray(reinterpret_cast<const char*>(&number), sizeof number);
}

QDateTime AsDateTime(const QVariant& value) {
  if (value.typeId() == QMetaType::QDate) return QDateTime(value.toDate(), QTime(0, 0), Qt::UTC);
  if (value.typeId() == QMetaType::QDateTime) return value.toDateTime();
  return ReadDateTime(ValueText(value));
}

int Sign(qint64 difference) { return difference < 0 ? -1 : difference > 0; }

}  // namespace

Condition::Condition(int column, const ColumnInfo& info, Operator op, const QVariant& literal)
    : column_(column), group_(GroupOfType(info.type)), op_(op), literal_(literal) {
  if (!literal.isValid()) {
    if (op != Equal && op != NotEqual)
      throw DataError(DataErrorKind::Usage, u"空值只能用“=”或“<>”比较：%1"_s.arg(info.name));
    return;
  }
  if (op == Like) group_ = TypeGroup::Text;
  if (group_ == TypeGroup::Number || group_ == TypeGroup::Date) literal_ = FitToColumn(literal, info);
  folded_ = FoldText(ValueText(literal));
}

int Condition::Compare(const QVariant& value) const {
  switch (group_) {
    case TypeGroup::Number: {
      bool isNumber = false;
      const double number = value.toDouble(&isNumber);
      if (!isNumber) break;
      const double other = literal_.toDouble();
      return number < other ? -1 : number > other;
    }
    case TypeGroup::Date:
      return Sign(AsDateTime(literal_).msecsTo(AsDateTime(value)));
    default:
      break;
  }
  return Sign(FoldText(ValueText(value)).compare(folded_));
}

bool Condition::Holds(const QVariant& value) const {
  if (!literal_.isValid()) return value.isValid() == (op_ == NotEqual);
  if (!value.isValid()) return false;
  switch (op_) {
    case Equal:
      return Compare(value) == 0;
    case NotEqual:
      return Compare(value) != 0;
    case Less:
      return Compare(value) < 0;
    case LessOrEqual:
      return Compare(value) <= 0;
    case Greater:
      return Compare(value) > 0;
    case GreaterOrEqual:
      return Compare(value) >= 0;
    case Like:
      return MatchesLike(ValueText(value).toUtf8(), folded_);
  }
  return false;
}

std::optional<QByteArray> Condition::IndexKey() const {
  if (op_ != Equal || !literal_.isValid()) return std::nullopt;
  if (group_ == TypeGroup::Text) return folded_;
  if (group_ == TypeGroup::Number) return NumberKey(literal_.toDouble());
  return std::nullopt;
}

QByteArray IndexKeyOf(const Cell& cell, TypeGroup group) {
  if (group == TypeGroup::Text && cell.kind == Cell::Text) return FoldText(cell.bytes);
  const QVariant value = cell.ToVariant();
  return group == TypeGroup::Number ? NumberKey(value.toDouble()) : FoldText(ValueText(value));
}

std::vector<int> Criteria::Columns() const {
  std::vector<int> columns;
  for (const std::vector<Condition>& conditions : alternatives_)
    for (const Condition& condition : conditions) columns.push_back(condition.Column());
  return columns;
}

const Condition* Criteria::Single() const {
  return alternatives_.size() == 1 && alternatives_[0].size() == 1 ? &alternatives_[0][0] : nullptr;
}

const Condition* Criteria::Anchor() const {
  if (alternatives_.size() != 1) return nullptr;
  for (const Condition& condition : alternatives_[0])
    if (condition.IndexKey()) return &condition;
  return nullptr;
}

}  // namespace folvane
