#pragma once

#include <QString>

namespace folvane {

// Words of the transfer into the archive.

inline const QString kTransferTitle = QStringLiteral("数据归档");
inline const QString kToBeArchived = QStringLiteral("需归档");
inline const QString kArchived = QStringLiteral("已归档");

}  // namespace folvane
