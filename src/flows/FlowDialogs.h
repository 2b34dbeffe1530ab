#pragma once

#include <QDialog>
#include <QString>

#include "flows/FlowSheets.h"

class QFormLayout;
class QLabel;

namespace folvane {

class DateBox;
class DigitBox;
class EditCombo;
class MemoBox;
class TextBox;

/// What the two dialogs of a flow have in common: captions with controls, a line that tells what stands in the way of
/// saving, and the keys.
class FlowDialog : public QDialog {
 protected:
  FlowDialog(FlowSheets& sheets, const QString& name);

  template <typename Control>
  Control* Add(const QString& name, const QString& caption, Control* control);
  /// Adds the line and the keys below the controls.
  void AddKeys();
  /// Refuses a text that is blank. @return whether it did
  bool IsBlank(TextBox& box);
  /// Ends the dialog after writing; what another user did meanwhile is told, and the dialog stays.
  void TakeOutcome(const SaveOutcome& outcome);
  void ShowNote(const QString& text);
  /// Fills a list with a dictionary; an empty list, told in the line, where that cannot be read.
  void Fill(EditCombo& box, const QString& dictionary);
  virtual void Save() = 0;

  FlowSheets& sheets_;

 private:
  QFormLayout* form_;
  QLabel* note_;
};

/// Edits the current head of a flow: frmDistrDetails, frmPassDetails, frmTranDetails. The fields copied from the record
/// are shown beside those that belong to the sheet.
class FlowHeadDialog : public FlowDialog {
 public:
  explicit FlowHeadDialog(FlowSheets& sheets);

  /// Shows what was typed and could not be written the last time.
  void ShowUnsaved(const HeadValues& values);
  /// What could not be written; the error ended the dialog.
  bool HasFailed() const { return !failure_.isEmpty(); }
  const QString& Failure() const { return failure_; }
  HeadValues Typed() const;

 private:
  void Save() override;
  void Show(const HeadValues& values);

  TextBox *id_, *range_ = nullptr, *unit_;
  EditCombo* status_;
  MemoBox* note_;
  HeadValues shown_;
  QString failure_;
};

/// Adds a detail to the current head or edits the current one: frmDistrEdit, frmPassEdit, frmTranEdit.
class FlowDetailDialog : public FlowDialog {
 public:
  explicit FlowDetailDialog(FlowSheets& sheets);

  QString FileID;          ///< the serial that the detail has, or is to get
  qint16 m_iSaveType = 1;  ///< 1 adds, 2 changes

  /// Prepares for adding a detail of that serial.
  void StartNew(const QString& serial);
  /// Shows the current detail.
  void StartChange();

 private:
  void Save() override;
  void FillQuantities();
  DetailValues Typed() const;

  TextBox *serial_, *quantity_ = nullptr, *mode_ = nullptr, *backQuantity_ = nullptr, *result_ = nullptr;
  EditCombo *unit_, *isBack_;
  DateBox *date_, *backDate_, *realBackDate_;
  DetailValues shown_;
};

}  // namespace folvane
