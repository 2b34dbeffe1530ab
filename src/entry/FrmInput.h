#pragma once

#include <QMainWindow>
#include <QString>
#include <QStringList>
#include <memory>

#include "entry/EnterWalk.h"
#include "entry/EntryContext.h"
#include "entry/EntryEnabling.h"
#include "entry/FieldChecks.h"
#include "entry/RecordLifecycle.h"
#include "records/TableParameters.h"

class QLabel;
class QTimer;

namespace folvane {

class EntryField;
class EntryForm;
class EntryStatus;
class WindowCommands;
class DataError;

/// The entry window: the one form for the records of any table, made from the table's design and bound to the shared
/// record set. Used through DefaultInstance; whoever opened it unloads it afterwards.
class FrmInput : public QMainWindow {
 public:
  FrmInput();
  ~FrmInput() override;

  QString CurrTable;
  QString AddOnOpen;  ///< "1" begins a new record as the window opens, and is "0" from then on
  EntryContext Context;

  /// Builds the form of the table and shows the window modally. @throws DataError what fails while it opens
  void Open();

  /// Checks and writes the record with all that the form shows. Answers whether nothing is left to be saved; what keeps
  /// it from that has been shown, and the record is as it was.
  bool SaveData();
  void CancelEdit();
  /// Saves what is being edited and begins a new record.
  void AddNewRecord();

  /// For whoever moves the shared record set while the window is open: the first before, the second after.
  void StoreTyped();
  void ShowCurrentRecord();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  // Opening.
  void LayOut();
  void Connect();
  void ConnectMoves();
  void ConnectTools();
  void Load();
  void Activate();
  RegIdRule ReadRule(const Recordset& records) const;
  ParentRecord ReadParent() const;
  void ShowHint(const QString& text);
  void ConnectFields(const QStringList& wideFields);
  void LoadReportMenu();
  void ReadFlags();
  void UseYearSign();
  void ShowOpened(qint64 openPosition);
  QString Selected(Parameter parameter) const;

  // Commands.
  void DelRecord();
  void MoveTo(RecordLifecycle::Step step);
  void CopyAll();

  // State.
  bool MayEdit() const { return lifecycle_ && grants_.edit; }
  bool HasRecord() const { return lifecycle_ && lifecycle_->HasRow(); }
  void BeginEdit();
  void NoteChange(EntryField& field);
  void NoteLeft(EntryField& field);
  void Follow(const EntryField& field);
  /// Shows that a modification has begun, if one has. Answers whether there is an edit to be saved or cancelled.
  bool SwitchToEditing();
  void SetToolbarState(bool browsing);
  void RefreshRecordView();
  void ApplyEnabling();
  void ShowEditing();
  void ShowSettled();

  // Saving.
  bool SaveTyped();
  bool PassesChecks();
  bool Refuse(const CheckFailure& failure);
  bool PassesRules();
  bool WriteRecord();
  bool MayWriteAgain(const DataError& error);
  /// Takes over what someone else has made of the record. Answers whether it can be written, once the user agrees.
  bool TakeTheirs();
  void FocusColumn(const QString& column);
  void TrimMultiLines();
  void KeepComboTexts();
  ShownFields FieldsShown() const;

  // Closing.
  bool MayClose();
  bool SettleEdit();
  void End();
  void WriteBack();

  void FocusCurrentKey();
  void NextKey(const EntryField& field);

  EntryForm* form_;
  WindowCommands* commands_;
  EntryStatus* status_;
  QLabel* hint_;  ///< over the form: what the design of the table lacks
  QTimer* timer_;
  TableGrants grants_;
  bool showsEditing_ = false;  ///< the toolbar has gone over to the edit
  EntryEnabling enabling_;
  EnterWalk walk_;
  std::unique_ptr<RecordLifecycle> lifecycle_;
};

}  // namespace folvane
