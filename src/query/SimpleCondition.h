#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace folvane {

// Values go into the texts as they were typed.

/// The condition of a text box on its field; "" for no text.
QString LikeCondition(const QString& field, const QString& text);

/// The condition of a pair of limits, standing by itself in brackets; either may be "", and both give "".
QString RangeCondition(const QString& field, const QString& begin, const QString& end);

/// A limit as it was typed, a number or a date: without blanks around it, in half-width signs, and a full date as
/// YYYY-mm-DD.
QString RangeLimit(const QString& typed);

/// What has been entered in a simple query, kind by kind.
struct SimpleCriteria {
  struct FieldText {
    QString field, text;
  };
  struct FieldSpan {
    QString field, begin, end;
  };
  QStringList likes;                       ///< results of the text boxes
  QStringList ranges;                      ///< results of the range boxes
  std::vector<FieldSpan> dates;            ///< pairs of date boxes
  std::vector<FieldText> dictionaryTexts;  ///< boxes with a dictionary's list
};

/// The condition of a simple query over a table: what was entered, joined by And; "" when nothing was.
QString SimpleCondition(const QString& table, const SimpleCriteria& criteria);

}  // namespace folvane
