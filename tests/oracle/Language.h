#pragma once

#include <QDateTime>
#include <QString>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace folvane::test::oracle {

enum class Type { Text, Integer, Decimal, Date };

/// A value as the language has it: null, a text, a number or a moment.
using Value = std::variant<std::monostate, QString, double, QDateTime>;

inline bool IsNull(const Value& value) { return value.index() == 0; }
inline const QString& Text(const Value& value) { return std::get<QString>(value); }
inline double Number(const Value& value) { return std::get<double>(value); }
inline const QDateTime& Moment(const Value& value) { return std::get<QDateTime>(value); }

/// True, false or unknown.
using Truth = std::optional<bool>;
Truth And(Truth a, Truth b);
Truth Or(Truth a, Truth b);
Truth Not(Truth a);

// What the language says of values that are not null, as plainly as it can be written.

/// Texts without regard to ASCII case and trailing blanks, by their bytes.
int Compare(const Value& a, const Value& b);
/// The form that texts of one meaning share.
QString Folded(const QString& text);
QString WithoutTrailingBlanks(QString text);

QString Upper(QString text);
QString Lower(QString text);
int Length(const QString& text);
QString Left(const QString& text, int length);
QString Right(const QString& text, int length);
QString SubString(const QString& text, int start, int length);
int CharIndex(const QString& find, const QString& text, int from);
QString Replace(const QString& text, const QString& find, const QString& with);
QString Str(double number, int width, int decimals);
bool IsNumeric(const QString& text);
double WholeNumber(const QString& text);
double Rounded(double number, int decimals);

/// A number or a moment in the place of a text.
QString AsText(const Value& value);

QDateTime MomentOf(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
double DatePart(const QString& part, const QDateTime& at);
double DateDiff(const QString& part, const QDateTime& from, const QDateTime& to);
QDateTime DateAdd(const QString& part, int count, const QDateTime& at);
QString Formatted(int style, const QDateTime& at);

}  // namespace folvane::test::oracle
