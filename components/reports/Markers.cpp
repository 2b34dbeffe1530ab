#include "components/reports/Markers.h"

#include <QRegularExpression>

#include <folvane/DataError.h>

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;

[[noreturn]] void ThrowAt(int line, const QString& what) {
  throw DataError(DataErrorKind::Usage, u"报表模板第 %1 行有错误：%2"_s.arg(line).arg(what));
}

Marker ReadMarker(const QString& text, qsizetype open, qsizetype close, int line) {
  static const QRegularExpression shape(u"^([#/]?)([A-Za-z0-9_]+)$"_s);
  const QString inside = text.mid(open + 2, close - open - 2);
  const QRegularExpressionMatch match = shape.match(inside);
  if (!match.hasMatch()) ThrowAt(line, u"“{{%1}}”不是可用的标记。"_s.arg(inside.simplified()));
  const QString sign = match.captured(1);
  return {sign == u"#"_s   ? Marker::Begin
          : sign == u"/"_s ? Marker::End
                           : Marker::Value,
          match.captured(2).toUpper(), line, open + 2 + match.capturedStart(2), match.capturedLength(2)};
}

// Every section ends, and in the section that it began in.
void CheckSections(const std::vector<Marker>& markers) {
  std::vector<const Marker*> open;
  for (const Marker& marker : markers) {
    if (marker.kind == Marker::Begin) open.push_back(&marker);
    if (marker.kind != Marker::End) continue;
    if (open.empty()) ThrowAt(marker.line, u"“{{/%1}}”之前没有“{{#%1}}”。"_s.arg(marker.name));
    if (open.back()->name != marker.name)
      ThrowAt(marker.line, u"此处应为“{{/%1}}”，而不是“{{/%2}}”。"_s.arg(open.back()->name, marker.name));
    open.pop_back();
  }
  if (!open.empty()) ThrowAt(open.back()->line, u"“{{#%1}}”没有对应的“{{/%1}}”。"_s.arg(open.back()->name));
}

}  // namespace

std::vector<Marker> MarkersOf(const QString& text) {
  std::vector<Marker> markers;
  int line = 1;
  qsizetype counted = 0;
  for (qsizetype open = text.indexOf(u"{{"_s); open >= 0; open = text.indexOf(u"{{"_s, open)) {
    line += int(QStringView(text).mid(counted, open - counted).count(u'\n'));
    counted = open;
    const qsizetype close = text.indexOf(u"}}"_s, open);
    if (close < 0) ThrowAt(line, u"标记没有以“}}”结束。"_s);
    if (text.mid(open + 2, 1) != u"!"_s) markers.push_back(ReadMarker(text, open, close, line));
    open = close + 2;
  }
  CheckSections(markers);
  return markers;
}

}  // namespace folvane::reports
