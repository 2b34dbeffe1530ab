#include "designer/DesignSession.h"

#include <QUndoCommand>

#include "design/RebaseDesign.h"
#include "shell/EventGuard.h"

namespace folvane::designer {

/// One step, from one design to the next.
class DesignSession::Step : public QUndoCommand {
 public:
  Step(DesignSession& session, const QString& words, const QString& series, Snapshot after)
      : QUndoCommand(words), session_(session), series_(series), before_(session.wanted_), after_(std::move(after)) {}

  void undo() override { session_.Take(before_); }
  void redo() override { session_.Take(after_); }
  int id() const override { return series_.isEmpty() ? -1 : 1; }
  bool mergeWith(const QUndoCommand* next) override {
    const auto& step = static_cast<const Step&>(*next);
    if (step.series_ != series_) return false;
    after_ = step.after_;
    return true;
  }

 private:
  DesignSession& session_;
  QString series_;
  Snapshot before_, after_;
};

DesignSession::DesignSession(std::shared_ptr<folvane::Connection> connection)
    : connection_(std::move(connection)),
      stored_(ReadDesign(*connection_)),
      wanted_(std::make_shared<const Design>(stored_)) {}

bool DesignSession::Change(const QString& words, const Work& work, const QString& series) {
  auto changed = std::make_shared<Design>(*wanted_);
  try {
    work(*changed);
  } catch (const std::exception& error) {
    Q_EMIT Told(ErrorText(error));
    return false;
  }
  if (*changed == *wanted_) return false;
  history_.push(new Step(*this, words, series, std::move(changed)));
  return true;
}

void DesignSession::Take(const Snapshot& wanted) {
  wanted_ = wanted;
  Q_EMIT Changed();
}

void DesignSession::Apply(const DesignPlan& plan, const std::vector<LossAnswer>& answers) {
  ApplyDesign(*connection_, plan, answers);
  stored_ = ReadDesign(*connection_);
  Design applied = *wanted_;
  PutInOrder(applied);
  if (stored_ == applied) {
    history_.setClean();
    Q_EMIT Changed();  // nothing else is wanted, but it is in the database now
    return;
  }
  // Steps back lead to designs without what others did, and would take it away again.
  history_.clear();
  Take(std::make_shared<const Design>(stored_));
}

QStringList DesignSession::ReadAgain() {
  QStringList given;
  const Design before = stored_, wanted = *wanted_;
  GiveUp();
  Change(QStringLiteral("未应用的改动"),
         [&](Design& changed) { changed = design::Rebased(before, wanted, stored_, given); });
  return given;
}

void DesignSession::GiveUp() {
  stored_ = ReadDesign(*connection_);
  history_.clear();
  Take(std::make_shared<const Design>(stored_));
}

}  // namespace folvane::designer
