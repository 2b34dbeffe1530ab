#include "base/DocumentNumber.h"

#include <QRegularExpression>

namespace folvane {

std::optional<DocumentNumber> DocumentNumber::Split(const QString& text) {
  static const QRegularExpression shape(
      QStringLiteral(R"(^([^〔〕\[\]]*)(?:〔(\d+)〕|\[(\d+)\])([^\d〔〕\[\]]*?)(?:(\d+)([^\d〔〕\[\]]*)|(号?))$)"));
  const QRegularExpressionMatch match = shape.match(text);
  if (!match.hasMatch()) return {};
  const bool square = match.hasCaptured(3);
  return DocumentNumber{match.captured(1),
                        square ? YearBracket::Square : YearBracket::Tortoise,
                        match.captured(square ? 3 : 2),
                        match.captured(4),
                        match.captured(5),
                        match.captured(6) + match.captured(7)};
}

QString DocumentNumber::Join() const {
  const bool square = bracket == YearBracket::Square;
  return agency + (square ? u'[' : u'〔') + year + (square ? u']' : u'〕') + before + running + after;
}

// Digit by digit: a running number may be longer than any integer.
DocumentNumber DocumentNumber::Next() const {
  DocumentNumber next = *this;
  if (running.isEmpty()) return next;
  for (qsizetype place = running.size() - 1; place >= 0; --place) {
    QChar& digit = next.running[place];
    if (digit != u'9') {
      digit = QChar(digit.unicode() + 1);
      return next;
    }
    digit = u'0';
  }
  next.running.prepend(u'1');
  return next;
}

QString NextDocumentNumber(const QString& number) {
  const auto parts = DocumentNumber::Split(number);
  return parts ? parts->Next().Join() : number;
}

}  // namespace folvane
