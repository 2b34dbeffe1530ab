#include "components/reports/ReportEngine.h"

#include "components/reports/DefaultTemplate.h"
#include "components/reports/PageSetup.h"
#include "components/reports/ReportData.h"
#include "components/reports/ReportPreview.h"
#include "components/reports/TemplateFile.h"
#include "components/reports/TemplateFiller.h"

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;

LaidOutReport LayOut(const ReportRequest& request, const ReportData& data, const QString& text) {
  const QPageLayout layout = KeptPageLayout(request.reportId).value_or(ReadPageLayout(MetaOf(text, u"page"_s)));
  return {data.Title(), ReportPages(FillTemplate(text, data), layout)};
}

}  // namespace

LaidOutReport LayOutReport(const ReportRequest& request) {
  if (const auto text = ReadTemplate(request.reportId)) return LayOutReport(request, *text);
  const ReportData data(request, {});
  return LayOut(request, data, DefaultTemplate(data));
}

LaidOutReport LayOutReport(const ReportRequest& request, const QString& templateText) {
  return LayOut(request, ReportData(request, MetaOf(templateText, u"order"_s)), templateText);
}

void RunReport(const ReportRequest& request) {
  ReportPreview preview(request, LayOutReport(request));
  preview.exec();
}

}  // namespace folvane::reports
