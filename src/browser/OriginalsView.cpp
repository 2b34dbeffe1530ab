#include "browser/OriginalsView.h"

#include <QHeaderView>

#include <folvane/Icons.h>

#include "catalogue/OriginalRows.h"
#include "catalogue/ReadRows.h"
#include "records/RecordListModel.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kNameWidth = 360;

QStandardItem* NewItem(const QString& text) {
  auto* item = new QStandardItem(text);
  item->setEditable(false);
  return item;
}

}  // namespace

OriginalsView::OriginalsView(QWidget* parent) : QTreeView(parent) {
  setObjectName(u"LVFile"_s);
  setAccessibleName(u"选中文件的原文"_s);
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setContextMenuPolicy(Qt::CustomContextMenu);
  model_.setHorizontalHeaderLabels({u"原文名称"_s, u"类型"_s, u"大小"_s});
  setModel(&model_);
  header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  header()->resizeSection(0, kNameWidth);
  hint_ = new ViewHint(*this, u"FileHint"_s);
}

void OriginalsView::Clear() {
  model_.removeRows(0, model_.rowCount());
  hint_->ShowHint({});
}

void OriginalsView::ShowOriginalsOf(const QString& recordKey) {
  Clear();
  const std::vector<OriginalRow> originals =
      ReadRows<OriginalRow>(SharedConnection(), u"Select * from Original_Text Where RecordId='"_s +
                                                    EscapeSql(recordKey) + u"'  Order By FileOrder"_s);
  if (originals.empty()) hint_->ShowHint(u"此文件没有原文。"_s);
  for (const OriginalRow& original : originals) {
    QStandardItem* name = NewItem(original.originalName);
    name->setIcon(Icon(u"original"_s));
    name->setData(RowIcon::Original, Qt::UserRole + 1);
    name->setData(original.id, Qt::UserRole + 2);
    model_.appendRow({name, NewItem(original.type), NewItem(QString::number(original.size))});
  }
}

}  // namespace folvane
