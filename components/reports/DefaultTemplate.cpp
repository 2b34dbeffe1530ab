#include "components/reports/DefaultTemplate.h"

#include <QStringList>
#include <algorithm>

#include "components/reports/ReportData.h"

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;

using Fields = std::vector<ReportField>;

// What the columns of a record list take on a sheet of A4 that stands upright, in twips.
constexpr int kUprightWidth = 11000;
// A value of more bytes gets a line of the form for itself.
constexpr int kHalfLine = 30;
// A value of so many bytes is not broken, such as a date.
constexpr int kUnbroken = 12;

const QString kTable =
    u"<table width=\"100%\" cellspacing=\"0\" cellpadding=\"4\" style=\"border-collapse: collapse; border-color: black\" border=\"1\">\n"_s;

QString Marker(const QString& name) { return u"{{"_s + name + u"}}"_s; }

QString Page(bool wide) {
  const QString page = wide ? u"A4 landscape 15 12 15 12"_s : u"A4 portrait 20 15 20 20"_s;
  return u"<html>\n<head>\n<meta name=\"page\" content=\""_s + page +
         u"\">\n</head>\n<body>\n<p align=\"center\" style=\"font-size: 18pt; font-weight: bold\">{{REPORT_TITLE}}</p>\n"_s;
}

bool IsUnbroken(const ReportField& field) {
  return field.length > 0 ? field.length <= kUnbroken : field.marker.endsWith(u"DATE"_s);
}

QString TableOf(const Fields& fields, const QString& section, const QString& captionPrefix) {
  int total = 0;
  for (const ReportField& field : fields) total += std::max(field.listWidth, 900);
  QString head = u"<thead>\n<tr>\n<th width=\"6%\">序号</th>\n"_s;
  QString row = u"<tr>\n<td align=\"center\">{{NO}}</td>\n"_s;
  for (const ReportField& field : fields) {
    const int width = std::max(field.listWidth, 900) * 94 / std::max(total, 1);
    head += u"<th width=\"%1%\">%2</th>\n"_s.arg(width).arg(Marker(captionPrefix + field.marker));
    const QString unbroken = u" align=\"center\" style=\"white-space: nowrap\""_s;
    row += u"<td%1>%2</td>\n"_s.arg(IsUnbroken(field) ? unbroken : QString(), Marker(field.marker));
  }
  return kTable + head + u"</tr>\n</thead>\n{{#"_s + section + u"}}\n"_s + row + u"</tr>\n{{/"_s + section +
         u"}}\n</table>\n"_s;
}

QString Cells(const ReportField& field, const QString& prefix, int span) {
  return u"<td width=\"16%\" align=\"center\" bgcolor=\"#f2f2f2\">%1</td><td colspan=\"%2\">%3</td>"_s
      .arg(Marker(prefix.isEmpty() ? u"CAPTION_"_s + field.marker : prefix + u"CAPTION_"_s + field.marker))
      .arg(span)
      .arg(Marker(prefix + field.marker));
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
  int width = 0;
  for (const ReportField& field : fields) width += std::max(field.listWidth, 900);
  return Page(width > kUprightWidth) + TableOf(fields, u"ROWS"_s, u"CAPTION_"_s) + u"<p>共 {{COUNT}} 条记录</p>\n"_s;
}

QString FormPage(const ReportData& data) {
  const ReportTable& main = data.Main();
  QString html = Page(false) + kTable;
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
