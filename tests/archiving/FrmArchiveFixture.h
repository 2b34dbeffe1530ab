#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "archiving/FrmArchive.h"
#include "records/DesignedDatabase.h"
#include "records/RecordWindow.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

/// The open archive window.
class ArchiveWindow : public RecordWindow {
 public:
  explicit ArchiveWindow(QWidget& window) : RecordWindow(window, u"TvwFileClass"_s, u"lstData"_s) {}

  QModelIndex Cell(int row) const { return List().model()->index(row - 1, 0); }
  int Rows() const { return List().model()->rowCount(); }
  bool IsTicked(int row) const { return Cell(row).data(Qt::CheckStateRole).toInt() == Qt::Checked; }
  void Tick(int row, bool on = true) const {
    List().model()->setData(Cell(row), on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
  }
  /// The tick numbers from the top, "" for a row without.
  QStringList Numbers() const { return Column(u"lstData"_s, 0); }
  QCheckBox& Box(const QString& name) const { return Find<QCheckBox>(Window(), name); }
  QWidget& Control(const QString& name) const { return Find<QWidget>(Window(), name); }
  QString Text(const QString& name) const { return TextIn(Window(), name); }
  void Ok() const { Click(Control(u"CmdOK"_s)); }
  bool CanTransfer() const {
    const bool can = KeyOn(u"DoArchive"_s);
    EXPECT_EQ(On(u"mnuArchive"_s), can);
    EXPECT_EQ(On(u"mnuIsOriginal"_s), can);
    EXPECT_EQ(Box(u"Check2"_s).isEnabled(), can);
    EXPECT_EQ(Control(u"CmdOK"_s).isEnabled(), can);
    return can;
  }
};

/// Documents of Lwdj and of Fwdj, of which Lwdj goes into the archive Wsda; numbers are made of the year, for which the
/// panel has a field, and of the item.
class FrmArchiveTest : public DesignTest {
 protected:
  void SetUp() override {
    DesignTest::SetUp();
    design_->AddClass(2, u"文书"_s);
    for (const auto& [table, caption] : {std::pair{u"Lwdj"_s, u"来文登记"_s}, std::pair{u"Fwdj"_s, u"发文登记"_s}})
      design_->AddTable(table, caption, 2,
                        {{u"RegID"_s, u"登记号"_s, u"数值型"_s},
                         {u"Amaintitle"_s, u"题名"_s, u"文本型"_s},
                         {u"FileStatus"_s, u"归档状态"_s, u"文本型"_s}});
    design_->AddTable(u"Wsda"_s, u"文书档案"_s, 2,
                      {{u"Amaintitle"_s, u"题名"_s, u"文本型"_s},
                       {u"FileYear"_s, u"年度"_s, u"文本型"_s},
                       {u"ItemNo"_s, u"件号"_s, u"数值型"_s},
                       {u"ArchiveNo"_s, u"档号"_s, u"文本型"_s}});
    design_->Insert(u"DataTransfer_Ini"_s, u"RecId,SourceTbl,DesTbl"_s, {u"1"_s, u"Lwdj"_s, u"Wsda"_s});
    design_->Insert(u"DataTransfer_Details"_s, u"IniRecId,SourceField,DesField,SourceChn"_s,
                    {u"1"_s, u"Amaintitle"_s, u"Amaintitle"_s, u"题名"_s});
    for (const QString& field : {u"FileYear"_s, u"ItemNo"_s})
      design_->Insert(u"ArchiveNo_Format"_s,
                      u"TableName,FieldName,ListSeparator,ShowMode,Lengh,StoreField,FolderNoField"_s,
                      {u"Wsda"_s, field, u"-"_s, u"显示名称"_s, u"4"_s, u"ArchiveNo"_s, u"(无)"_s});
  }
  /// Records 1 to count of Lwdj, all to be archived; the newest stands first.
  void AddDocuments(int count, const QString& table = u"Lwdj"_s) {
    design_->AddRecords(table, count);
    design_->Run(u"update "_s + table + u" set FileStatus='需归档'"_s);
  }
  /// Opens the window on a table, runs the steps in it and closes it.
  void InWindow(const std::function<void(const ArchiveWindow&)>& steps, const QString& table = u"Lwdj"_s) {
    WithWindow(u"FrmArchive"_s, [&](QWidget& window) { steps(ArchiveWindow(window)); });
    ShowArchiveWindow(table);
  }
  static void GiveYear(const ArchiveWindow& window, const QString& year = u"2002"_s) {
    Retype(window.Control(u"Txt(1)"_s), year);
  }
  QStringList Archived() {
    QStringList archived;
    for (const QStringList& row : Database().Rows(u"select Amaintitle,ArchiveNo from Wsda order by ItemNo"_s))
      archived << row.join(u' ');
    return archived;
  }

  MessageBoxes boxes_;
};

}  // namespace folvane::test
