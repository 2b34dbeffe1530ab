#pragma once

#include <QStringList>
#include <optional>

#include <folvane/HostServices.h>

#include "faults/Command.h"
#include "faults/Fault.h"
#include "support/Contents.h"

namespace folvane::test {

/// What a command does when nothing fails.
struct CleanRun {
  Contents before;
  std::vector<Contents> lasting;  ///< after each statement that has changed the database for good
  int statements = 0;
  QStringList said;  ///< what stood in message boxes and labels
  const Contents& After() const { return lasting.empty() ? before : lasting.back(); }
};

/// What came of a command in which a statement was to fail.
enum class Outcome { Before, Between, After, NotMet };

/// How often the running test has failed so far.
int Failures();

/// One command, run from its start.
class Trial {
 public:
  explicit Trial(const CommandRow& row) : row_(row) {}
  ~Trial();

  /// Runs the command without a fault. @param recorded whether the disk keeps what is written
  CleanRun Clean(bool recorded = false);
  /// Runs it with one, and checks what is left, what the user was told, and that it works when done again.
  Outcome WithFault(const CleanRun& clean, const Fault& fault);

  // For the command.

  /// Does what writes; does it again where it failed, on a database that fails no more.
  /// @param kept whether what the user had entered is still there
  void Try(const std::function<void()>& act, const std::function<bool()>& kept = {});
  /// The same where the writing begins later: `act` calls Arm before.
  void TryFromArm(const std::function<void()>& act, const std::function<bool()>& kept = {});
  void Arm();
  /// What whoever opened the window tells the user of it.
  void Hear(const QString& text) { boxes_ << text; }
  const std::shared_ptr<Connection>& Connected() const { return connection_->Get(); }
  /// Answers questions in turn, each time anew from the arming on; without them with OK or yes, and whether to save
  /// what was not, with no.
  void Answer(std::vector<int> answers) { answers_ = std::move(answers); }

 private:
  void Start();
  void Connect();
  void Work();
  void Perform(const std::function<void()>& act);
  void Judge(const std::function<bool()>& kept, bool stands);
  void ExpectDone();
  int Show(const MessageRequest& request);
  QStringList NewlySaid() const;

  const CommandRow& row_;
  std::unique_ptr<WritingCommand> command_;
  std::unique_ptr<FaultyConnection> connection_;
  std::vector<std::unique_ptr<FaultyConnection>> lost_;  ///< those before it, which a window may still hold
  std::optional<Fault> fault_;
  const CleanRun* clean_ = nullptr;  ///< with which this one is compared
  CleanRun found_;                   ///< what was found in this one
  bool recorded_ = false, isJudged_ = false, isRepeated_ = false;
  QStringList saidBefore_, boxes_;
  std::vector<int> answers_;
  std::size_t answered_ = 0;
  Outcome outcome_ = Outcome::NotMet;
};

}  // namespace folvane::test
