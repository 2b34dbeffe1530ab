#include "browser/BrowserCommands.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>

#include "browser/BrowserEnabling.h"
#include "records/ListStatus.h"
#include "shell/EventGuard.h"
#include "widgets/PlainTip.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

const QString kArchiveToTarget = u"Archive(1)"_s;

std::vector<CommandMenu> Menus() {
  return {
      {u"mnu_File"_s,
       u"文件(&F)"_s,
       {{u"mnu_File1_Add"_s, u"新增(&N)"_s, u"new"_s, u"Ctrl+N"_s, u"登记一份新文件"_s},
        {u"mnu_File4_Property"_s, u"修改(&M)"_s, u"mod"_s, u"Ctrl+E"_s, u"修改选中的文件"_s},
        {u"mnu_File3_Del"_s, u"删除(&D)"_s, u"del"_s, u"Del"_s, u"删除选中的文件及相关原文"_s},
        {},
        {u"mnu_File2_Open"_s, u"导入数据(&O)..."_s, u"open"_s, u"Ctrl+O"_s, u"从 Dat 文件导入数据"_s},
        {u"mnu_File5_Save"_s, u"导出数据(&S)..."_s, u"save"_s, u"Ctrl+S"_s, u"将当前列表的数据保存为 Dat 文件"_s},
        {},
        {u"mnu_File6_Exit"_s, u"退出(&X)"_s, u"exit"_s, u"Ctrl+Q"_s, u"关闭本窗口"_s}}},
      {u"mnu_Goto"_s,
       u"定位(&G)"_s,
       {{u"mnu_Goto1_UClass"_s, u"上级记录(&U)"_s, u"toparent"_s, u"Alt+Up"_s, u"回到上级表中的记录"_s},
        {},
        {u"mnu_Goto5_FPage"_s, u"首记录(&F)"_s, u"firstpage"_s, u"Ctrl+Home"_s, u"到第一条记录"_s},
        {u"mnu_Goto2_PPage"_s, u"上一页(&P)"_s, u"prepage"_s, u"Ctrl+PgUp"_s, u"向前三十条记录"_s},
        {u"mnu_Goto3_NPage"_s, u"下一页(&N)"_s, u"nextpage"_s, u"Ctrl+PgDown"_s, u"向后三十条记录"_s},
        {u"mnu_Goto6_LPage"_s, u"末记录(&L)"_s, u"lastpage"_s, u"Ctrl+End"_s, u"到最后一条记录"_s},
        {},
        {u"mnu_Goto4_Location"_s, u"定位到记录(&G)..."_s, u"goto"_s, u"Ctrl+G"_s, u"按记录号定位"_s},
        {u"mnu_Goto4A_Location"_s, u"定位到页(&A)..."_s, u"goto"_s, u"Ctrl+Shift+G"_s, u"按页码定位"_s}}},
      {u"mnu_Tool"_s,
       u"工具(&T)"_s,
       {{u"mnu_Tool5_LSearch"_s, u"简单查询(&E)..."_s, u"search"_s, u"Ctrl+F"_s, u"按设定的字段查询"_s},
        {u"mnu_Tool4_HSearch"_s, u"组合查询(&F)..."_s, u"query"_s, u"Ctrl+Shift+F"_s, u"组合多个条件查询"_s},
        {},
        {u"mnu_Tool3_Sort"_s, u"排序(&S)..."_s, u"sort"_s, u"Ctrl+T"_s, u"按多个字段排序"_s},
        {u"Mnu_ReadOrder"_s, u"浏览排序设置(&R)..."_s, u"order"_s, u"Ctrl+Shift+R"_s, u"设置类目树中各表的分组字段"_s},
        {},
        {u"mnu_Tool1_BUpdate"_s, u"批量修改(&B)..."_s, u"batchupdate"_s, u"Ctrl+B"_s, u"替换多条记录中的值"_s},
        {u"mnu_Tool2_BDel"_s, u"批量删除(&D)..."_s, u"batchdelete"_s, u"Ctrl+Shift+Del"_s,
         u"按条件删除记录以及相关原文"_s},
        {u"mnuUnitRecord"_s, u"合并一件(&Q)"_s, u"merge"_s, u"Ctrl+M"_s, u"将其他记录并入选中的文件"_s}}},
      {u"mnu_Manager"_s,
       u"公文处理(&M)"_s,
       {{u"mnu_Manager1_Distribute"_s, u"分发(&D)"_s, u"distribute"_s, u"Ctrl+1"_s, u"将选中的文件转入分发"_s},
        {u"mnu_Manager2_PassRead"_s, u"传阅(&P)"_s, u"passread"_s, u"Ctrl+2"_s, u"将选中的文件转入传阅"_s},
        {u"mnu_Manager3_Transact"_s, u"处理(&T)"_s, u"transact"_s, u"Ctrl+3"_s, u"将选中的文件转入处理"_s},
        {},
        {u"mnu_Manager4_Archive"_s, u"归档(&A)..."_s, u"archive"_s, u"Ctrl+4"_s, u"打开文件归档"_s}}},
      {u"mnu_Report"_s, u"报表(&R)"_s, {}},
      {u"mnu_Help"_s,
       u"帮助(&H)"_s,
       {{u"mnuHelpTitle"_s, u"帮助主题(&H)"_s, u"help"_s, u"F1"_s, u"文件登记的帮助"_s},
        {u"mnuAbout"_s, u"关于(&A)..."_s, u"about"_s, u"Shift+F1"_s, u"关于本系统"_s}}},
      {u"mnu_Pop"_s,
       u"原文(&Y)"_s,
       {{u"mnu_Pop1_AddFile"_s, u"加原文(&L)"_s, u"addfile"_s, u"Ins"_s, u"给选中的文件加原文"_s},
        {u"mnu_Pop2_Browse"_s, u"浏览原文(&B)"_s, u"browse"_s, u""_s, u"浏览选中的原文"_s},
        {u"mnu_Pop3_Scan"_s, u"原文扫描..."_s, u"scan"_s, u""_s, u"扫描原文"_s},
        {},
        {u"mnu_Pop4_DelFile"_s, u"删除原文(&D)"_s, u"delfile"_s, u"Del"_s, u"删除选中的原文"_s}},
       true},
  };
}

