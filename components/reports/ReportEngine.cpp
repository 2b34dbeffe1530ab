#include "components/reports/ReportEngine.h"

#include "components/reports/DefaultTemplate.h"
#include "components/reports/PageSetup.h"
#include "components/reports/ReportData.h"
#include "components/reports/ReportPreview.h"
#include "components/reports/TemplateFile.h"
#include "components/reports/TemplateFiller.h"

namespace folvane::reports {
using namespace Qt::Literals::StringLiterals;

LaidOutReport LayOutReport(const ReportRequest& request) {
  const auto text = ReadTemplate(request.reportId);
  const ReportData data(request, text ? MetaOf(*text, u"order"_s) : QString());
  return LayOutReport(request, data, text ? *text : DefaultTemplate(data));
}

LaidOutReport LayOutReport(const ReportRequest& request, const ReportData& data, const QString& templateText) {
  const QPageLayout layout = KeptPageLayout(request.reportId).value_or(ReadPageLayout(MetaOf(templateText, u"page"_s)));
  return {data.Title(), ReportPages(FillTemplate(templateText, data), layout)};
}

void RunReport(const ReportRequest& request) {
  ReportPreview preview(request, LayOutReport(request));
  preview.exec();
}

}  // namespace folvane::reports
