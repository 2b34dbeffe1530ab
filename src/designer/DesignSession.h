#pragma once

#include <QObject>
#include <QUndoStack>
#include <functional>
#include <memory>
#include <vector>

#include <folvane/Design.h>

namespace folvane::designer {

/// The design that an administrator is working on: what the database holds, what is wanted instead, and the way from
/// one to the other, step by step, each of which can be taken back. Nothing is written before Apply.
class DesignSession : public QObject {
  Q_OBJECT

 public:
  /// @throws DataError where the design cannot be read
  explicit DesignSession(std::shared_ptr<Connection> connection);

  const Design& Stored() const { return stored_; }
  const Design& Wanted() const { return *wanted_; }
  const std::shared_ptr<folvane::Connection>& Database() const { return connection_; }
  bool IsChanged() const { return !history_.isClean(); }
  QUndoStack& History() { return history_; }

  using Work = std::function<void(Design&)>;
  /// Changes what is wanted as one step. What the work throws is told, and nothing has changed then.
  /// @param words what the step is called in the menu
  /// @param series steps of the same name in a row are taken back as one; "" for a step of its own
  /// @return whether it was done
  bool Change(const QString& words, const Work& work, const QString& series = {});

  /// @throws DataError as PlanDesign
  DesignPlan Plan() const { return PlanDesign(*connection_, stored_, *wanted_); }
  /// Writes what was planned, and reads what the database holds then. @throws DataError as ApplyDesign
  void Apply(const DesignPlan& plan, const std::vector<LossAnswer>& answers);
  /// Reads what the database holds by now; what is not written yet is kept, as one step. Where somebody else has
  /// changed the same it is as they have it.
  /// @return what was given up so. @throws DataError
  QStringList ReadAgain();
  /// Gives up what is not written, and reads again. @throws DataError
  void GiveUp();

 Q_SIGNALS:
  /// What is wanted is another design now, or the database holds it now.
  void Changed();
  /// Something to be said in the status line.
  void Told(const QString& text);

 private:
  class Step;
  using Snapshot = std::shared_ptr<const Design>;
  void Take(const Snapshot& wanted);

  std::shared_ptr<folvane::Connection> connection_;
  Design stored_;
  Snapshot wanted_;
  QUndoStack history_;
};

}  // namespace folvane::designer
