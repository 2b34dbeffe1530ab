#pragma once

#include <QByteArray>
#include <QString>
#include <exception>

namespace folvane {

/// A file of the program could not be read or written.
class FileError : public std::exception {
 public:
  explicit FileError(const QString& message) : utf8_(message.toUtf8()) {}
  /// The message in UTF-8, in words for the user.
  const char* what() const noexcept override { return utf8_.constData(); }

 private:
  QByteArray utf8_;
};

}  // namespace folvane
