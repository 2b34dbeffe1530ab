#pragma once

#include <QString>
#include <optional>

#include "forms/EntryLayout.h"

namespace folvane {

/// How the messages of a refused save begin.
inline const QString kNotSaved = QStringLiteral("当前数据保存失败，原因在于：");

/// Why a record is not saved: a message to show under the caption of the form, and the field that gets the focus.
struct CheckFailure {
  QString text;
  int flags = 0;
  std::optional<ControlId> control;  ///< none leaves the focus where it is
};

/// What a user may enter into a table.
struct EntryRights {
  QString table;
  QString condition;  ///< in brackets, over columns with the table's name before them
  QString words;      ///< the same in words
};

/// Whether the record with the values now entered still lies inside the user's rights, as the database judges it. A
/// table without limits for the user passes. Where a column is shown twice the kinds are searched in their order, and
/// multi-line boxes last.
/// @throws DataError when the condition cannot be judged
std::optional<CheckFailure> CheckPopedom(const EntryRights& rights, const ShownFields& fields);

/// The first required field that is empty; after those the first field of a fixed length that is neither empty nor
/// full.
/// @throws NumberError for a hint without a number
std::optional<CheckFailure> CheckData(const ShownFields& fields, const EntryLayout& layout);

/// The first date of eight digits that is none. The month or the day may be 00, not known.
/// Whoever shows the failure selects the whole text of the field.
std::optional<CheckFailure> CheckArchiveDates(const ShownFields& fields);

/// The record's fonds number, from its picker; "" where the form has none.
QString FondsNoIn(const ShownFields& fields);

/// The text of a multi-line box as a record keeps it: one line, without blanks around.
QString OneLine(const QString& text);

}  // namespace folvane
