#pragma once

#include <QString>
#include <optional>

namespace folvane {

/// The brackets that a new document number gets around its year: 〔2002〕 or [2002].
enum class YearBracket { Tortoise, Square };

/// A document number in its parts, such as 国发〔2002〕第017号: the word of the agency, the year in its brackets, the
/// running number and the texts around that. Orders and decrees count on without a year: 国令第707号.
struct DocumentNumber {
  QString agency;
  QString brackets;  ///< around the year, both in one text: any pair that offices write; "" without a year
  QString year;
  QString before;   ///< the running number, such as 第
  QString running;  ///< digits of either width, leading zeros kept; "" while it is still to come
  QString after;    ///< the running number, such as 号

  /// A number of an agency and a year whose running number is still to come.
  static DocumentNumber Begun(const QString& agency, YearBracket bracket, const QString& year);
  /// Takes a number apart; none for a text of another format.
  static std::optional<DocumentNumber> Split(const QString& text);
  /// The number as it is written.
  QString Join() const;
  /// The number that follows it. The running number keeps its width for as long as it can.
  DocumentNumber Next() const;
};

/// The document number that follows the given one; a text of another format as it is.
QString NextDocumentNumber(const QString& number);

/// The word of the agency at the head of a text, which may be no document number or not yet one: what stands before the
/// year's opening bracket, before 第 and a number, or before the first digit.
QString AgencyOf(const QString& text);

}  // namespace folvane
