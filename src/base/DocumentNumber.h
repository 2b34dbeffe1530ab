#pragma once

#include <QString>
#include <optional>

namespace folvane {

/// The year of a document number stands in brackets, 〔2002〕 or [2002].
enum class YearBracket { Tortoise, Square };

/// A document number in its parts, such as 国发〔2002〕第017号: the word of the agency, the year, the running number
/// and the texts around that.
struct DocumentNumber {
  QString agency;
  YearBracket bracket = YearBracket::Tortoise;
  QString year;
  QString before;   ///< the running number, such as 第
  QString running;  ///< digits, leading zeros kept; "" while it is still to come
  QString after;    ///< the running number, such as 号

  /// Takes a number apart; none for a text of another format.
  static std::optional<DocumentNumber> Split(const QString& text);
  /// The number as it is written.
  QString Join() const;
  /// The number that follows it. The running number keeps its width for as long as it can.
  DocumentNumber Next() const;
};

/// The document number that follows the given one; a text of another format as it is.
QString NextDocumentNumber(const QString& number);

}  // namespace folvane
