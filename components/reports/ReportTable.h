#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include <folvane/ResultSet.h>

namespace folvane::reports {

/// A field of a report's rows.
struct ReportField {
  QString marker;  ///< its name in templates: the column's in capitals, COLUMN_n where that has other letters
  QString caption;
  int column = -1;    ///< in the rows
  int listWidth = 0;  ///< in the record list, in twips; 0 for a field that stands not in it
  int length = 0;     ///< the bytes that a value may have, 0 when not known
  bool isNumber = false;
};

/// Rows of one table with what the design tables, or the flow windows, say of its fields. Rows count from 0.
class ReportTable {
 public:
  /// @param conditions what follows Where @param order what follows Order By, "" for none
  /// @throws DataError
  ReportTable(Connection& connection, const QString& table, const QString& conditions, const QString& order = {});

  const QString& Name() const { return name_; }
  /// What users call the table.
  const QString& Caption() const { return caption_; }
  const std::vector<ReportField>& Fields() const { return fields_; }
  /// The fields with a caption of their own, those of the record list first; what a reader is to see.
  std::vector<ReportField> CaptionedFields() const;
  /// The fields of the record list in their order; empty where the design has no list.
  std::vector<ReportField> ListFields() const;
  /// By its marker, nullptr when there is none.
  const ReportField* Find(const QString& marker) const;

  qint64 RowCount() const { return rows_.RowCount(); }
  QString Text(qint64 row, const ReportField& field) const { return rows_.Text(row, field.column); }
  /// By the field's marker, "" when there is none.
  QString Text(qint64 row, const QString& marker) const;
  /// The sum of a field over some rows; what is no number counts nothing.
  QString Sum(const std::vector<qint64>& rows, const ReportField& field) const;

 private:
  void NameFields();
  void Describe(Connection& connection);

  QString name_, caption_;
  ResultSet rows_;
  std::vector<ReportField> fields_;
  std::vector<QString> listed_;  ///< markers in the order of the list
};

}  // namespace folvane::reports
