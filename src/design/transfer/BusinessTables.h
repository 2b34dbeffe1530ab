#pragma once

#include <QString>
#include <map>
#include <memory>
#include <vector>

#include "design/transfer/Finding.h"

namespace folvane {
class Connection;
class ResultSet;
}  // namespace folvane

namespace folvane::transfer {

/// A field of a business table, by what the design tables and the table itself say of it.
struct TableField {
  QString name, caption;
  QString typeWord, dictionary;  ///< DynamicWindows.FieldType and AuxiDictDetails; "" for a field without a design
  int limit = 0;                 ///< DynamicWindows.FieldLong, bytes of the national code page; 0 for none
  bool isDesigned = false;       ///< has a row in DynamicWindows
  bool isAsked = false;          ///< has a control in the entry form
  bool isThere = false;          ///< is a column of the table
  int adoType = 0, size = 0;     ///< of the column; bytes of the national code page for texts

  /// For a list: "题名 Amaintitle", or the name alone.
  QString Label() const { return caption.isEmpty() || caption == name ? name : caption + u' ' + name; }
  /// What the user is told: the caption, or the name where there is none.
  QString Word() const { return caption.isEmpty() ? name : caption; }
};

struct BusinessTable {
  QString name, caption;
  QString type;             ///< DynamicWindows.TableType
  bool isDesigned = false;  ///< the design tables know it
  bool isThere = false;     ///< the database has it
  std::vector<TableField> fields{};

  /// By name without regard to case, nullptr for one that neither the design nor the database has.
  const TableField* Find(const QString& field) const;
  bool Has(const QString& field) const;  ///< whether it is a column of the table
  QString Label() const { return caption.isEmpty() || caption == name ? name : caption + u' ' + name; }
  QString Word() const { return caption.isEmpty() ? name : caption; }
};

/// The business tables that the design tables know. The columns of a table are asked for once, when they are first
/// needed.
class BusinessTables {
 public:
  /// @throws DataError
  explicit BusinessTables(std::shared_ptr<Connection> connection);
  /// Tables that are known already, with their columns; there are no others.
  explicit BusinessTables(std::vector<BusinessTable> tables);

  /// Those of the design, in its order, without their columns.
  const std::vector<BusinessTable>& Designed() const { return designed_; }
  /// One with its columns; one that nobody knows has none. Holds until this object goes. @throws DataError
  const BusinessTable& Get(const QString& name);

 private:
  BusinessTable& TableNamed(const QString& name);
  void ReadFields();
  void ReadRelations();
  void ReadControls();
  void ReadColumns(BusinessTable& table) const;

  std::shared_ptr<Connection> connection_;
  std::vector<BusinessTable> designed_;
  std::map<QString, BusinessTable> complete_;
};

}  // namespace folvane::transfer
