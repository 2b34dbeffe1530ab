#pragma once

#include <QString>

namespace folvane::design {

/// Why a table or a column cannot be given that name, "" when it can. Statements name them without quotes, so that a
/// name must be a word of every database, and none that stands for something else.
QString NameComplaint(const QString& name);

}  // namespace folvane::design
