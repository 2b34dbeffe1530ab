#include "components/reports/ReportData.h"

#include <QRegularExpression>
#include <QStringList>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>

#include "components/common/Quoted.h"
#include "components/reports/FlowTables.h"

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;
using components::Quoted;

const QString kSheetKey = u"REGISTER_ID"_s;

Connection& Opened(const ReportRequest& request) {
  if (!request.connection) throw DataError(DataErrorKind::Usage, u"没有数据库连接，无法生成报表。"_s);
  return *request.connection;
}

// Registered records have a key that grows with time; so have sheets, whose lines are counted.
QString OrderOf(const ReportRequest& request, const QString& order) {
  static const QRegularExpression columns(u"^\\w+(\\s+(asc|desc))?(\\s*,\\s*\\w+(\\s+(asc|desc))?)*$"_s,
                                          QRegularExpression::CaseInsensitiveOption);
  if (!order.isEmpty()) {
    if (columns.match(order).hasMatch()) return order;
    throw DataError(DataErrorKind::Usage, u"报表模板中的排序“%1”不正确。"_s.arg(order));
  }
  if (FlowOfDetails(request.mainTable)) return u"Register_ID,File_ID"_s;
  return FlowOfHead(request.mainTable) ? u"Register_ID"_s : u"ArchiveID"_s;
}

ReportTable ReadMain(const ReportRequest& request, const QString& order) {
  ReportTable rows(Opened(request), request.mainTable, ConditionsOf(request), OrderOf(request, order));
  if (rows.RowCount() == 0) throw DataError(DataErrorKind::Usage, u"没有符合条件的记录，不能生成报表。"_s);
  return rows;
}

QString TitleOf(const ReportRequest& request, const QString& otherwise) {
  const ResultSet index(*request.connection,
                        u"Select Report_Name From Report_Index Where Report_ID = "_s + Quoted(request.reportId));
  return index.RowCount() > 0 ? index.Text(0, 0) : otherwise;
}

}  // namespace

QString ConditionsOf(const ReportRequest& request) {
  static const QRegularExpression nothing(u"\\bIN\\s*\\(\\s*\\)\\s*$"_s, QRegularExpression::CaseInsensitiveOption);
  if (nothing.match(request.selection).hasMatch())
    throw DataError(DataErrorKind::Usage, u"没有选中记录，请先选中要打印的记录。"_s);
  QString selection = request.selection;
  if (const Flow* flow = FlowOfDetails(request.mainTable)) {
    const QRegularExpression number(u"(\\b%1\\s*=\\s*'(?:[^']|'')*')"_s.arg(flow->headId),
                                    QRegularExpression::CaseInsensitiveOption);
    selection.replace(number, u"Register_ID In (Select Register_ID From %1 Where \\1)"_s.arg(flow->head));
  }
  QStringList conditions;
  for (const QString& condition : {request.rightsCondition, request.filter, selection})
    if (!condition.trimmed().isEmpty()) conditions << u'(' + condition + u')';
  return conditions.join(u" And "_s);
}

ReportData::ReportData(const ReportRequest& request, const QString& order)
    : user_(request.userName), moment_(Services().now()), main_(ReadMain(request, order)) {
  Connection& connection = *request.connection;
  title_ = TitleOf(request, main_.Caption());
  if (const Flow* flow = FlowOfHead(request.mainTable)) lines_ = ReadKin(connection, flow->details);
  if (const Flow* flow = FlowOfDetails(request.mainTable)) heads_ = ReadKin(connection, flow->head);
}

// What has the sheets' key in common with the rows.
std::unique_ptr<ReportTable> ReportData::ReadKin(Connection& connection, const QString& table) {
  QStringList keys;
  for (qint64 row = 0; row < main_.RowCount(); ++row) keys << Quoted(main_.Text(row, kSheetKey));
  keys.removeDuplicates();
  const QString order = FlowOfDetails(table) ? u"Register_ID,File_ID"_s : u"Register_ID"_s;
  auto kin = std::make_unique<ReportTable>(connection, table, u"Register_ID In ("_s + keys.join(u',') + u')', order);
  for (qint64 row = 0; row < kin->RowCount(); ++row) kin_[kin->Text(row, kSheetKey)].push_back(row);
  return kin;
}

std::vector<qint64> ReportData::Kin(qint64 row, const ReportTable* table) const {
  return table ? kin_.value(main_.Text(row, kSheetKey)) : std::vector<qint64>();
}

qint64 ReportData::HeadOf(qint64 row) const {
  const std::vector<qint64> heads = Kin(row, heads_.get());
  return heads.empty() ? -1 : heads.front();
}

}  // namespace folvane::reports
