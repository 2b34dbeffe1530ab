#include <folvane/Connection.h>
#include <folvane/DataError.h>

#include "data/DatabaseSession.h"

namespace folvane {

Connection::Connection(std::unique_ptr<DatabaseSession> session) : session_(std::move(session)) {}

Connection::~Connection() = default;

qint64 Connection::Execute(const QString& statement) { return session_->Execute(statement); }
void Connection::BeginTrans() { session_->BeginTrans(); }
void Connection::CommitTrans() { session_->CommitTrans(); }
void Connection::RollbackTrans() { session_->RollbackTrans(); }
bool Connection::InTransaction() const { return session_->InTransaction(); }

void Connection::OnStatement(std::function<void(const QString&)> observer) {
  session_->OnStatement(std::move(observer));
}

Transaction::Transaction(Connection& connection) : connection_(connection) { connection_.BeginTrans(); }

Transaction::~Transaction() {
  try {
    if (open_) connection_.RollbackTrans();
  } catch (const DataError&) {
    // Either the connection is gone, and the server has rolled back by itself, or the next statement tries again.
  }
}

void Transaction::Commit() {
  connection_.CommitTrans();
  open_ = false;
}

void Transaction::Rollback() {
  open_ = false;
  connection_.RollbackTrans();
}

}  // namespace folvane
