#include "components/reports/TemplateFiller.h"

#include <QRegularExpression>
#include <QSet>
#include <ctemplate/template.h>
#include <map>
#include <numeric>

#include <folvane/DataError.h>

#include "components/reports/MarkerValues.h"
#include "components/reports/Markers.h"

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;

using Dictionary = ctemplate::TemplateDictionary;

// The lines inside of ROWS: a row without any must not show those of the report's first one.
const QString kRowLines = u"ROW_LINES"_s;

std::string Html(const QString& text) {
  static const QRegularExpression controls(u"[\\x00-\\x08\\x0b\\x0c\\x0e-\\x1f]"_s);
  return QString(text)
      .remove(controls)
      .toHtmlEscaped()
      .replace(u"\r\n"_s, u"<br>"_s)
      .replace(u'\n', u"<br>"_s)
      .replace(u'\r', u"<br>"_s)
      .toStdString();
}

// One template and the data that goes into it.
class Filler {
 public:
  Filler(const QString& text, const ReportData& data) : data_(data) {
    all_.rows.resize(size_t(data.Main().RowCount()));
    std::iota(all_.rows.begin(), all_.rows.end(), 0);
    Read(text);
  }

  QString Fill() {
    const std::unique_ptr<ctemplate::Template> form(
        ctemplate::Template::StringToTemplate(text_.toStdString(), ctemplate::DO_NOT_STRIP));
    if (!form) throw DataError(DataErrorKind::Usage, u"报表模板有错误，无法使用。"_s);
    Dictionary dictionary("report");
    SetValues(dictionary, all_);
    if (Uses(Scope::Root, Section::kRows)) AddRows(dictionary, all_);
    if (Uses(Scope::Root, Section::kLines)) AddLines(dictionary, Section::kLines, all_);
    for (const QString& section : sections_[Scope::Root])
      if (section != Section::kRows && section != Section::kLines) AddGroups(dictionary, section);
    std::string html;
    form->Expand(&html, &dictionary);
    return QString::fromStdString(html);
  }

 private:
  // Takes down which names the template uses in which scope, and puts the names into its text as the dictionary has
  // them.
  void Read(const QString& text) {
    std::vector<Scope> scopes{Scope::Root};
    bool inGroup = false;
    qsizetype copied = 0;
    for (const Marker& marker : MarkersOf(text)) {
      QString name = marker.name;
      if (marker.kind == Marker::End) {
        inGroup = inGroup && scopes.back() != Scope::Group;
        scopes.pop_back();
      }
      const Scope scope = scopes.back();
      if (name == Section::kLines && scope == Scope::Row) name = kRowLines;
      if (marker.kind == Marker::Value) {
        CheckValue(marker, scope, inGroup);
        values_[scope].insert(name);
      } else if (marker.kind == Marker::Begin) {
        sections_[scope].insert(name);
        scopes.push_back(ScopeInside(marker, scope));
        inGroup = inGroup || scopes.back() == Scope::Group;
      }
      text_ += text.mid(copied, marker.at - copied) + name;
      copied = marker.at + marker.length;
    }
    text_ += text.mid(copied);
  }

  void CheckValue(const Marker& marker, Scope scope, bool inGroup) const {
    Place place = all_;
    place.scope = scope;
    if (inGroup) place.group = QString();
    if (!ValueOf(marker.name, place, data_))
      throw DataError(DataErrorKind::Usage,
                      u"报表模板第 %1 行有错误：“%2”不是“%3”的字段，也不是此处可用的标记。"_s.arg(marker.line)
                          .arg(marker.name, data_.Main().Caption()));
  }

  Scope ScopeInside(const Marker& marker, Scope scope) const {
    if (marker.name == Section::kRows && scope <= Scope::Group) return Scope::Row;
    if (marker.name == Section::kNext && scope == Scope::Row) return Scope::Row;
    const bool forLines = scope == Scope::Root || scope == Scope::Row;
    if (marker.name == Section::kLines && forLines && data_.Lines()) return Scope::Line;
    if (scope == Scope::Root && GroupOf(marker.name, 0, data_)) return Scope::Group;
    throw DataError(DataErrorKind::Usage,
                    u"报表模板第 %1 行有错误：此处不能使用“{{#%2}}”。"_s.arg(marker.line).arg(marker.name));
  }

  bool Uses(Scope scope, const QString& section) const {
    const auto used = sections_.find(scope);
    return used != sections_.end() && used->second.contains(section);
  }

  void SetValues(Dictionary& dictionary, const Place& place) {
    for (const QString& name : values_[place.scope])
      dictionary.SetValue(name.toStdString(), Html(ValueOf(name, place, data_).value_or(QString())));
  }

  void AddRows(Dictionary& dictionary, Place place) {
    place.scope = Scope::Row;
    place.number = 0;
    for (const qint64 row : place.rows) {
      place.row = row;
      ++place.number;
      Dictionary& one = *dictionary.AddSectionDictionary(Section::kRows.toStdString());
      SetValues(one, place);
      if (place.number > 1) one.ShowSection(Section::kNext.toStdString());
      if (Uses(Scope::Row, kRowLines)) AddLines(one, kRowLines, place);
    }
  }

  void AddLines(Dictionary& dictionary, const QString& section, Place place) {
    place.scope = Scope::Line;
    place.number = 0;
    for (const qint64 line : data_.LinesOf(place.row)) {
      place.line = line;
      ++place.number;
      SetValues(*dictionary.AddSectionDictionary(section.toStdString()), place);
    }
  }

  // In the order in which the groups begin.
  void AddGroups(Dictionary& dictionary, const QString& section) {
    std::vector<Place> groups;
    QHash<QString, size_t> known;
    for (const qint64 row : all_.rows) {
      const QString group = *GroupOf(section, row, data_);
      if (!known.contains(group)) {
        known[group] = groups.size();
        groups.push_back({Scope::Group, {}, row, 1, -1, group});
      }
      groups[known[group]].rows.push_back(row);
    }
    for (const Place& group : groups) {
      Dictionary& one = *dictionary.AddSectionDictionary(section.toStdString());
      SetValues(one, group);
      if (Uses(Scope::Group, Section::kRows)) AddRows(one, group);
    }
  }

  const ReportData& data_;
  Place all_;
  QString text_;
  std::map<Scope, QSet<QString>> values_, sections_;
};

}  // namespace

QString FillTemplate(const QString& text, const ReportData& data) { return Filler(text, data).Fill(); }

}  // namespace folvane::reports
