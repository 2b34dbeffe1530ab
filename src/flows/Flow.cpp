#include "flows/Flow.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const GridColumn kFileId{u"File_ID"_s, u"File_ID"_s};
const GridColumn kRegisterId{u"Register_ID"_s, u"Register_ID"_s};
const GridColumn kSerial{u"File_ID"_s, u"序号"_s, 6};

// The columns that the heads of all flows end with.
std::vector<GridColumn> HeadColumns(std::vector<GridColumn> first, std::vector<GridColumn> last = {}) {
  std::vector<GridColumn> columns{kFileId, kRegisterId};
  const std::vector<GridColumn> copies{
      {u"Doc_No"_s, u"文件编号"_s, 20},      {u"MainTitle"_s, u"题名"_s, 44},       {u"Quantity"_s, u"份数"_s, 6},
      {u"ResponsibleBy"_s, u"责任者"_s, 20}, {u"Create_Date"_s, u"接收日期"_s, 12}, {u"File_Unit"_s, u"单位"_s, 16},
      {u"Security_Class"_s, u"密级"_s, 8},
  };
  columns.insert(columns.end(), first.begin(), first.end());
  columns.insert(columns.end(), copies.begin(), copies.end());
  columns.insert(columns.end(), last.begin(), last.end());
  return columns;
}

Flow MakeDistribution() {
  Flow flow;
  flow.headTable = flow.headSource = u"Distribute_File"_s;
  flow.detailTable = flow.detailSource = u"Distribute_Details"_s;
  flow.word = u"分发"_s;
  flow.idColumn = u"Distribute_ID"_s;
  flow.statusColumn = u"Distribute_Status"_s;
  flow.rangeColumn = u"Distribute_Range"_s;
  flow.detailDate = u"Distribute_Date"_s;
  flow.idle = u"未分发"_s;
  flow.done = u"已分发"_s;
  flow.recordColumn = u"DisPenseState"_s;
  flow.sort = u"Register_Id desc"_s;
  flow.hasQuantities = true;
  flow.statusDictionary = u"'分发情况'"_s;
  flow.unitDictionary = u"'分发单位'"_s;
  flow.deleteQuestion = u"确实要删除当前的数据吗？"_s;
  flow.headUpdate = {{u"Distribute_ID="_s, &HeadValues::id},
                     {u"Distribute_Status="_s, &HeadValues::status},
                     {u"Distribute_Range="_s, &HeadValues::range},
                     {u"File_Unit="_s, &HeadValues::unit},
                     {u"Note = "_s, &HeadValues::note}};
  flow.headColumns = HeadColumns({{u"Distribute_ID"_s, u"分发号"_s},
                                  {u"Distribute_Status"_s, u"分发状态"_s, 12},
                                  {u"Distribute_Range"_s, u"分发范围"_s, 18},
                                  {u"RegID"_s, u"登记号"_s, 10}});
  flow.detailColumns = {kSerial,
                        kRegisterId,
                        {u"Lead_Unit"_s, u"接收单位"_s, 30},
                        {u"Distribute_Date"_s, u"分发日期"_s, 12},
                        {u"Quantity"_s, u"份数"_s, 6},
                        {u"Is_Back"_s, u"需要归还"_s, 10},
                        {u"Back_Date"_s, u"归还日期"_s, 12},
                        {u"Real_BackDate"_s, u"实际归还日期"_s, 14},
                        {u"Back_Quantity"_s, u"归还份数"_s, 10}};
  flow.window = u"frmDistributeFile"_s;
  flow.caption = u"文件分发"_s;
  flow.icon = u"distribute"_s;
  flow.help = u"文件分发.htm"_s;
  flow.headDialog = u"frmDistrDetails"_s;
  flow.detailDialog = u"frmDistrEdit"_s;
  flow.emptyHint = u"还没有要分发的文件。\n请在“文件登记”中选中记录，用“公文处理”菜单的“分发”把它送到这里。"_s;
  return flow;
}

Flow MakeCirculation() {
  Flow flow;
  flow.headTable = flow.headSource = u"PassRead_File"_s;
  flow.detailTable = flow.detailSource = u"PassRead_Details"_s;
  flow.word = u"传阅"_s;
  flow.idColumn = u"PassRead_ID"_s;
  flow.statusColumn = u"PassRead_Status"_s;
  flow.rangeColumn = u"PassRead_Range"_s;
  flow.detailDate = u"PassRead_Date"_s;
  flow.idle = u"未传阅"_s;
  flow.done = u"已传阅"_s;
  flow.running = u"传阅中"_s;
  flow.ended = u"已完成"_s;
  flow.recordColumn = u"ReadState"_s;
  flow.sort = u"Register_ID desc"_s;
  flow.statusDictionary = u"'传阅情况'"_s;
  flow.unitDictionary = u"'审阅单位/领导'"_s;
  flow.deleteQuestion = u"确实要删除当前的处理单吗？"_s;
  flow.headUpdate = {{u"PassRead_ID="_s, &HeadValues::id},
                     {u"PassRead_Range="_s, &HeadValues::range},
                     {u"PassRead_Status="_s, &HeadValues::status},
                     {u"File_Unit="_s, &HeadValues::unit},
                     {u"Note="_s, &HeadValues::note}};
  flow.headColumns = HeadColumns({{u"PassRead_ID"_s, u"传阅号"_s},
                                  {u"PassRead_Status"_s, u"传阅状态"_s, 12},
                                  {u"PassRead_Range"_s, u"传阅范围"_s, 18},
                                  {u"RegId"_s, u"登记号"_s, 10}});
  flow.detailColumns = {kSerial,
                        kRegisterId,
                        {u"Lead_Unit"_s, u"审阅单位/领导"_s, 30},
                        {u"PassRead_Date"_s, u"审阅日期"_s, 12},
                        {u"Is_Back"_s, u"是否返回"_s, 10},
                        {u"Back_Date"_s, u"返回日期"_s, 12},
                        {u"Real_BackDate"_s, u"实际返回日期"_s, 14}};
  flow.route = {u"是否确定要开始公文的传阅流程？"_s,
                u"是否要生成相应处理人传阅单，\n\r这将为每一位传阅人生成一份传阅单？"_s,
                u"是否确定要进入下一步流程？"_s, u"已完成公文的传阅工作！"_s};
  flow.window = u"frmPassFile"_s;
  flow.caption = u"文件传阅"_s;
  flow.icon = u"passread"_s;
  flow.help = u"文件传阅.htm"_s;
  flow.headDialog = u"frmPassDetails"_s;
  flow.detailDialog = u"frmPassEdit"_s;
  flow.routeMenu = u"mnuRead"_s;
  flow.routeMenuCaption = u"传阅操作(&T)"_s;
  flow.startEntry = u"mnuStart"_s;
  flow.startCaption = u"开始传阅"_s;
  flow.emptyHint = u"还没有要传阅的文件。\n请在“文件登记”中选中记录，用“公文处理”菜单的“传阅”把它送到这里。"_s;
  return flow;
}

