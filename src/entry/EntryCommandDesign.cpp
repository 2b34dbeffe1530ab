#include "entry/EntryCommandDesign.h"

#include "shell/RegistryValues.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kMarked = u"True"_s, kUnmarked = u"False"_s;

std::vector<CommandMenu> Menus() {
  return {
      {u"File_Record"_s,
       u"文件(&F)"_s,
       {{u"AddNewRecord"_s, u"添加(&N)"_s, u"new"_s, u"Ctrl+N"_s, u"添加一条新记录"_s},
        {u"SaveRecord"_s, u"保存(&S)"_s, u"save"_s, u"Ctrl+S"_s, u"保存当前记录"_s},
        {u"CancelRecord"_s, u"取消(&U)"_s, u"cancel"_s, u"Ctrl+R"_s, u"放弃对当前记录的修改"_s},
        {},
        {u"DelRecord"_s, u"删除(&D)"_s, u"del"_s, u"Ctrl+Shift+D"_s, u"删除当前记录及相关原文"_s},
        {},
        {u"mnuCopyAll"_s, u"全部复制(&C)"_s, u"copyall"_s, u"Ctrl+Shift+C"_s, u"下一条新记录取当前记录的全部内容"_s,
         true},
        {},
        {u"Close"_s, u"关闭(&X)"_s, u"exit"_s, u"Ctrl+Q"_s, u"关闭本窗口"_s}}},
      {u"DoRecord"_s,
       u"查看(&V)"_s,
       {{u"First_R"_s, u"首记录(&F)"_s, u"firstpage"_s, u"Alt+Home"_s, u"到第一条记录"_s},
        {u"Previous_R"_s, u"上一记录(&P)"_s, u"prepage"_s, u"Ctrl+PgUp"_s, u"到上一条记录"_s},
        {u"Next_R"_s, u"下一记录(&N)"_s, u"nextpage"_s, u"Ctrl+PgDown"_s, u"到下一条记录"_s},
        {u"Last_R"_s, u"末记录(&L)"_s, u"lastpage"_s, u"Alt+End"_s, u"到最后一条记录"_s}}},
      {u"File_Or"_s,
       u"原文(&Y)"_s,
       {{u"AddFile"_s, u"加原文(&L)"_s, u"addfile"_s, u""_s, u"给当前记录加原文"_s},
        {u"BorrowFile"_s, u"原文管理(&B)"_s, u"browse"_s, u""_s, u"管理当前记录的原文"_s}}},
      {u"File_Manager"_s,
       u"公文处理(&M)"_s,
       {{u"mnuDistibute"_s, u"分发(&D)"_s, u"distribute"_s, u""_s, u"将当前记录转入分发"_s},
        {u"mnuPassRead"_s, u"传阅(&P)"_s, u"passread"_s, u""_s, u"将当前记录转入传阅"_s},
        {u"mnuTransact"_s, u"处理(&T)"_s, u"transact"_s, u""_s, u"将当前记录转入处理"_s},
        {},
        {u"mnuArchive"_s, u"归档(&A)"_s, u"archive"_s, u""_s, u"将当前记录归档"_s}}},
      {u"ReportDesign"_s, u"报表(&R)"_s, {}},
      {u"Tools"_s,
       u"工具(&T)"_s,
       {{u"mnuReplace"_s, u"替换(&R)"_s, u"replace"_s, u"Ctrl+H"_s, u"在记录中查找并替换"_s},
        {},
        {u"Collect_R"_s, u"校对条件设置(&C)..."_s, u"collect"_s, u"Ctrl+Shift+J"_s, u"设置保存时的校对条件"_s},
        {u"KeyOrder"_s, u"键盘顺序调整(&K)..."_s, u"order"_s, u"Ctrl+Shift+K"_s, u"设置回车键经过各字段的顺序"_s},
        {},
        {u"AutoSave"_s, u"添加时自动保存(&A)"_s, u""_s, u""_s, u"编辑时按添加，先保存当前记录再添加"_s, true},
        {u"UseSign"_s, u"文号年度使用〔〕(&U)"_s, u""_s, u""_s, u"文号的年度用〔〕，否则用[]"_s, true},
        {u"AutoStatus"_s, u"新记录需归档(&S)"_s, u""_s, u""_s, u"新记录的归档状态为“需归档”"_s, true}}},
      {u"mnuHelp"_s,
       u"帮助(&H)"_s,
       {{u"FindDir"_s, u"帮助主题(&H)"_s, u"help"_s, u"F1"_s, u"数据操作的帮助"_s},
        {u"About"_s, u"关于(&A)..."_s, u"about"_s, u""_s, u"关于本系统"_s}}},
  };
}

std::vector<CommandKey> Keys() {
  return {
      {u"AddRecord"_s, u"添加"_s, u"new"_s, u"添加一条新记录"_s, u"AddNewRecord"_s},
      {u"SaveRecord"_s, u"保存"_s, u"save"_s, u"保存当前记录"_s, u"SaveRecord"_s},
      {u"DelRecord"_s, u"删除"_s, u"del"_s, u"删除当前记录及相关原文"_s, u"DelRecord"_s},
      {u"CancelRecord"_s, u"取消"_s, u"cancel"_s, u"放弃对当前记录的修改"_s, u"CancelRecord"_s},
      {},
      {u"MovePrevious"_s, u"上一条"_s, u"prepage"_s, u"到上一条记录"_s, u"Previous_R"_s},
      {u"MoveNext"_s, u"下一条"_s, u"nextpage"_s, u"到下一条记录"_s, u"Next_R"_s},
      {u"CopyAll"_s, u"全部复制"_s, u"copyall"_s, u"下一条新记录取当前记录的全部内容"_s, u"mnuCopyAll"_s, true},
      {},
      {u"FileArea"_s, u"原文"_s, u"original"_s, u"当前记录的原文"_s, {}},
      {u"ReportView"_s, u"报表"_s, u"print"_s, u"打印当前记录的报表"_s, {}},
      {},
      {u"Distribute"_s, u"分发"_s, u"distribute"_s, u"将当前记录转入分发"_s, u"mnuDistibute"_s},
      {u"PassRead"_s, u"传阅"_s, u"passread"_s, u"将当前记录转入传阅"_s, u"mnuPassRead"_s},
      {u"Transact"_s, u"处理"_s, u"transact"_s, u"将当前记录转入处理"_s, u"mnuTransact"_s},
      {u"DoArchive"_s, u"归档"_s, u"archive"_s, u"将当前记录归档"_s, u"mnuArchive"_s},
      {},
      {u"End"_s, u"关闭"_s, u"exit"_s, u"关闭本窗口"_s, u"Close"_s},
  };
}

}  // namespace

CommandDesign EntryCommandDesign() { return {u"TlbCool"_s, Menus(), Keys()}; }

const std::vector<KeptMark>& KeptMarks() {
  static const std::vector<KeptMark> marks{{u"AutoSave"_s, u"AutoAddSaveFlags"_s},
                                           {u"UseSign"_s, u"UseSpecialSign"_s},
                                           {u"AutoStatus"_s, u"AutoFileStatus"_s}};
  return marks;
}

bool ReadMark(const KeptMark& mark) {
  return QueryValue(kLocalMachine, kMainFlags, mark.value).compare(kMarked, Qt::CaseInsensitive) == 0;
}

void KeepMark(const KeptMark& mark, bool on) {
  SaveValue(kLocalMachine, kMainFlags, mark.value, on ? kMarked : kUnmarked);
}

}  // namespace folvane
