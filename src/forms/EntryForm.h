#pragma once

#include <memory>
#include <vector>

#include "forms/EntryLayout.h"
#include "forms/RecordBinding.h"
#include "forms/ScrolledFields.h"

class QLabel;

namespace folvane {

/// The entry form of a table, built from its design and bound to a record set. A field that may not be empty has a sign
/// before its caption; a line above the fields names those for which the design has no usable place or size.
class EntryForm : public ScrolledFields {
  Q_OBJECT

 public:
  using ScrolledFields::ScrolledFields;

  /// Builds the form of a table anew. An error ends the building and is shown; what was built so far stays.
  void BuildEntryControls(const QString& table, Recordset& records);
  void ClearEntryControls();

  /// The lists of the form that was built last, without the fields that an error has kept from being built.
  const EntryLayout& Layout() const { return layout_; }
  /// In the order of the design.
  const std::vector<std::unique_ptr<EntryField>>& Fields() const { return fields_; }
  /// The field of a kind and number, null when there is none.
  EntryField* FieldOf(const ControlId& control) const;
  /// What the fields show, in the order of the design.
  ShownFields Shown() const;
  /// Adds the texts of the combo boxes to their lists, for as long as the form stands.
  void KeepComboTexts();
  std::vector<ComboEntries> ComboLists() const;
  RecordBinding& Binding() { return binding_; }

 private:
  void Build(const QString& table, Recordset& records);
  void RequireSound(const LayoutRow& row, const Recordset& records) const;
  void BuildField(const LayoutRow& row, Recordset& records);
  void BuildLabel(const LayoutRow& row, int number);
  void AddLabel(std::unique_ptr<QLabel> label, const ControlPlace& place);
  bool IsRequired(const LayoutRow& row) const;
  void TellArranged();

  EntryLayout layout_;
  std::vector<std::unique_ptr<EntryField>> fields_;
  std::vector<std::unique_ptr<QLabel>> labels_;
  RecordBinding binding_;
};

}  // namespace folvane