// A key's picture goes by its name.
CommandKey Key(const QString& name, const QString& caption, const QString& tip, const QString& twin = {},
               const QString& shortcut = {}) {
  return {name, caption, name, tip, twin, false, shortcut};
}

std::vector<CommandKey> Keys() {
  return {
      Key(u"NEW"_s, u"新增"_s, u"登记一份新文件"_s, u"mnu_File1_Add"_s),
      Key(u"Mod"_s, u"修改"_s, u"修改选中的文件"_s, u"mnu_File4_Property"_s),
      Key(u"Del"_s, u"删除"_s, u"删除选中的文件及相关原文"_s, u"mnu_File3_Del"_s),
      {},
      Key(u"ToParent"_s, u"上级"_s, u"回到上级表中的记录"_s, u"mnu_Goto1_UClass"_s),
      Key(u"PrePage"_s, u"上一页"_s, u"向前三十条记录"_s, u"mnu_Goto2_PPage"_s),
      Key(u"NextPage"_s, u"下一页"_s, u"向后三十条记录"_s, u"mnu_Goto3_NPage"_s),
      {},
      Key(u"Search"_s, u"查询"_s, u"简单查询"_s, u"mnu_Tool5_LSearch"_s),
      Key(u"Refresh"_s, u"刷新"_s, u"取消查询和年度限制，重新读取全部记录"_s, {}, u"F5"_s),
      {},
      Key(u"LookFiles"_s, u"原文"_s, u"浏览选中文件的原文"_s, {}, u"Ctrl+L"_s),
      Key(u"Archive"_s, u"归档"_s, u"将选中的文件归档"_s),
      {},
      Key(u"EXIT"_s, u"退出"_s, u"关闭本窗口"_s, u"mnu_File6_Exit"_s),
  };
}

}  // namespace

