#pragma once

#include <QObject>
#include <set>
#include <vector>

#include "data/Recordset.h"
#include "forms/EntryField.h"

namespace folvane {

/// Binds fields to the current row of a record set. What a user types reaches the row as he leaves the field, or when
/// Store is called; nothing else ever changes the row, and what was only shown is never written, whatever the control
/// made of it. The record set does not tell of its moves: whoever moves it
/// calls Store before and ShowRow after.
///
/// Showing is silent and touches only controls that show something else than the row holds. Without a current row the
/// fields are empty.
class RecordBinding : public QObject {
 public:
  explicit RecordBinding(QObject* parent = nullptr) : QObject(parent) {}

  /// Binds to another record set, null for none, and shows its row. What was typed and not stored is dropped.
  void SetSource(Recordset* records);
  /// Binds a field and shows what the row holds of it.
  /// @throws DataError when the record set has no such field
  void Add(EntryField& field);
  /// What is typed never reaches a row, and gives way to what the row holds.
  void SetReadOnly(bool readOnly) { readOnly_ = readOnly; }
  /// Lets go of all fields.
  void Clear();

  /// Shows the current row in all fields; what was typed and not stored is dropped.
  void ShowRow();
  /// Shows what a program has changed in the current row. Fields with something typed keep that.
  void Refresh();
  /// Puts what was typed into the row, cut to the length that the field's hint allows.
  /// @throws DataError when a value does not fit; the text then stays to be corrected, and the field has the focus
  void Store();
  void Store(EntryField& field);
  /// The same, and what a program has put into fields since the row was shown: the row then holds what is seen.
  void StoreShown();

 private:
  bool HasRow() const;
  void ShowIn(EntryField& field);

  Recordset* records_ = nullptr;
  std::vector<EntryField*> fields_;
  std::set<EntryField*> typed_;
  bool readOnly_ = false;
};

}  // namespace folvane
