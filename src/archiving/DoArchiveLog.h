#pragma once

#include <QString>

#include "base/ProfileFile.h"

namespace folvane {

/// DoArchiveLog.INI in the program's directory: what was last given for the fields of the archive numbers, a section
/// for each destination table. What keeps a value from being read or kept ends nothing; it can be told afterwards.
class DoArchiveLog {
 public:
  /// @param table the destination
  explicit DoArchiveLog(const QString& table);

  /// What was last given for a field, "" for nothing.
  QString Last(const QString& field);
  /// Makes an empty file where there is none.
  void MakeFile();
  /// Keeps a value until the next time. Characters that the national code page does not have become '?'. Once one value
  /// could not be kept the next ones are not tried.
  void Keep(const QString& field, const QString& value);

  /// Why something could not be read or kept, "" while everything could.
  const QString& Failure() const { return failure_; }

 private:
  template <typename Step>
  void Try(Step step);

  ProfileFile file_;
  QString table_, failure_;
};

}  // namespace folvane
