#include <optional>

#include <folvane/Catalogue.h>
#include <folvane/DataError.h>

#include "data/DatabaseSession.h"
#include "design/ClerksRows.h"
#include "design/ConditionNames.h"
#include "design/PhysicalTables.h"
#include "design/RowChanges.h"
#include "design/Shape.h"

namespace folvane {
namespace design {
namespace {
using namespace Qt::Literals::StringLiterals;

/// All that is to be done, as the database stands.
struct Work {
  std::vector<RowSet> wanted;  ///< the row changes point into it
  std::vector<RowChange> rows;
  std::vector<PhysicalStep> steps;
};

bool IsDrop(const PhysicalStep& step) {
  return step.kind == PhysicalStep::Kind::DropColumn || step.kind == PhysicalStep::Kind::DropTable;
}

std::vector<PhysicalStep> DropsOf(const Work& work) {
  std::vector<PhysicalStep> drops;
  std::copy_if(work.steps.begin(), work.steps.end(), std::back_inserter(drops), IsDrop);
  return drops;
}

// What rows cannot hold would not come back.
void RequireStorable(const Design& wanted, const StoredRows& rows) {
  const std::vector<DesignChange> lost = CompareDesigns(wanted, DesignOf(rows));
  if (lost.empty()) return;
  throw DataError(DataErrorKind::Usage, u"这样的设计不能存入数据库：%1（存入后会%2）。"_s.arg(
                                            lost.front().where.left(200), lost.front().what.left(200)));
}

// What is removed must not have gained anything meanwhile: it would be left over without its owner.
void RequireUnchanged(const Design& base, const Design& wanted, const Design& now) {
  Shape<Design>::Lists([&](const char*, const char16_t*, auto list) {
    for (const auto& item : base.*list) {
      if (FindSame(wanted.*list, item)) continue;
      const auto* present = FindSame(now.*list, item);
      if (!present) continue;
      Design before, after;
      (before.*list) = {item};
      (after.*list) = {*present};
      if (!CompareDesigns(before, after).empty())
        throw DataError(DataErrorKind::Conflict,
                        u"其他用户同时修改了%1，本次修改没有保存。请重新读取设计后再修改。"_s.arg(
                            Shape<std::decay_t<decltype(item)>>::TitleOf(item)));
    }
  });
}

Work Prepare(Connection& connection, const Design& base, const Design& wanted) {
  Work work;
  const StoredRows stored = ReadStoredRows(connection);
  const Design now = DesignOf(stored);
  const RowKeys keys = KeysFor(stored, {&base, &wanted});
  const StoredRows wantedRows = RowsOf(wanted, keys);
  work.wanted = RowSetsOf(wantedRows);
  work.rows = ChangesOf(RowSetsOf(RowsOf(base, keys)), work.wanted, RowSetsOf(RowsOf(now, keys)));
  RequireStorable(wanted, wantedRows);
  RequireUnchanged(base, wanted, now);
  RequireFitting(connection, work.rows);
  work.steps = PhysicalSteps(connection, base, wanted);
  return work;
}

DesignLoss LossOf(const PhysicalStep& step) {
  DesignLoss loss{step.table.name, step.column.name, step.rows, {}};
  loss.words =
      step.kind == PhysicalStep::Kind::DropTable
          ? u"表“%1”中有 %2 条记录，删除表后不能恢复。"_s.arg(loss.table).arg(loss.rows)
          : u"表“%1”中有 %3 条记录的“%2”填有内容，删除此列后不能恢复。"_s.arg(loss.table, loss.column).arg(loss.rows);
  return loss;
}

/// What was answered to the losses of a plan.
class Answers {
 public:
  Answers(const DesignPlan& plan, const std::vector<LossAnswer>& answers) : losses_(plan.losses), answers_(answers) {}

  /// Whether to carry a step out. @throws DataError Usage, Conflict
  bool Allow(const PhysicalStep& step) const {
    for (std::size_t at = 0; at < losses_.size(); ++at) {
      const DesignLoss& loss = losses_[at];
      if (!IsSame(loss.table, step.table.name) || !IsSame(loss.column, step.column.name)) continue;
      if (at >= answers_.size()) throw DataError(DataErrorKind::Usage, u"%1请先选择保留还是删除。"_s.arg(loss.words));
      if (answers_[at] == LossAnswer::Keep) return false;
      if (step.rows > loss.rows) ThrowMore(step);
      return true;
    }
    if (step.IsLoss()) ThrowMore(step);
    return true;
  }

 private:
  [[noreturn]] static void ThrowMore(const PhysicalStep& step) {
    throw DataError(DataErrorKind::Conflict, u"其他用户同时登记了内容，本次修改没有保存。%1"_s.arg(LossOf(step).words));
  }

