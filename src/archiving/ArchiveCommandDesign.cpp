#include "archiving/ArchiveCommandDesign.h"

#include <QStringList>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

std::vector<CommandMenu> MenusOfArchive() {
  return {
      {u"mnuFile"_s,
       u"文件(&F)"_s,
       {{u"mnuArchive"_s, u"归档(&A)"_s, u"archive"_s, u"Ctrl+4"_s, u"录入档号各字段后，将勾选的文件归档"_s},
        {},
        {u"mnuExit"_s, u"退出(&X)"_s, u"exit"_s, u"Ctrl+Q"_s, u"关闭本窗口"_s}}},
      {u"mnuRecord"_s,
       u"记录(&R)"_s,
       {{u"mnuFirst"_s, u"首记录(&F)"_s, u"firstpage"_s, u"Ctrl+Home"_s, u"到第一条记录"_s},
        {u"mnuPre"_s, u"上一记录(&P)"_s, u"moveup"_s, u"Ctrl+Up"_s, u"到上一条记录"_s},
        {u"mnuNext"_s, u"下一记录(&N)"_s, u"movedown"_s, u"Ctrl+Down"_s, u"到下一条记录"_s},
        {u"mnuLast"_s, u"末记录(&L)"_s, u"lastpage"_s, u"Ctrl+End"_s, u"到最后一条记录"_s},
        {},
        {u"mnuPrePage"_s, u"上一页(&U)"_s, u"prepage"_s, u"Ctrl+PgUp"_s, u"向前翻一页"_s},
        {u"mnuNextPage"_s, u"下一页(&D)"_s, u"nextpage"_s, u"Ctrl+PgDown"_s, u"向后翻一页"_s}}},
      {u"mnuTools"_s,
       u"工具(&T)"_s,
       {{u"mnuSim"_s, u"简单查询(&E)..."_s, u"search"_s, u"Ctrl+F"_s, u"按设定的字段查询"_s},
        {u"mnuSearch"_s, u"复合查询(&F)"_s, u"query"_s, u"Ctrl+Shift+F"_s, u"组合多个条件查询"_s},
        {},
        {u"mnuTaxis"_s, u"排序(&S)..."_s, u"sort"_s, u"Ctrl+T"_s, u"按多个字段排序"_s}}},
      {u"mnuSet"_s,
       u"设置(&S)"_s,
       {{u"mnuIsArchive"_s, u"形成档号(&A)"_s, {}, {}, u"档号总是按目标库的档号格式形成"_s},
        {u"mnuIsOriginal"_s, u"接收原文(&O)"_s, u"original"_s, {}, u"归档时将原文一并转入目标库"_s, true},
        {},
        {u"mnuArcSet"_s, u"归档设置(&S)"_s, u"order"_s, u"Ctrl+Shift+S"_s, u"设置目标库、字段对应和档号格式"_s}}},
      {u"mnuHelp"_s,
       u"帮助(&H)"_s,
       {{u"mnuTitle"_s, u"帮助主题(&H)"_s, u"help"_s, u"F1"_s, u"文件归档的帮助"_s},
        {u"mnuAbout"_s, u"关于(&A)..."_s, u"about"_s, u"Shift+F1"_s, u"关于本系统"_s}}},
  };
}

std::vector<CommandKey> KeysOfArchive() {
  return {
      {u"DoArchive"_s, u"归档"_s, u"archive"_s, u"录入档号各字段后，将勾选的文件归档"_s, u"mnuArchive"_s},
      {},
      {u"PrePage"_s, u"上一页"_s, u"prepage"_s, u"向前翻一页"_s, u"mnuPrePage"_s},
      {u"NextPage"_s, u"下一页"_s, u"nextpage"_s, u"向后翻一页"_s, u"mnuNextPage"_s},
      {},
      {u"SimSearch"_s, u"简单查询"_s, u"search"_s, u"按设定的字段查询"_s, u"mnuSim"_s},
      {u"Find"_s, u"复合查询"_s, u"query"_s, u"组合多个条件查询"_s, u"mnuSearch"_s},
      {u"Taxis"_s, u"排序"_s, u"sort"_s, u"按多个字段排序"_s, u"mnuTaxis"_s},
      {},
      {u"ArchiveSet"_s, u"归档设置"_s, u"order"_s, u"设置目标库、字段对应和档号格式"_s, u"mnuArcSet"_s},
      {},
      {u"EXIT"_s, u"退出"_s, u"exit"_s, u"关闭本窗口"_s, u"mnuExit"_s},
  };
}

}  // namespace

CommandDesign ArchiveCommandDesign() { return {u"tlb"_s, MenusOfArchive(), KeysOfArchive()}; }

ArchiveEnabling::ArchiveEnabling(const ArchiveView& view) {
  const auto enable = [](QHash<QString, bool>& commands, const QStringList& names, bool on) {
    for (const QString& name : names) commands.insert(name, on);
  };
  const bool hasRows = view.hasTable && view.hasRows;
  transfer = hasRows && view.mayArchive;
  ticksAll = hasRows;
  enable(entries, {u"mnuRecord"_s, u"mnuSet"_s, u"mnuTools"_s, u"mnuSim"_s, u"mnuSearch"_s, u"mnuArcSet"_s},
         view.hasTable);
  enable(keys, {u"SimSearch"_s, u"Find"_s, u"ArchiveSet"_s}, view.hasTable);
  enable(entries, {u"mnuTaxis"_s}, hasRows);
  enable(keys, {u"Taxis"_s}, hasRows);
  enable(entries, {u"mnuArchive"_s, u"mnuIsOriginal"_s}, transfer);
  enable(keys, {u"DoArchive"_s}, transfer);
  const bool back = hasRows && view.selected && view.position > 1;
  const bool forward = hasRows && view.selected && view.position < view.count;
  enable(entries, {u"mnuFirst"_s, u"mnuPre"_s, u"mnuPrePage"_s}, back);
  enable(entries, {u"mnuLast"_s, u"mnuNext"_s, u"mnuNextPage"_s}, forward);
  enable(keys, {u"PrePage"_s}, back);
  enable(keys, {u"NextPage"_s}, forward);
}

}  // namespace folvane
