#pragma once

#include <QStringList>

namespace folvane::test {

/// Texts that go wrong where a value is pasted into a statement, a pattern, a format or a file.
const QStringList& AwkwardTexts();

}  // namespace folvane::test
