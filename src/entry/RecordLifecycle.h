#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "data/Recordset.h"
#include "entry/EntryEnabling.h"
#include "entry/RegIdRule.h"
#include "forms/CarryFields.h"
#include "forms/EntryLayout.h"

namespace folvane {

/// What the records of an entry form start from.
struct LifecycleStart {
  EntryLayout layout;
  std::vector<CarryField> carried;  ///< as LoadCarryFields gives them
  RegIdRule rule;
};

/// The life of the records behind an entry form: which state the current one is in, where cancelling returns to, and
/// what adding, saving, cancelling, deleting and moving do to the record set. All routines @throw DataError.
class RecordLifecycle {
 public:
  enum class Step { First, Previous, Next, Last };

  /// Stands on the record at the position the record set had when the window opened.
  RecordLifecycle(Recordset& records, LifecycleStart start, qint64 openPosition);

  Recordset& Records() const { return records_; }
  RecordState State() const { return state_; }
  EntryPosition Position() const;
  /// Whether the record set stands on a record.
  bool HasRow() const;
  /// Of the current record; "" without one, and in a table without keys.
  QString CurrentKey() const;
  bool IsEmpty() const { return records_.RecordCount() == 0; }
  /// Whether something in the record set waits to be written.
  bool IsPending() const;
  const EntryLayout& Layout() const { return layout_; }

  /// A field was changed by hand. Answers whether that began a modification.
  bool NoteChange();

  /// Takes the values that are carried forward from the current record.
  void CarryForward();
  /// Adds a record and fills it. After an error the record stands as far as it was filled, to be cancelled.
  void StartNewRecord(bool autoStatus);
  /// Writes the record. @throws DataError Conflict when someone else has changed the same fields since it was read
  void Write();
  /// What someone else has made of a record that is being edited.
  enum class Theirs { Same, Changed, Deleted };
  /// Reads the record again under what was changed here, after a conflict: of that nothing is lost, the rest becomes
  /// what the other has saved. Write then goes over what was read here, and over nothing newer.
  Theirs TakeTheirs();
  /// Reads a record again that is not being edited. Answers the columns that others have changed meanwhile.
  QStringList TakeChanges();
  /// Gives a record that is being added another key.
  void TakeNewKey();
  /// The columns that others were found to have changed since the edit began; until it is written or dropped.
  const QStringList& Contested() const { return contested_; }
  /// Drops what was changed and returns to where it began.
  void Cancel();
  /// Deletes the current record, not its originals. When the database refuses, the record stays.
  void Delete();
  /// Answers false when there was no such record; the nearest is then the current one.
  bool Move(Step step);

  /// Writes that the current record has been archived, where it has a status. When the database refuses, or the record
  /// waits no longer, the record is as it was. @throws DataError
  void MarkArchived();
  /// Takes the record as the database has it now, if it can.
  void ReadAgain();

  /// The record set was moved by someone else: cancelling returns to where it stands now.
  void NoteMoved();

  /// Marks copying of the current record, or ends it. Does nothing without one.
  void ToggleCopyAll();
  void EndCopyAll() { copyAll_ = false; }
  bool CopiesAll() const { return copyAll_; }

  /// Has the registration number follow a field. Answers whether it was written.
  bool Follow(const TypedField& field);
  /// Whether the registration number that the rule gave this record is another's too.
  bool SharesRegId() const { return IsRegIdShared(records_, rule_); }
  void SetUseSign(bool useSign) { rule_.useSign = useSign; }

 private:
  void NoteWritten();
  void Return();

  Recordset& records_;
  EntryLayout layout_;
  std::vector<CarryField> carried_, all_;
  RegIdRule rule_;
  RecordState state_ = RecordState::Browse;
  qint64 lastBookmark_ = 0;
  bool copyAll_ = false;
  bool refused_ = false;  ///< the last write, so that the record may be another's by now
  QStringList contested_;
};

}  // namespace folvane
