#pragma once

#include <QByteArray>

namespace folvane::test {

/// A file with a record set of one row, and two rows of a child record set behind its chapter "Lines".
QByteArray HierarchyFile();

/// The head of a file with so many record sets, each behind a chapter of the one before, and one chapter more.
QByteArray NestedSets(int count);

}  // namespace folvane::test
