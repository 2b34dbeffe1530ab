#pragma once

#include <QByteArray>
#include <QString>

#include "host/demo/Letter.h"

namespace folvane::demo {

// The contents of originals: small, and the same for the same document everywhere.

QByteArray TextFile(const Letter& letter);
/// One page with a font that the reader of the file brings along.
QByteArray PdfFile(const Letter& letter);
/// The picture of a scanned page: head, title, lines and seal.
QByteArray ScanFile(const Letter& letter);

}  // namespace folvane::demo
