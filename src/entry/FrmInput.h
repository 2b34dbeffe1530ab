#pragma once

#include <QMainWindow>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

#include "entry/EntryEnabling.h"
#include "entry/KeyOrder.h"
#include "entry/RecordLifecycle.h"
#include "entry/RecordSave.h"
#include "records/TableParameters.h"

class QLabel;
class QTimer;

namespace folvane {

class EntryField;
class EntryForm;
class EntryStatus;
class FrmInput;
class WindowCommands;

/// What the entry window is told by the window that opens it.
struct EntryContext {
  QString NodeText;                       ///< of the tree node that is selected there
  TableParameters* Parameters = nullptr;  ///< the row selected in it is that of the table; outlives the entry window
  /// Takes the key of the record that the list is to stand on afterwards, "<NULL>" for none.
  std::function<void(const QString& key)> LeaveTag;
  /// Opens the window that finds and replaces beside the entry window; null where there is none.
  std::function<void(FrmInput& window)> OpenReplace;
};

/// The entry window: the one form for the records of any table, made from the table's design and bound to the shared
/// record set. Used through DefaultInstance; whoever opened it unloads it afterwards.
class FrmInput : public QMainWindow, public FormToSave {
 public:
  FrmInput();
  ~FrmInput() override;

  QString CurrTable;
  QString AddOnOpen;  ///< "1" begins a new record as the window opens, and is "0" from then on
  EntryContext Context;

  /// Builds the form of the table and shows the window modally. @throws DataError what fails while it opens
  void Open();

  /// Saves the record with all that the form shows. Answers whether nothing is left to be saved; what keeps it from
  /// that has been shown, and the record is as it was.
  bool SaveData();
  void CancelEdit();
  /// Saves what is being edited and begins a new record.
  void AddNewRecord();

  /// For whoever moves the shared record set while the window is open: the first before, the second after.
  void StoreTyped() override;
  void ShowCurrentRecord();

  /// The control of a kind and number, null when the form has none or is not open.
  QWidget* ControlOf(const ControlId& control) const;
  /// Nothing while the form is not open.
  ShownFields Shown() const override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  // Opening.
  void LayOut();
  void Connect();
  void ConnectMoves();
  void ConnectTools();
  void ConnectOriginals();
  void Load();
  void Activate();
  RegIdRule ReadRule(const Recordset& records) const;
  ParentRecord ReadParent() const;
  void ShowHint(const QString& text);
  void ConnectFields(const QStringList& wideFields);
  void ReadMarks();
  void UseYearSign();
  void ShowOpened(qint64 openPosition);
  QString Selected(Parameter parameter) const;

  // Commands.
  void DelRecord();
  void MoveTo(RecordLifecycle::Step step);
  void CopyAll();
  void HandToFlow(const QString& flowTable);
  void Archive();
  void AddOriginals();
  void ManageOriginals();
  /// Whether the record has nothing unsaved; says so where it has.
  bool IsSaved();

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

  // The form that is saved.
  void StoreShown() override;
  void Refresh() override;
  void ClearText(const ControlId& control) override;
  void KeepComboTexts() override;
  void FocusOn(const ControlId& control, bool marked) override;
  int Say(const MessageRequest& message) override;
  void ShowWork(const QString& text) override;
  void ShowNote(const QString& text) override;
  void WhileBusy(const std::function<void()>& work) override;
  void ShowSaved() override;

  // Closing.
  bool MayClose();
  bool SettleEdit();
  void End();

  void FocusCurrentKey();
  void NextKey(const EntryField& field);

  EntryForm* form_;
  WindowCommands* commands_;
  EntryStatus* status_;
  QLabel* hint_;  ///< over the form: what the design of the table lacks
  QTimer* timer_;
  TableGrants grants_;
  bool showsEditing_ = false;  ///< the toolbar has gone over to the edit
  bool isArchiving_ = false;   ///< the window closes what the transfer asks, and itself not before the transfer's end
  EntryEnabling enabling_;
  EnterWalk walk_;
  std::unique_ptr<RecordLifecycle> lifecycle_;
};

}  // namespace folvane
