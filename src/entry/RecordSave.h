#pragma once

#include <functional>

#include "entry/FieldChecks.h"
#include "entry/ProofingRule.h"
#include "entry/RecordLifecycle.h"
#include "entry/SaveMessages.h"

namespace folvane {

/// The entry form and its user, as a save sees them.
class FormToSave {
 public:
  virtual ~FormToSave() = default;

  /// What the fields show.
  virtual ShownFields Shown() const = 0;
  /// Puts what was typed into the record. @throws DataError
  virtual void StoreTyped() = 0;
  /// The same, and what a program has put into the fields. @throws DataError
  virtual void StoreShown() = 0;
  /// Shows what the save has changed in the record.
  virtual void Refresh() = 0;
  virtual void ClearText(const ControlId& control) = 0;
  virtual void KeepComboTexts() = 0;
  /// @param marked selects the whole text
  virtual void FocusOn(const ControlId& control, bool marked) = 0;
  /// Shows a message and waits for the answer.
  virtual int Say(const MessageRequest& message) = 0;
  /// What is being done, and what the user should know of it afterwards.
  virtual void ShowWork(const QString& text) = 0;
  virtual void ShowNote(const QString& text) = 0;
  /// Does something that may take its time.
  virtual void WhileBusy(const std::function<void()>& work) = 0;
  /// The record has been written.
  virtual void ShowSaved() = 0;
};

/// What the form says of the work when there is none.
inline const QString kReady = QStringLiteral("准备就绪");

/// Tells the user of the rule that the form breaks, and takes away the text that is to be entered anew.
void TellBrokenRule(FormToSave& form, const BrokenRule& broken);

/// What a save goes by.
struct SaveTerms {
  EntryRights rights;
  bool mayEdit = false;  ///< otherwise the rights are not looked at
  QString title;         ///< of the messages
};

/// Saves the record behind an entry form, once: what was typed is stored and checked, compared with what others have
/// saved meanwhile, and written. Whatever stops it is told to the user.
class RecordSave {
 public:
  RecordSave(FormToSave& form, RecordLifecycle& lifecycle, SaveTerms terms)
      : form_(form), lifecycle_(lifecycle), terms_(std::move(terms)) {}

  /// Answers whether nothing is left to be saved; otherwise the record is as it was.
  /// @throws DataError what has nothing to do with a field of the record
  bool Run();

 private:
  bool SaveTyped();
  bool PassesChecks();
  bool PassesRules();
  bool Write();
  void NoteSharedNumber();
  bool MayOverwrite();
  bool MayWriteAgain(const DataError& error);
  /// Takes over what someone else has made of the record. Answers whether it can be written, once the user agrees.
  bool TakeTheirs();
  bool Refuse(const CheckFailure& failure, bool marked = false);
  void FocusOnColumn(const QString& column);
  void TrimMultiLines();

  FormToSave& form_;
  RecordLifecycle& lifecycle_;
  SaveTerms terms_;
};

}  // namespace folvane
