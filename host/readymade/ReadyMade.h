#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include <folvane/Design.h>

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

}  // namespace folvane::host
