#pragma once

#include <QString>
#include <vector>

#include <folvane/FtpConnection.h>

namespace folvane {

/// The entries of a listing in lines of facts (MLSD, RFC 3659), without the directory itself and the one above it.
std::vector<FtpEntry> EntriesOfFacts(const QString& listing);

/// The entries of a listing as servers print it for people (LIST): in the form of Unix or of DOS.
/// @throws DataError File for a line in neither form: a directory must not look emptier than it is
std::vector<FtpEntry> EntriesOfText(const QString& listing);

}  // namespace folvane
