#include "designer/DesignerCommands.h"

namespace folvane::designer {
using namespace Qt::Literals::StringLiterals;

CommandDesign DesignerCommands() {
  CommandDesign design;
  design.toolbar = u"Toolbar1"_s;
  design.menus = {
      {u"mnuDesign"_s,
       u"设计(&D)"_s,
       {{u"mnuNewClass"_s, u"新建类别(&C)"_s, u"close"_s, u"Ctrl+Shift+N"_s, u"在选中的类别下新建类别"_s},
        {u"mnuNewTable"_s, u"新建表(&T)..."_s, u"table"_s, u"Ctrl+N"_s, u"在选中的类别下新建表"_s},
        {u"mnuRemove"_s, u"删去(&R)"_s, u"del"_s, u""_s, u"从设计中删去选中的类别或表"_s},
        {},
        {u"mnuImport"_s, u"从文件导入(&I)..."_s, u"open"_s, u"Ctrl+O"_s, u"把设计文件中的内容加进来"_s},
        {u"mnuExport"_s, u"导出到文件(&E)..."_s, u"copyall"_s, u"Ctrl+Shift+E"_s, u"把选中的表或全部设计存成文件"_s},
        {},
        {u"mnuApply"_s, u"预览并应用(&A)..."_s, u"save"_s, u"Ctrl+S"_s, u"看过将要写入的内容，再写入数据库"_s},
        {u"mnuReadAgain"_s, u"重新读取(&F)"_s, u"refresh"_s, u"F5"_s, u"读取他人的改动，您的改动保留"_s},
        {u"mnuGiveUp"_s, u"放弃改动(&G)"_s, u"cancel"_s, u""_s, u"放弃还没有应用的全部改动"_s},
        {},
        {u"mnuClose"_s, u"关闭(&X)"_s, u"exit"_s, u"Ctrl+W"_s, u"关闭设计窗口"_s}}},
      {u"mnuEdit"_s,
       u"编辑(&E)"_s,
       {{u"mnuUndo"_s, u"撤消(&U)"_s, u"turnleft"_s, u"Ctrl+Z"_s, u"撤消上一步"_s},
        {u"mnuRedo"_s, u"重做(&R)"_s, u"turnright"_s, u"Ctrl+Y"_s, u"重做撤消的一步"_s}}},
      {u"mnuCheck"_s,
       u"检查(&K)"_s,
       {{u"mnuCheckAll"_s, u"对照数据库检查(&D)"_s, u"collect"_s, u"F8"_s, u"检查设计、数据库和报表模板"_s}}},
  };
  design.keys = {
      {u"NewTable"_s, u"新建表"_s, u"table"_s, u"在选中的类别下新建表"_s, u"mnuNewTable"_s},
      {u"NewClass"_s, u"新建类别"_s, u"close"_s, u"在选中的类别下新建类别"_s, u"mnuNewClass"_s},
      {u"Remove"_s, u"删去"_s, u"del"_s, u"从设计中删去选中的类别或表"_s, u"mnuRemove"_s},
      {},
      {u"Undo"_s, u"撤消"_s, u"turnleft"_s, u"撤消上一步"_s, u"mnuUndo"_s},
      {u"Redo"_s, u"重做"_s, u"turnright"_s, u"重做撤消的一步"_s, u"mnuRedo"_s},
      {},
      {u"Check"_s, u"检查"_s, u"collect"_s, u"检查设计、数据库和报表模板"_s, u"mnuCheckAll"_s},
      {u"Apply"_s, u"应用"_s, u"save"_s, u"看过将要写入的内容，再写入数据库"_s, u"mnuApply"_s},
      {},
      {u"Close"_s, u"关闭"_s, u"exit"_s, u"关闭设计窗口"_s, u"mnuClose"_s},
  };
  return design;
}

}  // namespace folvane::designer
