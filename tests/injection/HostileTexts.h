#pragma once

#include <QStringList>

namespace folvane::test {

/// Texts that mean something to a database, a file system, a shell, a template, a page of HTML or a format: none of it
/// may come to anything.
const QStringList& HostileTexts();

/// Those of them that a line of input can hold as they are: valid, without line breaks, and not too long.
QStringList HostileLines(int mostLetters = 60);

/// A share of these lines, another at each call, so that in the end each box has met some and each line some boxes. All
/// of them in the long form (FOLVANE_SOAK).
QStringList SomeHostileLines(int mostLetters = 60);

}  // namespace folvane::test
