#include "components/reports/FlowTables.h"

#include <QHash>
#include <QStringList>
#include <algorithm>
#include <array>

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;

const std::array<Flow, 3>& Flows() {
  static const std::array<Flow, 3> flows{{{u"Distribute_File"_s, u"Distribute_Details"_s, u"Distribute_ID"_s},
                                          {u"PassRead_File"_s, u"PassRead_Details"_s, u"PassRead_ID"_s},
                                          {u"Transact_File"_s, u"Transact_Details"_s, u"Transact_ID"_s}}};
  return flows;
}

const Flow* FlowWith(QString Flow::*member, const QString& table) {
  const auto found = std::find_if(Flows().begin(), Flows().end(), [&](const Flow& flow) {
    return (flow.*member).compare(table, Qt::CaseInsensitive) == 0;
  });
  return found == Flows().end() ? nullptr : &*found;
}

// Captions by field in lower case; those of one table alone stand under table.field.
const QHash<QString, QString>& Captions() {
  static const QHash<QString, QString> captions{
      {u"distribute_id"_s, u"分发号"_s},
      {u"distribute_status"_s, u"分发状态"_s},
      {u"distribute_range"_s, u"分发范围"_s},
      {u"passread_id"_s, u"传阅号"_s},
      {u"passread_status"_s, u"传阅状态"_s},
      {u"passread_range"_s, u"传阅范围"_s},
      {u"transact_id"_s, u"办理号"_s},
      {u"transact_status"_s, u"办理状态"_s},
      {u"regid"_s, u"登记号"_s},
      {u"doc_no"_s, u"文件编号"_s},
      {u"maintitle"_s, u"题名"_s},
      {u"quantity"_s, u"份数"_s},
      {u"responsibleby"_s, u"责任者"_s},
      {u"create_date"_s, u"接收日期"_s},
      {u"file_unit"_s, u"单位"_s},
      {u"security_class"_s, u"密级"_s},
      {u"note"_s, u"备注"_s},
      {u"distribute_details.file_id"_s, u"序号"_s},
      {u"passread_details.file_id"_s, u"序号"_s},
      {u"transact_details.file_id"_s, u"序号"_s},
      {u"distribute_details.lead_unit"_s, u"接收单位"_s},
      {u"passread_details.lead_unit"_s, u"审阅单位/领导"_s},
      {u"transact_details.lead_unit"_s, u"办理单位/领导"_s},
      {u"distribute_date"_s, u"分发日期"_s},
      {u"passread_date"_s, u"审阅日期"_s},
      {u"send_date"_s, u"送出日期"_s},
      {u"distribute_details.is_back"_s, u"需要归还"_s},
      {u"passread_details.is_back"_s, u"是否返回"_s},
      {u"transact_details.is_back"_s, u"是否归还"_s},
      {u"passread_details.back_date"_s, u"返回日期"_s},
      {u"passread_details.real_backdate"_s, u"实际返回日期"_s},
      {u"back_date"_s, u"归还日期"_s},
      {u"real_backdate"_s, u"实际归还日期"_s},
      {u"back_quantity"_s, u"归还份数"_s},
      {u"transact_mode"_s, u"办理方式"_s},
      {u"transact_result"_s, u"办理结果"_s},
  };
  return captions;
}

}  // namespace

const Flow* FlowOfHead(const QString& table) { return FlowWith(&Flow::head, table); }
const Flow* FlowOfDetails(const QString& table) { return FlowWith(&Flow::details, table); }

QString FlowTableCaption(const QString& table) {
  static const QStringList heads{u"文件分发单"_s, u"文件传阅单"_s, u"文件处理单"_s};
  static const QStringList lines{u"文件分发明细"_s, u"文件传阅明细"_s, u"文件处理明细"_s};
  if (const Flow* flow = FlowOfHead(table)) return heads[flow - Flows().data()];
  if (const Flow* flow = FlowOfDetails(table)) return lines[flow - Flows().data()];
  return {};
}

QString FlowFieldCaption(const QString& table, const QString& field) {
  const QString name = field.toLower();
  const QString own = Captions().value(table.toLower() + u'.' + name);
  return own.isEmpty() ? Captions().value(name) : own;
}

}  // namespace folvane::reports
