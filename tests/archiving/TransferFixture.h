#pragma once

#include <QStringList>
#include <initializer_list>

#include "archiving/ArchiveTransfer.h"
#include "records/DesignedDatabase.h"

namespace folvane::test {

/// Registered documents (Fwdj), the archive that takes them (Wenshu) and its volumes (Anjuan). Of a document the title,
/// the date and the pages go over; the archive number is made of fonds, year and item.
class TransferTest : public DesignTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Adds a column to a business table.
  void AddColumn(const QString& table, const QString& column);
  void Map(const QString& source, const QString& destination, const QString& caption = {});
  void Unmap() { design_->Run(QStringLiteral("delete from DataTransfer_Details")); }
  /// Takes the place of the archive number's format; the last field is that of the item.
  void SetFormat(const std::vector<NumberField>& fields, const QString& storeField,
                 const QString& folderField = NoFolder());
  static QString NoFolder() { return QStringLiteral("(无)"); }
  /// Documents 1 to count, to be archived: title "题名1", date 2002-01-01, one page.
  void AddDocuments(int count);
  void AddDocument(int number, const QString& title, const QString& date, const QString& pages,
                   const QString& status = QStringLiteral("需归档"));
  void AddDictionary(const QString& field, const QString& name, const QString& code);

  TransferOrder Order() const;
  QStringList Keys(int count) const;
  /// Transfers documents 1 to count with a transfer of its own, which is kept.
  ArchiveTransfer& Transfer(int count, const TransferOrder& order);
  ArchiveTransfer& Transfer(int count) { return Transfer(count, Order()); }
  /// The values of columns in the archive in the order of the titles, each row joined by "|".
  QStringList Archived(const QString& columns);
  QStringList Volumes(const QString& columns);
  QStringList Rows(const QString& sql);
  /// All that a transfer may change.
  QStringList Everything();

  MessageBoxes boxes_;
  QString volumeTitle_ = QStringLiteral("案卷");
  int titlesAsked_ = 0;
  std::unique_ptr<ArchiveTransfer> transfer_;
};

}  // namespace folvane::test
