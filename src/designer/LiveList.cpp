#include "designer/LiveList.h"

#include <QEvent>
#include <QHeaderView>
#include <QStandardItemModel>

#include "data/DatabaseSession.h"
#include "data/Recordset.h"
#include "forms/TwipScale.h"
#include "records/ListColumns.h"
#include "shell/EventGuard.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kMostRows = 50;

}  // namespace

LiveList::LiveList(QWidget* parent)
    : RecordListView(parent), rows_(new QStandardItemModel(this)), hint_(new ViewHint(*this, u"LiveHint"_s)) {
  setObjectName(u"LiveList"_s);
  setAccessibleName(u"列表的样子"_s);
  setModel(rows_);
  header()->setSectionsMovable(true);
  header()->setFirstSectionMovable(true);
  header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  header()->viewport()->installEventFilter(this);
}

void LiveList::Show(const Design::Table* table, const std::shared_ptr<Connection>& connection) {
  columns_ = table ? table->columns : std::vector<Design::ListColumn>();
  rows_->clear();
  if (!table || columns_.empty()) return hint_->ShowHint(table ? u"列表中还没有列"_s : QString());
  ShowColumns();
  try {
    hint_->ShowHint(FillFrom(table->name, connection));
  } catch (const std::exception& error) {
    hint_->ShowHint(u"不能读取记录："_s + ErrorText(error));
  }
}

void LiveList::ShowColumns() {
  QStringList captions;
  for (const Design::ListColumn& column : columns_) captions << column.caption;
  rows_->setHorizontalHeaderLabels(captions);
  for (int i = 0; i < int(columns_.size()); ++i) {
    header()->moveSection(header()->visualIndex(i), i);
    header()->resizeSection(i, DesignedColumnWidth(*this, columns_[std::size_t(i)].width));
  }
}

QString LiveList::FillFrom(const QString& table, const std::shared_ptr<Connection>& connection) {
  const TableInfo* info = DatabaseSession::Of(*connection).Table(table);
  if (!info) return u"数据库中还没有这张表，应用设计后这里显示记录"_s;
  QStringList there;
  std::vector<int> places;
  for (int i = 0; i < int(columns_.size()); ++i) {
    if (info->IndexOf(columns_[std::size_t(i)].field) < 0) continue;
    there << columns_[std::size_t(i)].field;
    places.push_back(i);
  }
  if (there.isEmpty()) return u"数据库的表中还没有这些列，应用设计后这里显示记录"_s;
  Recordset records;
  records.Open(u"Select Top %1 %2 From %3"_s.arg(kMostRows).arg(there.join(u','), table), connection,
               CursorType::Static, LockType::ReadOnly);
  for (int row = 0; !records.EOF_(); records.MoveNext(), ++row) {
    for (std::size_t i = 0; i < places.size(); ++i)
      rows_->setItem(row, places[i], new QStandardItem(records.Fields().Item(int(i)).Text()));
  }
  return rows_->rowCount() > 0 ? QString() : u"表中还没有记录"_s;
}

// The header arranges its sections as the button is let go, after this has seen it.
bool LiveList::eventFilter(QObject* watched, QEvent* event) {
  if (watched == header()->viewport() && event->type() == QEvent::MouseButtonRelease)
    QMetaObject::invokeMethod(
        this, [this] { RunGuarded([this] { TellArranged(); }); }, Qt::QueuedConnection);
  return RecordListView::eventFilter(watched, event);
}

void LiveList::TellArranged() {
  const TwipScale scale(*this);
  std::vector<Design::ListColumn> arranged;
  for (int place = 0; place < int(columns_.size()); ++place) {
    const int at = header()->logicalIndex(place);
    Design::ListColumn column = columns_[std::size_t(at)];
    const int width = header()->sectionSize(at);
    if (width != DesignedColumnWidth(*this, column.width)) column.width = scale.ToTwips(width);
    arranged.push_back(column);
  }
  if (arranged != columns_) Q_EMIT Arranged(arranged);
}

}  // namespace folvane::designer
