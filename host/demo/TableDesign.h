#pragma once

#include <QString>
#include <vector>

#include "catalogue/Table.h"

namespace folvane::demo {

/// Where a field's control stands on the entry form, in twips.
struct ControlBounds {
  int left = 0, top = 0, width = 0, height = 0;
};

/// A field of a business table with all that the design tables say of it.
struct FieldDesign {
  QString name, caption, type;
  int length = 0;
  QString dictionary;
  bool required = false, fixed = false, inherited = false, carried = false;
  int controlType = 0;  ///< 0 for a field without a control
  int controlIndex = 0;
  ControlBounds bounds;
  int listOrder = 0, listWidth = 0;  ///< 0 for a field that the list does not show
  int searchOrder = 0;               ///< 0 for a field that the search does not offer
  QString searched;                  ///< what was last searched for

  bool IsNumber() const;
  bool IsDate() const;
};

/// A business table of the demo, read from its data file.
struct TableDesign {
  QString name, caption, type, className;
  bool typeIsNull = false;
  std::vector<FieldDesign> fields;
  std::vector<QStringList> indexes;

  Table Physical() const;
};

/// The tables in the order in which they are made.
std::vector<TableDesign> ReadTableDesigns();

}  // namespace folvane::demo
