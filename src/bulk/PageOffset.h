#pragma once

#include <QString>

namespace folvane {

/// The record position that a typed number asks for: a record's number as it stands, or for a page the count of the
/// records before it. 0 for the first page and for the number 0. @throws NumberError beyond 32 bits
int MoveNumberOf(const QString& number, bool isPage);

}  // namespace folvane
