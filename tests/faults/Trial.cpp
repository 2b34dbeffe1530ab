#include "faults/Trial.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QStatusBar>
#include <algorithm>

#include <folvane/DataError.h>

#include "data/Recordset.h"
#include "shell/SharedState.h"
#include "support/HostDoubles.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

// What stands in the labels and status bars that are in view.
QStringList ShownTexts() {
  QStringList texts;
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible()) continue;
    for (const auto* label : window->findChildren<QLabel*>())
      if (label->isVisible() && !label->text().isEmpty()) texts << label->text();
    for (const auto* bar : window->findChildren<QStatusBar*>())
      if (!bar->currentMessage().isEmpty()) texts << bar->currentMessage();
  }
  return texts;
}

// Whether each row is one that the clean run had at some time.
bool HasNoOtherRows(const Contents& contents, const CleanRun& clean) {
  const auto isKnown = [&](const QString& table, const QString& row) {
    return clean.before.at(table).contains(row) ||
           std::any_of(clean.lasting.begin(), clean.lasting.end(),
                       [&](const Contents& state) { return state.at(table).contains(row); });
  };
  return std::all_of(contents.begin(), contents.end(), [&](const auto& table) {
    return std::all_of(table.second.begin(), table.second.end(),
                       [&](const QString& row) { return isKnown(table.first, row); });
  });
}

bool IsAllowed(Keeps keeps, const Contents& contents, const CleanRun& clean) {
  if (contents == clean.before || contents == clean.After()) return true;
  if (keeps == Keeps::EachRow) return HasNoOtherRows(contents, clean);
  return keeps == Keeps::Steps &&
         std::find(clean.lasting.begin(), clean.lasting.end(), contents) != clean.lasting.end();
}

}  // namespace

int Failures() { return testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count(); }

Trial::~Trial() {
  if (!command_) return;
  command_->End();
  lost_.clear();
  connection_.reset();
  command_.reset();
  Disk::Get().Empty();
}

// Keys are made of the clock and of random numbers: with the same ones they are the same in every run.
void Trial::Start() {
  Disk::Get().Empty();
  Services().registry = std::make_shared<MemoryRegistryStore>();
  command_ = row_.make();
  command_->Begin();
  Services().messageBox = [this](const MessageRequest& request) { return Show(request); };
}

void Trial::Connect() {
  if (Shared().CurrentRecords.IsOpen()) Shared().CurrentRecords.Close();
  if (connection_) lost_.push_back(std::move(connection_));
  connection_ = std::make_unique<FaultyConnection>(command_->Tables(), Disk::Get());
  Shared().Connection = connection_->Get();
}

void Trial::Work() {
  Connect();
  FixRandom({0.111111, 0.222222, 0.333333, 0.444444});
  try {
    command_->Work(*this);
  } catch (const DataError& error) {
    ADD_FAILURE() << "before anything had failed: " << error.what();
  }
}

CleanRun Trial::Clean(bool recorded) {
  recorded_ = recorded;
  Start();
  Work();
  EXPECT_TRUE(isJudged_) << row_.name << " was not tried";
  EXPECT_FALSE(found_.lasting.empty()) << row_.name << " has written nothing";
  return std::move(found_);
}

Outcome Trial::WithFault(const CleanRun& clean, const Fault& fault) {
  const int failures = Failures();
  clean_ = &clean;
  fault_ = fault;
  Start();
  Work();
  if (Failures() == failures && outcome_ != Outcome::After && outcome_ != Outcome::NotMet && !isRepeated_) Work();
  return outcome_;
}

void Trial::Try(const std::function<void()>& act, const std::function<bool()>& kept) {
  TryFromArm(
      [&] {
        Arm();
        act();
      },
      kept);
}

void Trial::TryFromArm(const std::function<void()>& act, const std::function<bool()>& kept) {
  const QPointer<QWidget> window = QApplication::activeModalWidget();
  const bool hasWindow = window;
  saidBefore_ = ShownTexts();
  Perform(act);
  if (isJudged_) return ExpectDone();
  const bool stands = !hasWindow || (window && window->isVisible());
  Judge(kept, stands);
  const bool again = clean_ && stands && fault_->kind != FaultKind::Ended && outcome_ == Outcome::Before;
  fault_.reset();
  if (!again) return;
  isRepeated_ = true;
  Perform(act);
  ExpectDone();
}

void Trial::Arm() {
  FixRandom({0.515151, 0.626262, 0.737373, 0.848484, 0.959595, 0.101010});
  answered_ = 0;
  boxes_.clear();
  if (!isJudged_) found_.before = ContentsOf(command_->Tables());
  if (!clean_) {
    connection_->afterLasting = [this] {
      Contents contents = ContentsOf(command_->Tables());
      if (contents != found_.After()) found_.lasting.push_back(std::move(contents));
    };
    if (recorded_) Disk::Get().BeginRecording();
  }
  connection_->Arm(fault_);
}

// Errors that reach the caller of a command are told by whoever has called it.
void Trial::Perform(const std::function<void()>& act) {
  try {
    act();
  } catch (const DataError& error) {
    boxes_ << error.Message();
  }
  if (recorded_) Disk::Get().EndRecording();
  connection_->afterLasting = {};
  connection_->Disarm();
}

void Trial::Judge(const std::function<bool()>& kept, bool stands) {
  isJudged_ = true;
  found_.statements = connection_->Statements();
  found_.said = ShownTexts() + boxes_;
  if (!clean_) {
    EXPECT_FALSE(connection_->HasFailed());
    return;
  }
  if (!connection_->HasFailed()) outcome_ = Outcome::NotMet;
  EXPECT_EQ(Difference(clean_->before, found_.before), QString()) << "another start";
  EXPECT_FALSE(connection_->Get()->InTransaction());
  connection_->ExpectAtRest();
  const Contents contents = ContentsOf(command_->Tables());
  EXPECT_TRUE(IsAllowed(row_.keeps, contents, *clean_)) << Difference(clean_->before, contents).toStdString();
  if (!connection_->HasFailed()) return;
  outcome_ = contents == clean_->After()  ? Outcome::After
             : contents == clean_->before ? Outcome::Before
                                          : Outcome::Between;
  if (outcome_ == Outcome::After) return;
  EXPECT_EQ(!NewlySaid().isEmpty(), row_.isTold) << "the user was told nothing, or something after all";
  EXPECT_TRUE(!kept || !stands || outcome_ != Outcome::Before || kept()) << "what was entered is gone";
}

void Trial::ExpectDone() {
  EXPECT_FALSE(connection_->HasFailed());
  const Contents contents = ContentsOf(command_->Tables());
  EXPECT_TRUE(outcome_ != Outcome::Before || contents == clean_->After())
      << "done again it comes out differently: " << Difference(clean_->After(), contents).toStdString();
}

// What neither stood there before nor is said when all goes well.
QStringList Trial::NewlySaid() const {
  QStringList said;
  for (const QString& text : found_.said)
    if (!saidBefore_.contains(text) && !clean_->said.contains(text)) said << text;
  return said;
}

int Trial::Show(const MessageRequest& request) {
  boxes_ << request.text + request.note;
  const int buttons = request.flags & 15;
  if (buttons == 0) return 1;
  if (answered_ < answers_.size()) return answers_[answered_++];
  return buttons == 1 ? 1 : buttons == 3 ? 7 : 6;
}

}  // namespace folvane::test
