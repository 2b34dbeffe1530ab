#include "base/DocumentNumber.h"

#include <QRegularExpression>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kOpening = u"〔﹝[［【〖（(〈"_s;
const QString kClosing = u"〕﹞]］】〗）)〉"_s;  // each the partner of the one at its index
const QString kDigits = u"0-9０-９"_s;

QString AnyOf(const QString& signs) { return u"[%1]"_s.arg(QRegularExpression::escape(signs)); }

struct YearPart {
  qsizetype begin = 0, end = 0;
  QString brackets, year;
};

/// The one year in brackets; none where there are several: of a list of numbers none is the one to count on from.
std::optional<YearPart> FindYear(const QString& text) {
  static const QRegularExpression pattern(u"(%1)([%2]{2,4})(%3)"_s.arg(AnyOf(kOpening), kDigits, AnyOf(kClosing)));
  std::optional<YearPart> found;
  for (const QRegularExpressionMatch& match : pattern.globalMatch(text)) {
    const QString opening = match.captured(1), closing = match.captured(3);
    if (kOpening.indexOf(opening) != kClosing.indexOf(closing)) continue;
    if (found) return {};
    found = YearPart{match.capturedStart(), match.capturedEnd(), opening + closing, match.captured(2)};
  }
  return found;
}

std::optional<DocumentNumber> SplitWithYear(const QString& text, const YearPart& part) {
  static const QRegularExpression pattern(u"^([^%1]*?)(?:([%1]+)([^%1]*)|(号?))\\z"_s.arg(kDigits));
  const QRegularExpressionMatch rest = pattern.match(text.sliced(part.end));
  if (!rest.hasMatch()) return {};
  return DocumentNumber{text.left(part.begin), part.brackets,    part.year,
                        rest.captured(1),      rest.captured(2), rest.captured(3) + rest.captured(4)};
}

std::optional<DocumentNumber> SplitWithoutYear(const QString& text) {
  static const QRegularExpression pattern(u"^([^%1]*)第([%1]+)(号[^%1]*)\\z"_s.arg(kDigits));
  const QRegularExpressionMatch match = pattern.match(text);
  if (!match.hasMatch()) return {};
  return DocumentNumber{match.captured(1), {}, {}, u"第"_s, match.captured(2), match.captured(3)};
}

}  // namespace

DocumentNumber DocumentNumber::Begun(const QString& agency, YearBracket bracket, const QString& year) {
  return {agency, bracket == YearBracket::Tortoise ? u"〔〕"_s : u"[]"_s, year, {}, {}, u"号"_s};
}

std::optional<DocumentNumber> DocumentNumber::Split(const QString& text) {
  const std::optional<YearPart> year = FindYear(text);
  return year ? SplitWithYear(text, *year) : SplitWithoutYear(text);
}

QString DocumentNumber::Join() const {
  return agency + brackets.left(1) + year + brackets.mid(1) + before + running + after;
}

// Digit by digit: a running number may be longer than any integer.
DocumentNumber DocumentNumber::Next() const {
  DocumentNumber next = *this;
  if (running.isEmpty()) return next;
  const char16_t zero = running.front() >= u'０' ? u'０' : u'0';
  for (qsizetype at = running.size() - 1; at >= 0; --at) {
    QChar& digit = next.running[at];
    if (digit != u'9' && digit != u'９') {
      digit = QChar(digit.unicode() + 1);
      return next;
    }
    digit = digit == u'9' ? u'0' : u'０';
  }
  next.running.prepend(QChar(zero + 1));
  return next;
}

QString NextDocumentNumber(const QString& number) {
  const auto parts = DocumentNumber::Split(number);
  return parts ? parts->Next().Join() : number;
}

QString AgencyOf(const QString& text) {
  static const QRegularExpression pattern(u"^[^%1]*?(?=%2[%1〇○零一二三四五六七八九%3]|第?[%1]|\\z)"_s.arg(
      kDigits, AnyOf(kOpening), QRegularExpression::escape(kClosing)));
  return pattern.match(text).captured();
}

}  // namespace folvane
