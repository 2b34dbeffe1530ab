#include <QDir>
#include <QFileInfo>

#include "catalogue/Catalogue.h"
#include "design/Checks.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

using Weight = DesignFinding::Weight;

void CheckReport(Checked& checked, const Design::Report& report, const QString& folder) {
  const QString where = Shape<Design::Report>::TitleOf(report);
  const auto without = [report](Design& design) { std::erase(design.reports, report); };
  if (report.name.isEmpty())
    checked.findings.push_back({Weight::Warning,
                                u"report-nameless"_s,
                                where,
                                u"报表没有名称"_s,
                                u"菜单中有一个空白的项"_s,
                                u"请填写名称"_s,
                                {}});
  const bool isOffered = report.type == u"1";
  if (isOffered && !FindNamed(checked.design.tables, report.group) && !FindCatalogueTable(report.group))
    checked.findings.push_back({Weight::Warning, u"report-group"_s, where,
                                u"报表所属的表“%1”不存在"_s.arg(report.group), u"哪个菜单中都没有这个报表"_s,
                                u"去掉这个报表"_s, without});
  if (!folder.isEmpty() && !QFileInfo(QDir(folder).filePath(report.id + u".html"_s)).isFile())
    checked.findings.push_back({Weight::Note,
                                u"report-template"_s,
                                where,
                                u"没有模板"_s,
                                u"报表按列表的列或录入的字段自动排版"_s,
                                u"在报表预览中按“设计”做一个模板"_s,
                                {}});
}

}  // namespace

void CheckReports(Checked& checked, const QString& folder) {
  for (const Design::Report& report : checked.design.reports) CheckReport(checked, report, folder);
}

}  // namespace folvane::design
