#pragma once

#include <QObject>
#include <QTemporaryDir>
#include <QUrl>

#include <folvane/HostServices.h>

#include "support/Dice.h"
#include "support/HostDoubles.h"

namespace folvane::test {

/// What keeps the monkey in: nothing that it does leaves the process and its temporary directory. Message boxes and
/// file dialogs are answered at random, documents and addresses open no program, the only scanner is that of SANE's
/// tests, and the clock goes with the steps.
class Cage : public QObject {
  Q_OBJECT

 public:
  explicit Cage(quint64 seed);
  ~Cage() override;

  const TempProgramDirectory& Directory() const { return directory_; }
  /// The clock goes on.
  void NextStep() { ++step_; }
  int Boxes() const { return boxes_; }
  int Dialogs() const { return dialogs_; }
  int Opened() const { return opened_; }

 private:
  Q_INVOKABLE void OpenUrl(const QUrl& url);
  int AnswerBox(const MessageRequest& request);
  QString AnswerDialog(const FileRequest& request);
  void WriteFiles();

  TempProgramDirectory directory_;
  QTemporaryDir files_;  ///< what dialogs choose from, and where they save to
  QString startDirectory_;
  Dice dice_;
  qint64 step_ = 0;
  int boxes_ = 0, dialogs_ = 0, opened_ = 0;
};

}  // namespace folvane::test
