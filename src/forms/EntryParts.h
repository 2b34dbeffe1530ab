#pragma once

#include <QLabel>
#include <memory>

#include "forms/ControlPlace.h"
#include "forms/EntryField.h"
#include "forms/EntryLayout.h"

// What an entry form shows for a row of its design, and where.
namespace folvane {

inline constexpr int kRoomAboveForm = 500;  ///< twips; the design counts from under it

ControlPlace FieldPlace(const LayoutRow& row);
ControlPlace CaptionPlace(const LayoutRow& row);
/// Of the sign of a field that may not be empty.
ControlPlace SignPlace(const LayoutRow& row);

/// The field of a row. Null for a kind that is not built.
/// @param dictionary that fills its list, as an expression; "" for an empty list
/// @throws DataError when the list of a dictionary cannot be read
std::unique_ptr<EntryField> NewField(const LayoutRow& row, const QString& limitText, const QString& dictionary,
                                     QWidget* parent);
/// @param number of the row, from 1
std::unique_ptr<QLabel> NewCaption(const LayoutRow& row, int number, QWidget* parent);
/// A label of its own, so that the caption keeps its text and its place.
std::unique_ptr<QLabel> NewSign(int number, QWidget* parent);

}  // namespace folvane
