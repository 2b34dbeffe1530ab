#include "entry/RecordLifecycle.h"

#include <algorithm>
#include <utility>

#include <folvane/DataError.h>

#include "archiving/TransferWords.h"
#include "base/IgnoreErrors.h"
#include "base/KeyMaker.h"
#include "data/ValueText.h"
#include "entry/NewRecord.h"
#include "shell/TableFields.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

const QString kKey = u"ArchiveID"_s;

}  // namespace

RecordLifecycle::RecordLifecycle(Recordset& records, LifecycleStart start, qint64 openPosition)
    : records_(records),
      layout_(std::move(start.layout)),
      carried_(std::move(start.carried)),
      all_(layout_.FieldList),
      rule_(std::move(start.rule)) {
  if (IsEmpty()) return;
  records_.Move(std::clamp<qint64>(openPosition, 1, records_.RecordCount()) - 1, MoveFrom::First);
  lastBookmark_ = records_.Bookmark();
}

EntryPosition RecordLifecycle::Position() const {
  return {state_, records_.AbsolutePosition(), records_.RecordCount()};
}

bool RecordLifecycle::HasRow() const { return records_.AbsolutePosition() > 0; }

QString RecordLifecycle::CurrentKey() const {
  return HasRow() && FieldExists(records_, kKey) ? records_[kKey].Text() : QString();
}

bool RecordLifecycle::IsPending() const {
  return records_.EditMode() != EditModeKind::None || records_.PendingCount() > 0;
}

bool RecordLifecycle::NoteChange() {
  if (!HasRow() || state_ != RecordState::Browse) return false;
  state_ = RecordState::Modify;
  return true;
}

void RecordLifecycle::CarryForward() { RefreshCarried(carried_, records_, rule_.table); }

void RecordLifecycle::StartNewRecord(bool autoStatus) {
  if (HasRow()) lastBookmark_ = records_.Bookmark();
  if (copyAll_) GatherNumbers(all_, records_, rule_.table);
  const qint64 before = records_.RecordCount();
  try {
    AddRecord(records_, layout_);
  } catch (const std::exception&) {
    if (records_.RecordCount() > before) state_ = RecordState::Add;
    throw;
  }
  state_ = RecordState::Add;
  FillNewRecord(records_, layout_, {copyAll_ ? all_ : carried_, copyAll_, autoStatus, rule_});
}

void RecordLifecycle::Write() {
  try {
    records_.UpdateBatch(AffectKind::Current);
    records_.UpdateBatch(AffectKind::AllChapters);
  } catch (const DataError&) {
    refused_ = true;
    throw;
  }
  NoteWritten();
}

void RecordLifecycle::NoteWritten() {
  constexpr qint64 kNoBookmark = 2;
  lastBookmark_ = HasRow() ? records_.Bookmark() : kNoBookmark;
  state_ = RecordState::Browse;
  refused_ = false;
  contested_.clear();
}

RecordLifecycle::Theirs RecordLifecycle::TakeTheirs() {
  std::vector<std::pair<QVariant, QVariant>> before;  // as it was read, and as it is here
  for (int i = 0; i < records_.Fields().Count(); ++i)
    before.emplace_back(records_.Fields().Item(i).OriginalValue(), records_.Fields().Item(i).Value());
  try {
    records_.Resync(AffectKind::Current);
  } catch (const DataError& error) {
    if (error.Kind() != DataErrorKind::Conflict) throw;
    return Theirs::Deleted;
  }
  Theirs theirs = Theirs::Same;
  for (int i = 0; i < records_.Fields().Count(); ++i) {
    const auto& [read, mine] = before[size_t(i)];
    Field field = records_.Fields().Item(i);
    if (ValueText(field.OriginalValue()) != ValueText(read)) {
      theirs = Theirs::Changed;
      if (!contested_.contains(field.Name())) contested_ << field.Name();
    }
    if (mine != read) field.SetValue(mine);
  }
  return theirs;
}

QStringList RecordLifecycle::TakeChanges() {
  TakeTheirs();
  return std::exchange(contested_, {});
}

void RecordLifecycle::TakeNewKey() { records_[kKey].SetValue(CreateName()); }

void RecordLifecycle::Cancel() {
  records_.CancelUpdate();
  records_.CancelBatch(AffectKind::All);
  Return();
  if (std::exchange(refused_, false)) ReadAgain();
  contested_.clear();
  state_ = RecordState::Browse;
}

void RecordLifecycle::Return() {
  if (IsEmpty()) return;
  if (lastBookmark_ > 1) {
    IgnoreErrors([this] { records_.SetBookmark(lastBookmark_); });  // the record may be gone
  } else {
    records_.MoveFirst();
  }
  if (!HasRow()) records_.MoveFirst();
}

// What the database refused may be a record that someone else has changed since it was read.
void RecordLifecycle::ReadAgain() {
  IgnoreErrors([this] { records_.Resync(AffectKind::Current); });
}

void RecordLifecycle::Delete() {
  if (!HasRow()) return;
  records_.Delete();
  try {
    records_.UpdateBatch();
  } catch (const DataError&) {
    // Nothing may wait that a later save would be refused over.
    records_.CancelBatch(AffectKind::All);
    state_ = RecordState::Browse;
    ReadAgain();
    throw;
  }
  records_.MovePrevious();
  if (records_.BOF() && !IsEmpty()) records_.MoveFirst();
  state_ = RecordState::Browse;
  copyAll_ = false;
}

// Read again first: a mark that was taken back with its transfer may still stand here, and somebody else may have
// archived the record meanwhile.
void RecordLifecycle::MarkArchived() {
  const QString status = u"FileStatus"_s;
  if (!HasRow() || !FieldExists(records_, status)) return;
  try {
    records_.Resync(AffectKind::Current);
    if (records_[status].Text() != kToBeArchived)
      throw DataError(DataErrorKind::Conflict, u"该记录的归档状态已被其他用户修改，没有归档。"_s);
    records_[status].SetValue(kArchived);
    records_.UpdateBatch();
  } catch (const DataError&) {
    records_.CancelUpdate();
    records_.CancelBatch(AffectKind::All);
    ReadAgain();
    throw;
  }
}

bool RecordLifecycle::Move(Step step) {
  bool moved = true;
  switch (step) {
    case Step::First:
      if (!IsEmpty()) records_.MoveFirst();
      break;
    case Step::Last:
      if (!IsEmpty()) records_.MoveLast();
      break;
    case Step::Next:
      if (!records_.EOF_()) records_.MoveNext();
      moved = !records_.EOF_();
      if (!moved && !IsEmpty()) records_.MoveLast();
      break;
    case Step::Previous:
      if (!records_.BOF()) records_.MovePrevious();
      moved = !records_.BOF();
      if (!moved && !IsEmpty()) records_.MoveFirst();
      break;
  }
  state_ = RecordState::Browse;
  NoteMoved();
  copyAll_ = false;
  return moved || IsEmpty();
}

void RecordLifecycle::NoteMoved() {
  if (HasRow()) lastBookmark_ = records_.Bookmark();
}

void RecordLifecycle::ToggleCopyAll() {
  if (!HasRow()) return;
  if (!copyAll_) GatherAll(all_, records_, rule_.table);
  copyAll_ = !copyAll_;
}

bool RecordLifecycle::Follow(const TypedField& field) {
  if (state_ == RecordState::Browse) return false;
  return FollowTyping(records_, rule_, field, state_ == RecordState::Add);
}

}  // namespace folvane
