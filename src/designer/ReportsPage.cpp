#include "designer/ReportsPage.h"

#include <QVBoxLayout>
#include <array>

#include "design/TableEdits.h"
#include "designer/DesignGrid.h"
#include "designer/Labels.h"
#include "designer/ThingModel.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

using Report = Design::Report;

// The tables of the flows, whose windows offer reports.
const std::array<Design::Table, 6>& FlowTables() {
  const auto table = [](const QString& name, const QString& caption) {
    Design::Table flow;
    flow.name = name;
    flow.caption = caption;
    return flow;
  };
  static const std::array<Design::Table, 6> tables{
      table(u"Distribute_File"_s, u"文件分发单"_s), table(u"Distribute_Details"_s, u"文件分发明细"_s),
      table(u"PassRead_File"_s, u"文件传阅单"_s),   table(u"PassRead_Details"_s, u"文件传阅明细"_s),
      table(u"Transact_File"_s, u"文件处理单"_s),   table(u"Transact_Details"_s, u"文件处理明细"_s)};
  return tables;
}

std::vector<Design::Table> OfferingTables(const Design& design) {
  std::vector<Design::Table> tables = design.tables;
  tables.insert(tables.end(), FlowTables().begin(), FlowTables().end());
  return tables;
}

}  // namespace

ReportsPage::ReportsPage(DesignSession& session) : DesignPage(session, u"ReportsPage"_s) {
  grid_ = new DesignGrid(NewReports(), u"GrdReports"_s, u"报表(&R)"_s,
                         u"还没有报表，报表菜单都是空的。\n按 Ins 增加一个。"_s, this);
  auto* down = new QVBoxLayout(this);
  down->addWidget(grid_, 1);
  down->addWidget(
      NewHint(u"报表在所属的表或流程窗口的菜单中列出。没有模板的报表自动排版；模板在报表预览中按“设计”做。"_s, this));
  setFocusProxy(grid_);
}

void ReportsPage::Refresh() { grid_->Refresh(); }

QStringList ReportsPage::Groups() const { return LabelsOf(OfferingTables(Session().Wanted())); }

QString ReportsPage::GroupShown(const QString& group) const {
  return LabelFor(OfferingTables(Session().Wanted()), group);
}

QString ReportsPage::GroupMeant(const Design& design, const QString& shown) const {
  return LabelledBy(OfferingTables(design), shown).name;
}

GridModel* ReportsPage::NewReports() {
  ThingRules<Report> rules;
  rules.locate = [](const Design& design) { return &design.reports; };
  rules.fresh = [](const Design& design) {
    const QString group = design.tables.empty() ? FlowTables().front().name : design.tables.front().name;
    return Report{design::FreeReportId(design.reports), u"新报表"_s, group, u"1"_s};
  };
  auto id = ColumnOf(&Report::id, 12);
  id.look.tip = u"报表的模板文件以编号命名"_s;
  id.write = [](Design&, Report& report, const QVariant& value) {
    report.id = value.toString().trimmed();
    if (report.id.isEmpty()) throw DataError(DataErrorKind::Usage, u"报表没有编号。"_s);
  };
  auto name = ColumnOf(&Report::name, 26);
  name.write = [](Design&, Report& report, const QVariant& value) {
    report.name = value.toString().trimmed();
    if (report.name.isEmpty()) throw DataError(DataErrorKind::Usage, u"报表没有名称。"_s);
  };
  auto group = ChoiceOf(&Report::group, 26, [this](int) { return Groups(); });
  group.read = [this](const Report& report) { return GroupShown(report.group); };
  group.write = [this](Design& wanted, Report& report, const QVariant& value) {
    report.group = GroupMeant(wanted, value.toString());
  };
  ThingColumn<Report> offered;
  offered.look = {u"在菜单中"_s, GridColumn::Kind::Check, 10, {}, u"在所属表或流程的报表菜单中列出"_s};
  offered.read = [](const Report& report) { return report.type == u"1"; };
  offered.write = [](Design&, Report& report, const QVariant& value) {
    report.type = value.toBool() ? u"1"_s : u"0"_s;
  };
  return new ThingModel<Report>(Session(), rules, {id, name, group, offered}, this);
}

}  // namespace folvane::designer
