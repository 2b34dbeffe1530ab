#pragma once

#include <QDateTime>
#include <QMap>
#include <QPair>
#include <QStringList>
#include <QTemporaryDir>
#include <deque>
#include <gtest/gtest.h>
#include <vector>

#include <folvane/HostServices.h>

#include "support/QtPrinting.h"

namespace folvane::test {

/// Takes every message box for as long as it lives: remembers the requests and gives the scripted answers in turn, then
/// OK or, where there is no OK, No.
class MessageBoxes {
 public:
  MessageBoxes();
  /// 1 OK, 2 Cancel, 6 Yes, 7 No; for the next box that has no answer yet.
  MessageBoxes& Answer(int answer);
  const std::vector<MessageRequest>& Requests() const { return requests_; }
  QStringList Texts() const;
  /// The last request; a test failure and an empty one when there was none.
  MessageRequest Last() const;
  void Clear() { requests_.clear(); }

 private:
  int Show(const MessageRequest& request);
  std::vector<MessageRequest> requests_;
  std::deque<int> answers_;
};

/// Takes every file dialog for as long as it lives; cancels when no answer is left.
class FileDialogs {
 public:
  FileDialogs();
  FileDialogs& Answer(const QString& path);
  const std::vector<FileRequest>& Requests() const { return requests_; }

 private:
  std::vector<FileRequest> requests_;
  std::deque<QString> answers_;
};

/// A registry that is gone with the test. Every test begins with an empty one in Services().
class MemoryRegistryStore : public RegistryStore {
 public:
  QString Read(const QString& key, const QString& name) const override;
  void Write(const QString& key, const QString& name, const QString& text) override;

 private:
  QMap<QPair<QString, QString>, QString> texts_;
};

/// A temporary directory that stands in Services().programDirectory.
class TempProgramDirectory {
 public:
  TempProgramDirectory();
  QString Path(const QString& file = {}) const;
  /// Writes a file, making the folders above it.
  void Write(const QString& file, const QByteArray& bytes) const;
  QByteArray Read(const QString& file) const;
  bool Has(const QString& file) const;

 private:
  QTemporaryDir directory_;
};

/// Stops the clock of Services() at a time, until the test ends.
void FixClock(const QDateTime& time);
/// Has the random numbers of Services() run through the given ones again and again, until the test ends.
void FixRandom(const std::vector<double>& numbers);

/// Gives every test the same fresh Services(): an empty registry in memory, and a message box or a file dialog that
/// nobody expects is a failure instead of a window that waits for ever.
class HostDoublesListener : public testing::EmptyTestEventListener {
 public:
  HostDoublesListener();

 private:
  void OnTestStart(const testing::TestInfo&) override;
  void OnTestEnd(const testing::TestInfo&) override;
  HostServices defaults_;
};

}  // namespace folvane::test
