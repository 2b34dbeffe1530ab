#include "components/reports/MarkerValues.h"

#include <QRegularExpression>

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;

// The rest of a name behind a beginning, nothing when it begins otherwise.
std::optional<QString> Behind(const QString& name, const QString& beginning) {
  if (!name.startsWith(beginning)) return std::nullopt;
  return name.mid(beginning.size());
}

std::optional<QString> CaptionIn(const ReportTable* table, const QString& field) {
  const ReportField* found = table ? table->Find(field) : nullptr;
  if (!found) return std::nullopt;
  return found->caption;
}

std::optional<QString> SumIn(const ReportTable* table, const QString& field, const std::vector<qint64>& rows) {
  const ReportField* found = table ? table->Find(field) : nullptr;
  if (!found) return std::nullopt;
  return table->Sum(rows, *found);
}

// Of a row that need not be there.
std::optional<QString> TextIn(const ReportTable* table, const QString& field, qint64 row) {
  const ReportField* found = table ? table->Find(field) : nullptr;
  if (!found) return std::nullopt;
  return row < 0 ? QString() : table->Text(row, *found);
}

std::optional<QString> OfReport(const QString& name, const Place& place, const ReportData& data) {
  if (name == u"REPORT_TITLE"_s) return data.Title();
  if (name == u"TABLE_CAPTION"_s) return data.Main().Caption();
  if (name == u"USER"_s) return data.User();
  if (name == u"TODAY"_s) return data.Moment().toString(u"yyyy-MM-dd"_s);
  if (name == u"YEAR"_s) return data.Moment().toString(u"yyyy"_s);
  if (name == u"TIME"_s) return data.Moment().toString(u"HH:mm"_s);
  if (name == u"COUNT"_s) return QString::number(place.rows.size());
  if (name == u"LINES_COUNT"_s && data.Lines()) return QString::number(data.LinesOf(place.row).size());
  if (name == u"NO"_s && place.scope >= Scope::Row) return QString::number(place.number);
  return name == u"GROUP"_s ? place.group : std::nullopt;
}

std::optional<QString> OfKin(const QString& name, const Place& place, const ReportData& data) {
  if (const auto field = Behind(name, u"CAPTION_"_s)) return CaptionIn(&data.Main(), *field);
  if (const auto field = Behind(name, u"SUM_"_s)) return SumIn(&data.Main(), *field, place.rows);
  if (const auto field = Behind(name, u"LINES_CAPTION_"_s)) return CaptionIn(data.Lines(), *field);
  if (const auto field = Behind(name, u"LINES_SUM_"_s)) return SumIn(data.Lines(), *field, data.LinesOf(place.row));
  if (const auto field = Behind(name, u"HEAD_CAPTION_"_s)) return CaptionIn(data.Heads(), *field);
  if (const auto field = Behind(name, u"HEAD_"_s)) return TextIn(data.Heads(), *field, data.HeadOf(place.row));
  return std::nullopt;
}

}  // namespace

std::optional<QString> ValueOf(const QString& name, const Place& place, const ReportData& data) {
  if (place.scope == Scope::Line)
    if (const auto value = TextIn(data.Lines(), name, place.line)) return value;
  if (const auto value = TextIn(&data.Main(), name, place.row)) return value;
  if (const auto value = OfReport(name, place, data)) return value;
  if (const auto value = OfKin(name, place, data)) return value;
  static const QString chinese = u"_CHN"_s;
  if (!name.endsWith(chinese)) return std::nullopt;
  const auto date = ValueOf(name.chopped(chinese.size()), place, data);
  return date ? std::optional(ChineseDate(*date)) : std::nullopt;
}

std::optional<QString> GroupOf(const QString& section, qint64 row, const ReportData& data) {
  static const QRegularExpression month(u"^(\\d{4})-?(\\d{2})"_s);
  if (const auto field = Behind(section, u"BY_"_s)) return TextIn(&data.Main(), *field, row);
  if (const auto field = Behind(section, u"YEARS_OF_"_s)) {
    const auto text = TextIn(&data.Main(), *field, row);
    return text ? std::optional(text->left(4)) : std::nullopt;
  }
  if (const auto field = Behind(section, u"MONTHS_OF_"_s)) {
    const auto text = TextIn(&data.Main(), *field, row);
    if (!text) return std::nullopt;
    const QRegularExpressionMatch match = month.match(*text);
    return match.hasMatch() ? match.captured(1) + u'-' + match.captured(2) : *text;
  }
  return std::nullopt;
}

QString ChineseDate(const QString& text) {
  static const QRegularExpression shape(u"^(\\d{4})-?(\\d{2})(?:-?(\\d{2})(?: .*)?)?$"_s);
  const QRegularExpressionMatch match = shape.match(text);
  if (!match.hasMatch()) return text;
  const QString month = u"%1年%2月"_s.arg(match.captured(1)).arg(match.captured(2).toInt());
  return match.capturedLength(3) == 0 ? month : month + u"%1日"_s.arg(match.captured(3).toInt());
}

}  // namespace folvane::reports
