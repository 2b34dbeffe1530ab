#pragma once

#include <QString>
#include <QStringList>
#include <exception>
#include <memory>
#include <optional>
#include <vector>

#include <folvane/Connection.h>

#include "forms/CarryFields.h"

namespace folvane {

/// The kinds of control of an entry form, by their numbers in the design.
namespace ControlKind {
enum : int {
  Txt = 1,
  Cmb = 2,
  DTP = 4,
  F_FondsNo = 6,
  F_Aec = 7,
  F_Organ = 8,
  DTP_Arch = 9,
  Txt_MLine = 10,
};
}  // namespace ControlKind

// Twips. Nobody can see a field that begins or ends farther to the right than the widest screen.
inline constexpr int kFarthestRight = 57'600, kFarthestDown = 240'000;
inline constexpr int kFarthestUp = -500;  ///< in the room above the first fields

/// Names a control: its kind and its number within the kind. 0, 0 names none.
struct ControlId {
  int type = 0;
  int index = 0;

  bool operator==(const ControlId&) const = default;
};

/// One field of an entry form as the design has it. Places and sizes are in twips.
struct LayoutRow {
  ControlId control;
  QString dataField, fieldType, caption;
  QString fieldLong;   ///< the length of the value, as text
  QString dictionary;  ///< that fills a combo box
  int left = 0, top = 0, width = 0, height = 0;
  bool isArranged = false;  ///< the design has no usable place or size: the form has given it one
};

/// What a form shows of a field at the moment, for whoever works without controls.
struct ShownField {
  ControlId control;
  QString dataField;
  QString caption;    ///< the name that messages use
  QString limitText;  ///< the hint on its length
  QString text;       ///< "" for a date picker without a date
};

using ShownFields = std::vector<ShownField>;

/// A combo box of a form with the entries of its list, those typed into it included.
struct ComboEntries {
  QString dataField;
  QStringList entries;
};

/// The entry form of a table. The lists count from 1; at 0 stands the empty pair, or the field "<无>".
struct EntryLayout {
  std::vector<LayoutRow> rows;             ///< in the order of the cursor, from 0
  std::vector<ControlId> KeyList;          ///< all fields in the order of the cursor
  std::vector<ControlId> RequiredList;     ///< that may not be empty
  std::vector<ControlId> FixedLengthList;  ///< whose entry must fill the length exactly
  std::vector<CarryField> FieldList;       ///< all fields with their types, for copying a whole record
  std::exception_ptr failure;              ///< why the rows after the last of these could not be read
};

/// The hint on a field for how much it holds, "限长14个字符"; the checks read the number back out of it.
QString LimitText(const QString& length);

/// The number in a hint: what stands from its third character up to the first "个". None when that is no number.
std::optional<int> LimitIn(const QString& hint);

/// What a caption needs to the left of its usual place, in twips, so that it ends before its field.
int CaptionOverhang(const QString& caption);

/// Puts a control without a usable place under those that have one, and gives one without a usable size that of its
/// kind.
void ArrangeRows(std::vector<LayoutRow>& rows);

/// Reads the design of a table's entry form, with its rows arranged. @throws DataError when the design cannot be asked
/// for
EntryLayout ReadEntryLayout(const std::shared_ptr<Connection>& connection, const QString& table);

}  // namespace folvane
