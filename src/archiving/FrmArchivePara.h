#pragma once

#include <QDialog>
#include <QString>

class QLabel;

namespace folvane {

class ArchiveFields;

/// Asks for the values of the archive number's fixed fields before a transfer. Used through DefaultInstance; whoever
/// showed it reads its property Tag, "1" for confirmed and "0" for cancelled, and unloads it.
class FrmArchivePara : public QDialog {
 public:
  FrmArchivePara();

  QString SouTbl;  ///< the table that records are taken from
  QString ObjTbl;  ///< the table that they go to, whose numbers are composed

  /// Reads the number's format and shows the window modally. A table without a format has nothing to be asked for: the
  /// window does not come up, and the Tag stays as it was. @throws DataError
  void Open();
  /// What the user should know afterwards, "" for nothing.
  const QString& Note() const { return note_; }

  void reject() override;

 private:
  void LayOut();
  void Confirm();
  void ShowHint();
  QString HintText() const;

  ArchiveFields* fields_;
  QLabel* hint_;
  QString note_;
};

/// What came of asking.
struct ArchiveParameters {
  bool confirmed = false;
  QString note;  ///< what the user should know, "" for nothing
};

/// Asks for the archive number's values and unloads the window. @throws DataError
ArchiveParameters AskArchiveParameters(const QString& source, const QString& destination);

}  // namespace folvane
