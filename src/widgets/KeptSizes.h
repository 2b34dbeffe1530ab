#pragma once

#include <QList>
#include <QString>

class QHeaderView;
class QSplitter;

namespace folvane {

// The sizes that a user gives to parts of a window, kept under a name such as "FrmMain.Rows" until the next time.

/// @param usual the sizes in pixels where none are kept
void RestoreSizes(QSplitter& splitter, const QString& name, const QList<int>& usual);
void KeepSizes(const QSplitter& splitter, const QString& name);

/// The widths of columns; a hidden one stays hidden.
void RestoreSizes(QHeaderView& header, const QString& name, const QList<int>& usual);
void KeepSizes(const QHeaderView& header, const QString& name);

}  // namespace folvane
