#pragma once

#include <QByteArray>
#include <QStringList>
#include <functional>
#include <gmock/gmock.h>
#include <vector>

#include <folvane/DataError.h>
#include <folvane/FtpConnection.h>

#include "support/FtpServer.h"
#include "support/QtPrinting.h"

namespace folvane::test {

/// The error that a step ends with; a test failure where it ends without one.
DataError ErrorFrom(const std::function<void()>& step);

/// Bytes of every value, among them line breaks and zeros.
QByteArray Bytes(int count);

void Put(FtpConnection& connection, const QString& name, const QByteArray& content);
QByteArray Get(FtpConnection& connection, const QString& name);
QStringList Names(const std::vector<FtpEntry>& entries);

MATCHER_P(HasText, part, "") { return arg.contains(part); }

}  // namespace folvane::test
