#pragma once

#include <QStringList>
#include <vector>

#include <folvane/Design.h>

#include "forms/EntryLayout.h"

namespace folvane::designer {

/// A control of an entry form as it is to be seen.
struct FormItem {
  int control = 0;  ///< its place in the table's list of controls
  LayoutRow row;
  int keyOrder = 0;
  bool isRequired = false;
  bool isBuilt = true;  ///< the entry form has a box for it
  QStringList entries;  ///< of its dictionary
  QString trouble;      ///< why the entry form shows it otherwise than it is designed, "" for nothing

  /// Whether it takes the same widgets, wherever they stand.
  bool LooksLike(const FormItem& other) const;
};

/// The controls of a form at the places that the entry form gives them, in the order of the Enter key.
std::vector<FormItem> FormItems(const Design::Table& table, const std::vector<Design::Dictionary>& dictionaries);

/// What a kind of control is called, "" for a kind that there is not.
QString KindName(int type);

/// The kinds that a field can have a control of, the most fitting first; all for a field that is not there.
QList<int> KindsFor(const Design::Field* field);

}  // namespace folvane::designer
