#include "host/Accounts.h"

#include <optional>
#include <sodium.h>
#include <string>

#include <folvane/HostServices.h>
#include <folvane/ResultSet.h>

#include "catalogue/Ddl.h"
#include "components/common/Quoted.h"
#include "host/HostDatabase.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;
using components::Quoted;

Table AccountTable() {
  return {u"HostAccount"_s,
          {{u"UserID"_s, ColumnType::Text, 20},
           {u"PasswordHash"_s, ColumnType::Text, 255},
           {u"Failures"_s, ColumnType::Integer},
           {u"LockedUntil"_s, ColumnType::Text, 30}},
          {u"UserID"_s},
          {}};
}

/// The texts of the first row of what is selected from a table; none where it has no row, or where there is no such
/// table.
QStringList FirstRow(Connection& connection, const QString& columns, const QString& table, const QString& condition) {
  QStringList texts;
  if (!HasTable(connection, table)) return texts;
  const ResultSet rows(connection, u"Select "_s + columns + u" From "_s + table + u" Where "_s + condition);
  for (int column = 0; rows.RowCount() > 0 && column < rows.ColumnCount(); ++column)
    texts << rows.Text(0, column).trimmed();
  return texts;
}

QByteArray HashOf(const QByteArray& password) {
  std::string hash(crypto_pwhash_STRBYTES, '\0');
  if (sodium_init() < 0 ||
      crypto_pwhash_str(hash.data(), password.constData(), static_cast<unsigned long long>(password.size()),
                        crypto_pwhash_OPSLIMIT_INTERACTIVE, crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
    throw HostError(u"内存不足，口令没有保存。"_s);
  return QByteArray(hash.c_str());
}

bool Matches(const QString& hash, const QString& password) {
  const QByteArray bytes = password.toUtf8();
  return sodium_init() >= 0 && crypto_pwhash_str_verify(hash.toLatin1().constData(), bytes.constData(),
                                                        static_cast<unsigned long long>(bytes.size())) == 0;
}

}  // namespace

bool IsAdministrator(const QString& userId) {
  bool isNumber = false;
  return userId.trimmed().toDouble(&isNumber) == 1 && isNumber;
}

Accounts::Rule Accounts::LogOnRule() const {
  if (!FirstRow(*connection_, u"Report_Id"_s, u"Report_Info"_s, u"Report_Id = 'demo'"_s).isEmpty()) return Rule::Free;
  const QStringList known = FirstRow(*connection_, u"Count(*)"_s, u"HostAccount"_s, u"PasswordHash <> ''"_s);
  return known.isEmpty() || known.first() == u"0" ? Rule::FirstPassword : Rule::Password;
}

bool Accounts::IsKnown(const QString& userId) const { return !Read(userId).hash.isEmpty(); }

Accounts::Account Accounts::Read(const QString& userId) const {
  const QStringList row = FirstRow(*connection_, u"PasswordHash, Failures, LockedUntil"_s, u"HostAccount"_s,
                                   u"UserID = "_s + Quoted(userId));
  if (row.isEmpty()) return {};
  return {row[0], row[1].toInt(), QDateTime::fromString(row[2], Qt::ISODate)};
}

void Accounts::LogOn(const QString& userId, const QString& password) const {
  const Account account = Read(userId);
  if (account.hash.isEmpty()) throw HostError(u"该用户还没有口令，请由系统管理员设置。"_s);
  if (account.lockedUntil.isValid() && account.lockedUntil > Services().now().toUTC()) {
    throw HostError(u"口令多次输错，该用户已暂停登录，请在 %1 之后再试。"_s.arg(
        account.lockedUntil.toLocalTime().toString(u"H:mm"_s)));
  }
  // Counted before it is looked at: many tries at once count as many.
  connection_->Execute(u"Update HostAccount Set Failures = Failures + 1 Where UserID = "_s + Quoted(userId));
  if (!Matches(account.hash, password)) RefusePassword(userId);
  connection_->Execute(u"Update HostAccount Set Failures = 0, LockedUntil = '' Where UserID = "_s + Quoted(userId));
}

void Accounts::RefusePassword(const QString& userId) const {
  const int left = kTries - Read(userId).failures;
  if (left > 0) throw HostError(u"口令不对。再输错 %1 次，该用户将暂停登录。"_s.arg(left));
  const QDateTime until = Services().now().toUTC().addSecs(kMinutesOut * 60);
  connection_->Execute(u"Update HostAccount Set LockedUntil = "_s + Quoted(until.toString(Qt::ISODate)) +
                       u" Where UserID = "_s + Quoted(userId));
  throw HostError(u"口令不对。已输错 %1 次，该用户在 %2 分钟内不能登录。"_s.arg(kTries - left).arg(kMinutesOut));
}

void Accounts::SetPassword(const QString& userId, const QString& password) const {
  if (password.size() < kShortest) throw HostError(u"口令至少要有 %1 个字符。"_s.arg(kShortest));
  if (password == userId) throw HostError(u"口令不能与用户编号相同。"_s);
  const QString hash = Quoted(QString::fromLatin1(HashOf(password.toUtf8())));
  if (!HasTable(*connection_, AccountTable().name)) CreateTable(*connection_, AccountTable());
  std::optional<Transaction> transaction;
  if (!connection_->InTransaction()) transaction.emplace(*connection_);
  if (connection_->Execute(u"Update HostAccount Set PasswordHash = "_s + hash +
                           u", Failures = 0, LockedUntil = '' Where UserID = "_s + Quoted(userId)) == 0) {
    connection_->Execute(u"Insert Into HostAccount (UserID, PasswordHash, Failures, LockedUntil) Values ("_s +
                         Quoted(userId) + u", "_s + hash + u", 0, '')"_s);
  }
  if (transaction) transaction->Commit();
}

}  // namespace folvane::host
