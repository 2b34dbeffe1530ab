#pragma once

#include <QString>
#include <QStringList>

#include "host/HostDatabase.h"

namespace folvane::host {

struct OfficeOrder {
  DatabaseChoice where;   ///< a file that there is not yet, or a database without tables of the library
  QStringList readyMade;  ///< by their names
  QString administrator;  ///< the name of the user 1
  QString password;
};

/// Makes the database of a new office: the library's tables, those of the chosen designs, and the administrator. All of
/// it or nothing. @throws HostError, DataError, std::runtime_error
void MakeOffice(const OfficeOrder& order);

}  // namespace folvane::host
