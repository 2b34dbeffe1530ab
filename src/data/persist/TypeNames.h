#pragma once

#include <QByteArrayView>
#include <QtGlobal>
#include <vector>

namespace folvane {

/// ADO's name of a type number, such as adVarWChar; "" for one that it does not have.
QByteArrayView AdoTypeName(int type);

/// The names of the bits that are set in the flags of a column, from the lowest on.
std::vector<QByteArrayView> ColumnFlagNames(quint32 flags);

}  // namespace folvane
