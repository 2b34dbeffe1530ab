#include "records/PagedRecordList.h"

#include <algorithm>
#include <exception>

#include "data/Recordset.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kIconColumn = 6;

MessageRequest MessageOf(const QString& what, const std::exception& error) {
  return {what + ErrorText(error), MessageFlag::Critical, kSystemTitle, {}, ErrorDetails(error)};
}

bool HasOriginals(const QString& recordKey) {
  Recordset rows;
  rows.Open(u"Select * From Original_Text Where RecordID = '"_s + EscapeSql(recordKey) + u"'"_s, SharedConnection());
  return !rows.EOF_();
}

}  // namespace

void PagedRecordList::FillRows(int maximum, SearchDirection direction) {
  if (!records_.IsOpen()) return;
  progress_(0, maximum);
  try {
    for (int added = 0; added < maximum && !records_.EOF_() && !records_.BOF(); ++added) {
      if (!AddRow(direction)) break;
      if (direction == SearchDirection::Forward) {
        records_.MoveNext();
      } else {
        records_.MovePrevious();
      }
      progress_(added + 1, maximum);
    }
  } catch (const std::exception& error) {
    failure_(MessageOf(u"将数据添加至列表时出现错误，原因为："_s, error));
  }
  progress_(-1, maximum);
}

bool PagedRecordList::AddRow(SearchDirection direction) {
  try {
    list_.InsertRow(direction == SearchDirection::Forward ? list_.Count() : 0, ReadRow());
    return true;
  } catch (const std::exception& error) {
    failure_(MessageOf(u"将当前记录加载至列表时出现错误，原因是："_s, error));
    return false;
  }
}

ListRow PagedRecordList::ReadRow() const {
  ListRow row;
  for (const ListColumn& column : list_.Columns())
    row.cells.append(column.key.isEmpty() ? QString() : records_[column.key].Text());
  row.icon = IconOfRow(row.cells.value(kIconColumn), HasOriginals(records_[u"ArchiveID"_s].Text()));
  return row;
}

void PagedRecordList::Refill() {
  list_.ClearRows();
  FillRows(kPageSize);
}

int PagedRecordList::FillUpBefore(qint64 position) {
  const int before = list_.Count();
  if (before == 0 || before >= kPageSize || position <= 1) return 0;
  records_.SetAbsolutePosition(position - 1);
  FillRows(kPageSize - before, SearchDirection::Backward);
  return list_.Count() - before;
}

bool PagedRecordList::PositionOn(const QString& key) {
  if (!records_.IsOpen() || records_.RecordCount() == 0) return false;
  records_.MoveFirst();
  records_.Find(u"ArchiveID = '"_s + EscapeSql(key) + u"'"_s);
  return !records_.EOF_();
}

void PagedRecordList::PositionOnOrFirst(const QString& key) {
  if (!records_.IsOpen() || records_.RecordCount() == 0) return;
  if (key.isEmpty() || !PositionOn(key)) records_.MoveFirst();
}

int PagedRecordList::GoTo(qint64 position, int selected) {
  if (!records_.IsOpen() || list_.Count() == 0) return 0;
  const MovePlan plan = PlanMove(position, {records_.AbsolutePosition(), selected, list_.Count()});
  switch (plan.kind) {
    case MovePlan::Stay:
      return 0;
    case MovePlan::Select:
      return plan.index;
    case MovePlan::GrowDown:
      return Grow(list_.Count() - 1, SearchDirection::Forward, plan.rows);
    case MovePlan::GrowUp:
      return Grow(0, SearchDirection::Backward, plan.rows);
    case MovePlan::RestartDown:
      return Restart(position, true);
    case MovePlan::RestartUp:
      return Restart(position, false);
  }
  return 0;
}

int PagedRecordList::Restart(qint64 position, bool fillUp) {
  position = std::min(position, records_.RecordCount());
  list_.ClearRows();
  records_.SetAbsolutePosition(position);
  FillRows(kPageSize);
  if (list_.Count() == 0) return 0;
  return fillUp ? FillUpBefore(position) + 1 : 1;
}

int PagedRecordList::Grow(int edgeRow, SearchDirection direction, int rows) {
  const bool forward = direction == SearchDirection::Forward;
  if (PositionOn(list_.KeyOf(edgeRow))) {
    if (forward) {
      records_.MoveNext();
    } else {
      records_.MovePrevious();
    }
    FillRows(rows, direction);
  }
  return forward ? list_.Count() : 1;
}

}  // namespace folvane
