#include "archiving/TakenNumbers.h"

#include "data/DatabaseSession.h"
#include "data/Recordset.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// Below what any database takes of values in one statement.
constexpr qsizetype kNumbersOfStatement = 1000;

}  // namespace

TakenNumbers::TakenNumbers(std::shared_ptr<Connection> connection, const QString& table)
    : connection_(std::move(connection)), table_(table), rowsBefore_(CountRows()) {}

// Past the observer, who follows the steps of the transfer. None where there is no such table, which the transfer finds
// out by itself.
std::optional<qint64> TakenNumbers::CountRows() const {
  DatabaseSession& session = DatabaseSession::Of(*connection_);
  const TableInfo* table = session.Table(table_);
  if (!table) return {};
  const FetchedRows count = session.FetchNative({"SELECT COUNT(*) FROM " + session.Words().Quoted(table->name), {}});
  return count.rows->At(0, 0).ToVariant().toLongLong();
}

bool TakenNumbers::AnyOf(const GivenNumbers& given) {
  if (given.keys.isEmpty()) return false;
  DatabaseSession& session = DatabaseSession::Of(*connection_);
  if (const QByteArray wait = session.Words().oneAtATime; !wait.isEmpty()) session.FetchNative({wait, {}});
  if (IsCounterTaken(given)) return true;
  if (IsVolumeTaken(given)) return true;
  if (given.numbers.isEmpty()) return false;
  const std::optional<qint64> rows = CountRows();
  const bool othersCame = !rows || !rowsBefore_ || *rows - given.keys.size() > *rowsBefore_;
  return othersCame && IsNumberTaken(given);
}

// The counter began above all that was there, so that any other row with one of its values has come since.
bool TakenNumbers::IsCounterTaken(const GivenNumbers& given) const {
  if (given.counterField.isEmpty()) return false;
  const QString start = given.scopeClause.isEmpty() ? u" Where "_s : given.scopeClause + u" And "_s;
  return FindsOthers(start + given.counterField + u" >= "_s + QString::number(given.firstCounter) + u" And "_s +
                         given.counterField + u" <= "_s + QString::number(given.lastCounter),
                     given.keys);
}

bool TakenNumbers::IsNumberTaken(const GivenNumbers& given) const {
  QStringList quoted;
  for (const QString& number : given.numbers) quoted << u'\'' + EscapeSql(number) + u'\'';
  for (qsizetype from = 0; from < quoted.size(); from += kNumbersOfStatement) {
    const QString some = quoted.mid(from, kNumbersOfStatement).join(u',');
    if (FindsOthers(u" Where "_s + given.storeField + u" In ("_s + some + u')', given.keys)) return true;
  }
  return false;
}

// Where another workstation has made a record of the same volume, too, there would be two of it for good.
bool TakenNumbers::IsVolumeTaken(const GivenNumbers& given) const {
  if (given.volumeKey.isEmpty()) return false;
  const FetchedRows keys =
      DatabaseSession::Of(*connection_)
          .FetchUntold(u"Select ArchiveID From "_s + given.volumeTable + given.scopeClause, TextOrder::Plain);
  for (std::size_t row = 0; row < keys.rows->RowCount(); ++row)
    if (keys.rows->At(row, 0).ToVariant().toString().trimmed() != given.volumeKey) return true;
  return false;
}

bool TakenNumbers::FindsOthers(const QString& condition, const QSet<QString>& keys) const {
  Recordset rows;
  rows.Open(u"Select ArchiveID From "_s + table_ + condition, connection_);
  for (; !rows.EOF_(); rows.MoveNext())
    if (!keys.contains(rows.Fields().Item(0).Text().trimmed())) return true;
  return false;
}

}  // namespace folvane
