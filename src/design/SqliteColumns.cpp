#include "design/SqliteColumns.h"

#include <QSet>

#include <folvane/DataError.h>

#include "data/DatabaseSession.h"
#include "data/dialect/Tokenizer.h"
#include "data/drivers/Driver.h"
#include "design/Names.h"
#include "design/Shape.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;
using sql::Token;
using sql::TokenKind;

QString ValueOf(const FetchedRows& rows, std::size_t row, int column) {
  return rows.rows->At(row, column).ToVariant().toString();
}

void Run(Connection& connection, const QByteArray& statement) {
  DatabaseSession::Of(connection).ExecuteNative({statement, {}});
}

// Whether a word ends the type of a column and begins a constraint.
bool BeginsConstraint(const Token& token) {
  static const QSet<QString> words{u"constraint"_s, u"primary"_s,   u"not"_s,     u"null"_s,
                                   u"unique"_s,     u"check"_s,     u"default"_s, u"collate"_s,
                                   u"references"_s, u"generated"_s, u"as"_s};
  return words.contains(token.text.toLower());
}

/// Where the type of a column stands in the statement that made its table.
class TypePlace {
 public:
  TypePlace(const QString& statement, const QString& column) : tokens_(sql::Tokenize(statement)) {
    std::size_t at = 0;
    while (!Is(at, u"("_s) && !IsEnd(at)) ++at;
    if (IsEnd(at)) return;
    for (++at; !IsEnd(at); at = AfterElement(at)) {
      const Token& name = tokens_[at];
      if (name.kind == TokenKind::Sign || !IsSame(name.text, column)) continue;
      ReadType(at + 1);
      return;
    }
  }

  qsizetype begin = -1, end = -1;

 private:
  bool IsEnd(std::size_t at) const { return tokens_[at].kind == TokenKind::End; }
  bool Is(std::size_t at, const QString& sign) const {
    return tokens_[at].kind == TokenKind::Sign && tokens_[at].text == sign;
  }

  // Behind the comma that ends the element; the end of the list is the end.
  std::size_t AfterElement(std::size_t at) const {
    for (int depth = 0; !IsEnd(at); ++at) {
      if (Is(at, u"("_s)) ++depth;
      if (Is(at, u")"_s) && --depth < 0) return tokens_.size() - 1;
      if (Is(at, u","_s) && depth == 0) return at + 1;
    }
    return at;
  }

  void ReadType(std::size_t at) {
    if (tokens_[at].kind != TokenKind::Word || BeginsConstraint(tokens_[at])) return;
    begin = tokens_[at].at;
    for (; tokens_[at].kind == TokenKind::Word && !BeginsConstraint(tokens_[at]); ++at)
      end = tokens_[at].at + tokens_[at].text.size();
    if (!Is(at, u"("_s)) return;
    while (!IsEnd(at) && !Is(at, u")"_s)) ++at;
    end = IsEnd(at) ? -1 : tokens_[at].at + 1;
  }

  std::vector<Token> tokens_;
};

}  // namespace

QString Redeclared(const QString& statement, const QString& column, const QString& type) {
  const TypePlace place(statement, column);
  if (place.begin < 0 || place.end < 0)
    throw DataError(DataErrorKind::Usage, u"不能加长列“%1”：看不懂建表语句中对它的说明。"_s.arg(column), statement);
  return statement.left(place.begin) + type + statement.mid(place.end);
}

WritableSchema::WritableSchema(Connection& connection) : connection_(connection) {
  Run(connection_, "PRAGMA writable_schema = ON");
}

void WritableSchema::Close() {
  Run(connection_, "PRAGMA writable_schema = OFF");
  isOpen_ = false;
}

WritableSchema::~WritableSchema() {
  if (!isOpen_) return;
  try {
    Close();
  } catch (const DataError&) {
    // The handle cannot be reached any more, and with it goes the setting.
  }
}

QStringList RedeclareStatements(Connection& connection, const QString& table, const QString& column,
                                const QString& type) {
  DatabaseSession& session = DatabaseSession::Of(connection);
  const FetchedRows rows =
      session.FetchNative({"SELECT sql FROM sqlite_schema WHERE type = 'table' AND name = ?", {table}});
  if (rows.rows->RowCount() != 1)
    throw DataError(DataErrorKind::Usage, u"不能加长列“%1”：“%2”不是表。"_s.arg(column, table));
  const QString statement = Redeclared(ValueOf(rows, 0, 0), column, type);
  const qlonglong version = ValueOf(session.FetchNative({"PRAGMA schema_version", {}}), 0, 0).toLongLong();
  return {u"UPDATE sqlite_schema SET sql = %1 WHERE type = 'table' AND name = %2"_s.arg(TextLiteral(statement),
                                                                                        TextLiteral(table)),
          u"PRAGMA schema_version = %1"_s.arg(version + 1)};
}

QStringList DropIndexStatements(Connection& connection, const QString& table, const QString& column) {
  DatabaseSession& session = DatabaseSession::Of(connection);
  const FetchedRows rows =
      session.FetchNative({"SELECT DISTINCT l.name FROM pragma_index_list(?) l, pragma_index_info(l.name) i "
                           "WHERE l.origin = 'c' AND i.name = ? COLLATE NOCASE",
                           {table, column}});
  QStringList statements;
  for (std::size_t row = 0; row < rows.rows->RowCount(); ++row)
    statements << u"DROP INDEX "_s + QString::fromUtf8(session.Words().Quoted(ValueOf(rows, row, 0)));
  return statements;
}

}  // namespace folvane::design
