#pragma once

#include <QDialog>

class QLabel;

namespace folvane {

class TextBox;

/// The record position that a typed number asks for: a record's number as it stands, or for a page the count of the
/// records before it. 0 for the first page and for the number 0. @throws NumberError beyond 32 bits
int MoveNumberOf(const QString& number, bool isPage);

/// Asks for the number of a record or of a page to go to. Used through DefaultInstance and shown by ShowModal; whoever
/// showed it reads MoveNumber and unloads it.
class FrmRecordMove : public QDialog {
 public:
  FrmRecordMove();

  bool MoveType = false;  ///< false: the number is that of a record, true: that of a page
  /// For a record its number, for a page the count of records before it; 0 when there is nothing to do, which the first
  /// page and a cancelled question give alike.
  int MoveNumber = 0;

  void reject() override;

 protected:
  bool event(QEvent* event) override;

 private:
  void LayOut();
  QString NumberWord() const;
  void NoteLeaving();
  void Activate();
  void TakeNumber();

  QLabel* question_;
  TextBox* number_;
  bool wasElsewhere_ = false;  ///< the user has been in a message box or in another program
};

}  // namespace folvane