  const std::vector<DesignLoss>& losses_;
  const std::vector<LossAnswer>& answers_;
};

// One at a time: whoever else applies a design waits, and then sees what this one has written.
void LockOut(Connection& connection) {
  DatabaseSession& session = DatabaseSession::Of(connection);
  if (*session.Words().oneAtATime) session.FetchNative({session.Words().oneAtATime, {}});
}

void RunRows(Connection& connection, const std::vector<RowChange>& changes) {
  for (const RowChange& change : changes) {
    for (const QString& statement : StatementsOf(connection, {change})) {
      const qint64 count = connection.Execute(statement);
      if (change.kind == RowChange::Kind::Update && count == 0)
        throw DataError(DataErrorKind::Conflict,
                        u"其他用户同时删除了%1，本次修改没有保存。"_s.arg(change.set->TitleOf(change.before)));
    }
  }
}

// A transfer has nothing but the order of the rows to know the order of the parts by.
void RequireOrder(Connection& connection, const Design& wanted, const std::vector<RowChange>& changes) {
  QStringList tables;
  for (const RowChange& change : changes)
    if (change.kind == RowChange::Kind::Rewrite)
      tables << change.set->At(change.before, change.set->key.front()).toString();
  if (tables.isEmpty()) return;
  const Design written = DesignOf(ReadStoredRows(connection));
  for (const QString& name : tables) {
    const Design::Table *meant = FindNamed(wanted.tables, name), *found = FindNamed(written.tables, name);
    if (meant && (!found || found->numberParts != meant->numberParts))
      throw DataError(DataErrorKind::Other, u"数据库没有保持表“%1”档号各段的次序，本次修改没有保存。"_s.arg(name));
  }
}

// Without the column every statement of that user would fail.
void RequireUnused(Connection& connection, const Design& base, const std::vector<PhysicalStep>& drops) {
  if (drops.empty()) return;
  const Design written = DesignOf(ReadStoredRows(connection));
  for (const Design::User& user : written.users) {
    for (const Design::Rights& rights : user.rights) {
      const Design::Table* table = FindNamed(base.tables, rights.table);
      if (!table) continue;
      for (const QString& field : FieldsIn(rights.condition, *table)) {
        const auto goes = [&](const PhysicalStep& step) {
          return IsSame(step.table.name, rights.table) && IsSame(step.column.name, field);
        };
        if (std::any_of(drops.begin(), drops.end(), goes))
          throw DataError(DataErrorKind::Usage,
                          u"用户“%1”对表“%2”的条件用到列“%3”，没有删除，本次修改没有保存。请先改正条件。"_s.arg(
                              user.name, table->name, field));
      }
    }
  }
}

void Apply(Connection& connection, const DesignPlan& plan, const Answers& answers) {
  LockOut(connection);
  if (!CheckTables(connection).isEmpty()) CreateTables(connection);
  const Work work = Prepare(connection, plan.base, plan.wanted);
  for (const PhysicalStep& step : work.steps)
    if (!IsDrop(step)) CarryOut(connection, step);
  RunRows(connection, work.rows);
  std::vector<PhysicalStep> drops = DropsOf(work);
  std::erase_if(drops, [&](const PhysicalStep& step) { return !answers.Allow(step); });
  RequireUnused(connection, plan.base, drops);
  for (const QString& statement : ClerksStatements(connection, plan.base, plan.wanted, drops))
    connection.Execute(statement);
  for (const PhysicalStep& step : drops) CarryOut(connection, step);
  RequireOrder(connection, plan.wanted, work.rows);
}

}  // namespace
}  // namespace design

DesignPlan PlanDesign(Connection& connection, const Design& base, const Design& wanted) {
  QStringList missing = CheckTables(connection);  // which looks at all tables anew
  DesignPlan plan{base, wanted, {}, std::move(missing), {}};
  PutInOrder(plan.base);
  PutInOrder(plan.wanted);
  const design::Work work = design::Prepare(connection, plan.base, plan.wanted);
  plan.changes = CompareDesigns(plan.base, plan.wanted);
  for (const design::PhysicalStep& step : work.steps) {
    plan.statements << design::StatementsOf(connection, step);
    if (step.IsLoss()) plan.losses.push_back(design::LossOf(step));
  }
  plan.statements << design::StatementsOf(connection, work.rows);
  plan.statements << design::ClerksStatements(connection, plan.base, plan.wanted, design::DropsOf(work));
  return plan;
}

void ApplyDesign(Connection& connection, const DesignPlan& plan, const std::vector<LossAnswer>& answers) {
  DatabaseSession& session = DatabaseSession::Of(connection);
  try {
    // Never without one: where it cannot be begun, nothing is done.
    std::optional<Transaction> transaction;
    if (!connection.InTransaction()) transaction.emplace(connection);
    design::Apply(connection, plan, design::Answers(plan, answers));
    if (transaction) transaction->Commit();
  } catch (...) {
    session.RefreshSchema();
    throw;
  }
  session.RefreshSchema();
}

}  // namespace folvane
