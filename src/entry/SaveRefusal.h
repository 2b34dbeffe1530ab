#pragma once

#include <QString>

#include <folvane/DataError.h>

namespace folvane {

/// Tells the user, under a title, that the database has refused the record that he is entering, and why: the field by
/// its caption in the table's form.
void TellRefusal(const QString& table, const DataError& error, const QString& title);

/// Asks whether a record whose key another one has got is to be saved with a new key.
bool AskForNewKey(const QString& table, const DataError& error, const QString& title);

}  // namespace folvane
