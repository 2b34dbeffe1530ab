#include "host/HostDatabase.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

// Numbers by value, anything else after them by text.
bool ComesBefore(const HostUser& left, const HostUser& right) {
  bool leftIsNumber = false, rightIsNumber = false;
  const qlonglong leftNumber = left.id.toLongLong(&leftIsNumber), rightNumber = right.id.toLongLong(&rightIsNumber);
  if (leftIsNumber && rightIsNumber) return leftNumber < rightNumber;
  return leftIsNumber != rightIsNumber ? leftIsNumber : left.id < right.id;
}

QString PartOf(const QString& connectionString, const QString& names) {
  const QRegularExpression part(u"(?:^|;)\\s*(?:%1)\\s*=\\s*\\{?([^;}]*)"_s.arg(names),
                                QRegularExpression::CaseInsensitiveOption);
  return part.match(connectionString).captured(1).trimmed();
}

}  // namespace

std::shared_ptr<folvane::Connection> KeepOpen(std::shared_ptr<void> handle,
                                              std::shared_ptr<folvane::Connection> connection) {
  folvane::Connection* borrowed = connection.get();
  const auto close = [handle = std::move(handle), connection = std::move(connection)](folvane::Connection*) mutable {
    connection.reset();
    handle.reset();
  };
  return {borrowed, close};
}

std::shared_ptr<HostDatabase> HostDatabase::Open(const DatabaseChoice& choice) {
  OpenedDatabase opened = choice.file.isEmpty() ? OpenOdbc(choice.odbc) : OpenSqlite(choice.file);
  std::sort(opened.users.begin(), opened.users.end(), ComesBefore);
  auto database = std::make_shared<HostDatabase>();
  database->choice_ = choice;
  database->connection_ = std::move(opened.connection);
  database->users_ = std::move(opened.users);
  return database;
}

HostUser HostDatabase::User(const QString& id) const {
  if (id.isEmpty()) throw HostError(u"请选择或输入登录用户的编号。"_s);
  const auto user = std::find_if(users_.begin(), users_.end(), [&](const HostUser& each) { return each.id == id; });
  if (user == users_.end()) throw HostError(u"数据库中没有编号为“%1”的用户。"_s.arg(id));
  return *user;
}

QString HostDatabase::Title() const {
  if (!choice_.file.isEmpty()) return QFileInfo(choice_.file).fileName();
  const QString server = PartOf(choice_.odbc, u"Server|Servername|Host|DSN"_s);
  const QString database = PartOf(choice_.odbc, u"Database"_s);
  return database.isEmpty() ? server : server + u" / "_s + database;
}

}  // namespace folvane::host