Flow MakeHandling() {
  Flow flow;
  flow.headTable = u"Transact_File"_s;
  flow.headSource = u"TranSact_File"_s;
  flow.detailTable = u"Transact_Details"_s;
  flow.detailSource = u"TranSact_Details"_s;
  flow.word = u"办理"_s;
  flow.idColumn = u"Transact_ID"_s;
  flow.statusColumn = u"Transact_Status"_s;
  flow.detailDate = u"Send_Date"_s;
  flow.idle = u"未处理"_s;
  flow.done = u"已处理"_s;
  flow.running = u"处理中"_s;
  flow.ended = u"已完成"_s;
  flow.recordColumn = u"HandleState"_s;
  flow.sort = u"Register_ID desc"_s;
  flow.hasQuantities = true;
  flow.isHandling = true;
  flow.statusDictionary = u"'处理情况'"_s;
  flow.unitDictionary = u"'审阅单位/领导'"_s;
  flow.deleteQuestion = u"确实要删除当前的处理单吗？"_s;
  flow.headUpdate = {{u"Transact_ID="_s, &HeadValues::id},
                     {u"Transact_Status="_s, &HeadValues::status},
                     {u"File_Unit="_s, &HeadValues::unit},
                     {u"Note = "_s, &HeadValues::note}};
  flow.headColumns = HeadColumns(
      {{u"Transact_ID"_s, u"办理号"_s}, {u"Transact_Status"_s, u"办理状态"_s, 12}, {u"RegId"_s, u"登记号"_s, 10}},
      {{u"File_Table"_s, u"File_Table"_s}, {u"UserID"_s, u"UserID"_s}});
  flow.detailColumns = {kSerial,
                        kRegisterId,
                        {u"Lead_Unit"_s, u"办理单位/领导"_s, 30},
                        {u"Send_Date"_s, u"送出日期"_s, 12},
                        {u"Quantity"_s, u"份数"_s, 6},
                        {u"Transact_Mode"_s, u"办理方式"_s, 12},
                        {u"Is_Back"_s, u"是否归还"_s, 10},
                        {u"Back_Date"_s, u"归还日期"_s, 12},
                        {u"Real_BackDate"_s, u"实际归还日期"_s, 14},
                        {u"Back_Quantity"_s, u"归还份数"_s, 10},
                        {u"Transact_Result"_s, u"办理结果"_s, 24},
                        {u"Is_Hasten"_s, u"Is_Hasten"_s}};
  flow.route = {u"是否确定要开始公文的处理流程？"_s,
                u"是否要生成相应处理人处理单，\n\r这将为每一位处理人生成一份处理单？"_s,
                u"是否确定要进入下一步流程？"_s, u"已完成公文的处理工作！"_s};
  flow.window = u"frmTranSact"_s;
  flow.caption = u"文件处理"_s;
  flow.icon = u"transact"_s;
  flow.help = u"文件处理.htm"_s;
  flow.headDialog = u"frmTranDetails"_s;
  flow.detailDialog = u"frmTranEdit"_s;
  flow.routeMenu = u"mnuTransact"_s;
  flow.routeMenuCaption = u"处理操作(&T)"_s;
  flow.startEntry = u"mnuStartFlow"_s;
  flow.startCaption = u"开始处理"_s;
  flow.emptyHint = u"还没有要办理的文件。\n请在“文件登记”中选中记录，用“公文处理”菜单的“处理”把它送到这里。"_s;
  return flow;
}

}  // namespace

QString CaptionOf(const std::vector<GridColumn>& columns, const QString& field) {
  for (const GridColumn& column : columns) {
    if (column.field.compare(field, Qt::CaseInsensitive) == 0) return column.caption;
  }
  return u"备注"_s;
}

const Flow& Distribution() {
  static const Flow flow = MakeDistribution();
  return flow;
}

const Flow& Circulation() {
  static const Flow flow = MakeCirculation();
  return flow;
}

const Flow& Handling() {
  static const Flow flow = MakeHandling();
  return flow;
}

const Flow& FlowOf(const QString& headTable) {
  for (const Flow* flow : {&Distribution(), &Circulation()}) {
    if (flow->headTable == headTable) return *flow;
  }
  return Handling();
}

}  // namespace folvane
