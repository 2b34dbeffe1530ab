#include "flows/FlowCommands.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

CommandMenu RouteMenu(const Flow& flow) {
  return {flow.routeMenu,
          flow.routeMenuCaption,
          {{u"mnuChoice"_s, u"选择流程(&C)..."_s, u"copyall"_s, u""_s, u"采用另一张处理单的流程"_s},
           {u"mnuEidtFlow"_s, u"编辑流程(&E)..."_s, u"order"_s, u"Ctrl+R"_s, u"设置各节点的成员、方式和去向"_s},
           {},
           {flow.startEntry, flow.startCaption + u"(&S)"_s, u"transact"_s, u"F8"_s, u"从第一个节点开始"_s},
           {u"mnuNextFlow"_s, u"下一步(&X)"_s, u"nextpage"_s, u"F9"_s, u"通过当前节点，进入下一个节点"_s},
           {},
           {u"mnuAllNotion"_s, u"意见信息(&A)..."_s, u"lookfiles"_s, u""_s, u"查看各节点的进展和结果"_s},
           {u"mnuNotion"_s, u"个人意见(&N)..."_s, u"user"_s, u""_s, u"查看本人所在节点的进展和结果"_s}}};
}

}  // namespace

CommandDesign FlowCommands(const Flow& flow) {
  CommandDesign design;
  design.toolbar = u"tlb"_s;
  design.menus = {{u"mnuFile"_s,
                   u"文件(&F)"_s,
                   {{u"mnuAddNew"_s, u"添加(&N)..."_s, u"new"_s, u"Ctrl+N"_s, u"为当前处理单添加一条明细"_s},
                    {u"mnuModify"_s, u"修改(&M)..."_s, u"mod"_s, u"Ctrl+E"_s, u"修改选中的处理单或明细"_s},
                    {u"mnuDelete"_s, u"删除(&D)"_s, u"del"_s, u"Del"_s, u"删除选中的处理单或明细"_s},
                    {},
                    {u"mnuSeeFile"_s, u"查看原文(&L)"_s, u"lookfiles"_s, u""_s, u"查看文件的原文"_s},
                    {u"mnuPrint"_s, u"打印(&P)..."_s, u"print"_s, u"Ctrl+P"_s, u"打印选中的处理单或明细"_s},
                    {},
                    {u"mnuExit"_s, u"退出(&X)"_s, u"exit"_s, u"Ctrl+Q"_s, u"关闭本窗口"_s}}},
                  {u"mnuFind"_s,
                   u"查询(&S)"_s,
                   {{u"mnuSearch"_s, u"复合查询(&F)..."_s, u"query"_s, u"Ctrl+F"_s, u"按条件列出处理单"_s},
                    {u"mnuShowAll"_s, u"全部显示(&A)"_s, u"refresh"_s, u"F5"_s, u"取消查询条件，列出全部处理单"_s}}}};
  if (flow.HasRoute()) design.menus.push_back(RouteMenu(flow));
  design.menus.push_back({u"mnuHelp"_s,
                          u"帮助(&H)"_s,
                          {{u"mnuHelpTitle"_s, u"帮助主题(&H)"_s, u"help"_s, u"F1"_s, u"打开本窗口的帮助"_s},
                           {u"mnuAbout"_s, u"关于(&A)..."_s, u"about"_s, u""_s, u"版本信息"_s}}});
  design.keys = {{u"NEW"_s, u"添加"_s, u"new"_s, u"为当前处理单添加一条明细"_s, u"mnuAddNew"_s},
                 {u"MODIFY"_s, u"修改"_s, u"mod"_s, u"修改选中的处理单或明细"_s, u"mnuModify"_s},
                 {u"DELETE"_s, u"删除"_s, u"del"_s, u"删除选中的处理单或明细"_s, u"mnuDelete"_s},
                 {},
                 {u"FindOption"_s, u"查询"_s, u"query"_s, u"按条件列出处理单"_s, u"mnuSearch"_s}};
  if (flow.HasRoute()) design.keys.push_back({u"Read"_s, flow.word, flow.icon, u"流程操作"_s, u""_s});
  design.keys.push_back({});
  design.keys.push_back({u"EXIT"_s, u"退出"_s, u"exit"_s, u"关闭本窗口"_s, u"mnuExit"_s});
  return design;
}

void AddKeyMenus(const Flow& flow, WindowCommands& commands) {
  const std::vector<std::pair<QString, std::vector<CommandEntry>>> menus{
      {u"DELETE"_s,
       {{u"DelBatch"_s, u"批量删除(&D)"_s, u"batchdelete"_s, u""_s, u"删除选中的各张处理单"_s},
        {u"DelAll"_s, u"全部删除(&A)"_s, u"batchdelete"_s, u""_s, u"删除列出的全部处理单"_s}}},
      {u"FindOption"_s,
       {{u"EasyFind"_s, u"简单查询(&E)"_s, u"search"_s, u""_s, u"按设定的字段查询"_s},
        {u"FHFind"_s, u"复合查询(&F)"_s, u"query"_s, u""_s, u"组合多个条件查询"_s}}},
      {u"Read"_s,
       {{u"Choise"_s, u"选择流程"_s, u"copyall"_s, u""_s, u"采用另一张处理单的流程"_s},
        {u"EditFlow"_s, u"编辑流程"_s, u"order"_s, u""_s, u"设置各节点的成员、方式和去向"_s},
        {u"StartRead"_s, flow.startCaption, u"transact"_s, u""_s, u"从第一个节点开始"_s},
        {u"NextRead"_s, u"下一步"_s, u"nextpage"_s, u""_s, u"通过当前节点，进入下一个节点"_s},
        {u"Notion"_s, u"意见信息"_s, u"lookfiles"_s, u""_s, u"查看各节点的进展和结果"_s},
        {u"PNotion"_s, u"个人意见"_s, u"user"_s, u""_s, u"查看本人所在节点的进展和结果"_s}}}};
  for (const auto& [key, entries] : menus) {
    QMenu& menu = commands.KeyMenu(key, key != u"Read"_s);
    for (const CommandEntry& entry : entries) commands.AddEntry(menu, entry);
  }
}

QStringList IdleRouteCommands(const Flow& flow) {
  return {u"Choise"_s, u"StartRead"_s, u"EditFlow"_s, u"mnuChoice"_s, flow.startEntry, u"mnuEidtFlow"_s};
}

QStringList RunningRouteCommands() {
  return {u"NextRead"_s, u"PNotion"_s, u"Notion"_s, u"mnuNextFlow"_s, u"mnuNotion"_s, u"mnuAllNotion"_s};
}

}  // namespace folvane
