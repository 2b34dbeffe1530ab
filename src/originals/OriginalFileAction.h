#pragma once

#include <QString>
#include <QStringList>

namespace folvane {

/// What the originals' component is asked to do. The management of a record's originals has no name.
inline const QString kAddOriginals = QStringLiteral("AddState");
inline const QString kBrowseOriginals = QStringLiteral("BrowseState");
inline const QString kScanOriginals = QStringLiteral("ScanState");

/// Has the component work on the originals of a record, and returns when that is over. What fails is shown.
/// @param fileId the original that is to be looked at, "" otherwise
/// @param files  what the user has already chosen to be added
/// @return false when the component was to add something and added nothing; true in all other cases, after a failure
/// too
bool OriginalFileAction(const QString& recordId, const QString& action, const QString& fileId = {},
                        const QStringList& files = {});

/// The statement that reads the originals of a record in their order.
QString OriginalsStatement(const QString& recordId);
/// The id of the first original of a record, "" when it has none. @throws DataError
QString FirstOriginalOf(const QString& recordId);

}  // namespace folvane