CommandDesign BrowserDesign() { return {u"tlb"_s, Menus(), Keys()}; }

BrowserCommands::BrowserCommands(QMainWindow& window, ListStatus& status)
    : status_(status), commands_(*new WindowCommands(window, BrowserDesign())) {
  commands_.RunKeysThrough([&status](const WindowCommands::Work& work) { status.RunTrapped(work); });
  AddArchiveMenu();
}

void BrowserCommands::AddArchiveMenu() {
  QMenu& menu = commands_.KeyMenu(u"Archive"_s, true);
  menu.setObjectName(u"mnu_ArchiveKey"_s);
  archiveToTarget_ =
      commands_.AddEntry(menu, {kArchiveToTarget, u"归档到目标库(&T)"_s, {}, {}, u"将选中的文件归档到目标库"_s});
  archiveWindow_ = commands_.AddEntry(menu, {u"Archive(2)"_s, u"文件归档(&A)..."_s, {}, {}, u"打开文件归档"_s});
}

void BrowserCommands::OnArchiveToTarget(std::function<void()> handler) {
  const auto run = [this, handler] {
    status_.ShowNotice({});
    handler();
  };
  ConnectGuarded(archiveToTarget_, &QAction::triggered, &commands_, run);
  commands_.OnKey(u"Archive"_s, run);
}

void BrowserCommands::OnArchiveWindow(std::function<void()> handler) {
  ConnectGuarded(archiveWindow_, &QAction::triggered, &commands_, [this, handler] {
    status_.ShowNotice({});
    handler();
  });
  OnEntry(u"mnu_Manager4_Archive"_s, handler);
}

void BrowserCommands::OnEntry(const QString& entry, std::function<void()> handler) {
  commands_.OnEntry(entry, [this, handler] {
    status_.ShowNotice({});
    handler();
  });
}

void BrowserCommands::OnKey(const QString& key, std::function<void()> handler) {
  commands_.OnKey(key, [this, handler] {
    status_.ShowNotice({});
    handler();
  });
}

void BrowserCommands::Enable(const BrowserEnabling& enabling) {
  for (auto entry = enabling.entries.begin(); entry != enabling.entries.end(); ++entry) {
    if (entry.key() == kArchiveToTarget) {
      archiveToTarget_->setEnabled(entry.value());
    } else {
      commands_.EnableEntry(entry.key(), entry.value());
    }
  }
  for (auto key = enabling.keys.begin(); key != enabling.keys.end(); ++key) commands_.EnableKey(key.key(), key.value());
}

void BrowserCommands::ShowReports(const std::vector<ReportRow>& reports) {
  const std::vector<ReportRow> shown = reports.empty() ? std::vector{NoReports()} : reports;
  QMenu& menu = commands_.Menu(u"mnu_Report"_s);
  QList<QAction*> entries = menu.actions();
  while (entries.size() > qsizetype(shown.size())) delete entries.takeLast();
  while (entries.size() < qsizetype(shown.size())) {
    entries.append(commands_.AddEntry(menu, {u"mnu_Report_List(%1)"_s.arg(entries.size() + 1), {}, {}, {}, {}}));
  }
  for (qsizetype at = 0; at < entries.size(); ++at) ShowReport(*entries[at], shown[size_t(at)]);
}

void BrowserCommands::ShowReport(QAction& entry, const ReportRow& report) const {
  entry.setText(report.reportName);
  entry.setToolTip(PlainTip(report.reportName));
  entry.setProperty("Tag", report.reportId);
  entry.setVisible(true);
}

void BrowserCommands::OnReport(std::function<void(const ReportRow& report)> handler) {
  QMenu& menu = commands_.Menu(u"mnu_Report"_s);
  ConnectGuarded(&menu, &QMenu::triggered, &menu, [this, handler](const QAction* entry) {
    status_.ShowNotice({});
    ReportRow report;
    report.reportName = entry->text();
    report.reportId = entry->property("Tag").toString();
    handler(report);
  });
}

}  // namespace folvane
