#include "components/reports/DefaultTemplate.h"

#include <QStringList>
#include <algorithm>
#include <numeric>

#include "components/reports/ReportData.h"

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;

using Fields = std::vector<ReportField>;

// Columns of so many twips together fit on a sheet of A4 that stands upright, and on one that lies.
constexpr int kUprightWidth = 11000, kLyingWidth = 17000;
// A value of more bytes gets a line of the form for itself.
constexpr int kHalfLine = 30;

QString Braced(const QString& name) { return u"{{"_s + name + u"}}"_s; }

QString Page(bool wide) {
  const QString page = wide ? u"A4 landscape 15 12 15 12"_s : u"A4 portrait 20 15 20 20"_s;
  return u"<html>\n<head>\n<meta name=\"page\" content=\""_s + page +
         u"\">\n</head>\n<body>\n<p align=\"center\" style=\"font-size: 18pt; font-weight: bold\">{{REPORT_TITLE}}</p>\n"_s;
}

QString TableBegin(const QString& fontSize) {
  return u"<table width=\"100%\" border=\"1\" cellspacing=\"0\" cellpadding=\"4\" style=\"border-collapse: collapse; "
         "border-color: black; font-size: %1\">\n"_s.arg(fontSize);
}

bool IsDate(const ReportField& field) { return field.marker.endsWith(u"DATE"_s); }

// In twips: as wide as in the record list, though there is less room for long texts and none to scroll.
int WidthOf(const ReportField& field) {
  if (field.listWidth > 0) return std::clamp(field.listWidth, 800, 3200);
  return field.isNumber ? 800 : IsDate(field) ? 1200 : 1600;
}

int WidthOf(const Fields& fields) {
  return std::accumulate(fields.begin(), fields.end(), 0,
                         [](int sum, const ReportField& field) { return sum + WidthOf(field); });
}

QString TableOf(const Fields& fields, const QString& section, const QString& captionPrefix) {
  const int total = std::max(WidthOf(fields), 1);
  QString head = u"<thead>\n<tr>\n<th width=\"5%\">序号</th>\n"_s;
  QString row = u"<tr>\n<td align=\"center\">{{NO}}</td>\n"_s;
  for (const ReportField& field : fields) {
    head += u"<th width=\"%1%\">%2</th>\n"_s.arg(WidthOf(field) * 95.0 / total, 0, 'f', 1)
                .arg(Braced(captionPrefix + field.marker));
    const QString way = IsDate(field)    ? u" align=\"center\" style=\"white-space: nowrap\""_s
                        : field.isNumber ? u" align=\"center\""_s
                                         : QString();
    row += u"<td%1>%2</td>\n"_s.arg(way, Braced(field.marker));
  }
  return TableBegin(total > kLyingWidth ? u"8pt"_s : u"9.5pt"_s) + head + u"</tr>\n</thead>\n{{#"_s + section +
         u"}}\n"_s + row + u"</tr>\n{{/"_s + section + u"}}\n</table>\n"_s;
}

QString Cells(const ReportField& field, const QString& prefix, int span) {
  return u"<td width=\"16%\" align=\"center\"><b>%1</b></td><td width=\"%2%\" colspan=\"%3\">%4</td>"_s
      .arg(Braced(prefix + u"CAPTION_"_s + field.marker))
      .arg(span == 1 ? 34 : 84)
      .arg(span)
      .arg(Braced(prefix + field.marker));
}

bool IsLong(const ReportTable& table, const ReportField& field, qint64 row) {
  return field.length > 2 * kHalfLine || table.Text(row, field).toUtf8().size() > kHalfLine;
}

// Two short values beside each other, a long one alone.
QString FormRows(const ReportTable& table, const Fields& fields, qint64 row, const QString& prefix = {}) {
  QString html;
  const ReportField* waiting = nullptr;
  for (const ReportField& field : fields) {
    if (IsLong(table, field, row)) {
      html += u"<tr>%1</tr>\n"_s.arg(Cells(field, prefix, 3));
    } else if (!waiting) {
      waiting = &field;
    } else {
      html += u"<tr>%1%2</tr>\n"_s.arg(Cells(*waiting, prefix, 1), Cells(field, prefix, 1));
      waiting = nullptr;
    }
  }
  return waiting ? html + u"<tr>%1</tr>\n"_s.arg(Cells(*waiting, prefix, 3)) : html;
}

// A line's serial stands in the table's first column already.
Fields LineFields(const ReportTable& lines) {
  Fields fields = lines.CaptionedFields();
  fields.erase(std::remove_if(fields.begin(), fields.end(),
                              [](const ReportField& field) { return field.marker == u"FILE_ID"_s; }),
               fields.end());
  return fields;
}

Fields Shown(const ReportTable& table) {
  const Fields captioned = table.CaptionedFields();
  return captioned.empty() ? table.Fields() : captioned;
}

QString ListPage(const ReportTable& table) {
  Fields fields = table.ListFields();
  if (fields.empty()) fields = Shown(table);
  return Page(WidthOf(fields) > kUprightWidth) + TableOf(fields, u"ROWS"_s, u"CAPTION_"_s) +
         u"<p>共 {{COUNT}} 条记录</p>\n"_s;
}

QString FormPage(const ReportData& data) {
  const ReportTable& main = data.Main();
  QString html = Page(false) + TableBegin(u"10.5pt"_s);
  if (data.Heads() && data.HeadOf(0) >= 0)
    html += FormRows(*data.Heads(), data.Heads()->CaptionedFields(), data.HeadOf(0), u"HEAD_"_s);
  html += FormRows(main, Shown(main), 0) + u"</table>\n"_s;
  if (data.Lines() && data.Lines()->RowCount() > 0)
    html += u"<p></p>\n"_s + TableOf(LineFields(*data.Lines()), u"LINES"_s, u"LINES_CAPTION_"_s);
  return html;
}

}  // namespace

QString DefaultTemplate(const ReportData& data) {
  const QString body = data.Main().RowCount() == 1 ? FormPage(data) : ListPage(data.Main());
  const QString printed = data.User().isEmpty() ? u"打印日期：{{TODAY}}"_s : u"打印人：{{USER}}  打印日期：{{TODAY}}"_s;
  return body + u"<p align=\"right\">"_s + printed + u"</p>\n</body>\n</html>\n"_s;
}

}  // namespace folvane::reports
