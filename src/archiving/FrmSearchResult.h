#pragma once

#include <QDialog>
#include <QString>
#include <array>
#include <optional>

#include "archiving/RecordMerge.h"
#include "data/Recordset.h"
#include "records/ListColumns.h"
#include "records/PagedRecordList.h"
#include "records/RecordListModel.h"

class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;

namespace folvane {

class ChoiceRelay;
class PageLink;
class RecordListView;
class ViewHint;

/// Looks for records of a table, has the user tick some of them, and merges these into the record that stays. Used
/// through DefaultInstance; whoever showed it unloads it.
class FrmSearchResult : public QDialog {
 public:
  FrmSearchResult();
  ~FrmSearchResult() override;

  QString CurrTable;    ///< of the records to be merged
  QString TargetID;     ///< the key of the record that stays
  QString TargetTitle;  ///< what the window calls it, "" for nothing
  QString Where;        ///< the condition that was asked for
  QString Outcome;      ///< what came of it, in words; "" when nothing was merged

  /// Gives the list the columns of the table and shows the window modally. @throws DataError
  void Open();

  void done(int result) override;

 private:
  void MakeControls();
  void LayOut();
  void Connect();
  void Load();

  void Search();
  void ShowFound();
  void LoadUpTo(qint64 rows);
  void GoTo(qint64 row);
  void ShowRow(int row);
  bool HandleKey(int key);
  void ShowTicked();
  QStringList TickedInOrder() const;
  void Merge();

  Recordset records_;
  RecordListModel model_;
  PagedRecordList pages_;
  std::optional<RecordMerge> merge_;
  RecordListView* list_;
  ColumnWidths widths_;
  ChoiceRelay* choice_ = nullptr;
  ViewHint* listHint_;
  QGroupBox* frame_;
  QLabel *target_, *page_, *ticked_;
  std::array<PageLink*, 4> links_;
  QProgressBar* progress_;
  QPushButton *search_, *ok_, *exit_;
};

}  // namespace folvane
