#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include <folvane/Design.h>

#include "host/HostDatabase.h"

namespace folvane::host {

/// A design to begin with, as a file of its own that the program carries.
struct ReadyMade {
  QString name;  ///< of the file, without its ending
  QString title, line;
};

const std::vector<ReadyMade>& ReadyMades();

/// The designs of those names put together, without what belongs to designs that are not among them.
/// @throws HostError for a name that there is not
Design JoinedDesign(const QStringList& names);

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
