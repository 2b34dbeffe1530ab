// A target of libFuzzer: any text is put into each dialect as a statement over a small table. What comes out is one
// statement, whatever the text was.
#include <cstdlib>
#include <memory>
#include <sqlite3.h>

#include <folvane/DataError.h>
#include <folvane/SqliteConnection.h>

#include "data/dialect/Translator.h"

namespace {

using namespace folvane;
using namespace Qt::Literals::StringLiterals;

const TableInfo& Files() {
  static const TableInfo table = [] {
    TableInfo files{u"Files"_s, {}, {0}};
    for (const auto& [name, type, size] :
         {std::tuple("ID", AdoType::Integer, 0), std::tuple("T", AdoType::VarChar, 20),
          std::tuple("D", AdoType::DbTimeStamp, 0), std::tuple("F", AdoType::Double, 0),
          std::tuple("N", AdoType::Numeric, 0), std::tuple("B", AdoType::Boolean, 0),
          std::tuple("K", AdoType::LongVarChar, 2147483647)})
      files.columns.push_back({QLatin1String(name), type, size, true, false});
    return files;
  }();
  return table;
}

sqlite3* Database() {
  static sqlite3* const handle = [] {
    sqlite3* opened = nullptr;
    sqlite3_open(":memory:", &opened);
    static const std::shared_ptr<Connection> functions = AdoptSqlite(opened);
    sqlite3_exec(opened, "CREATE TABLE Files (ID integer PRIMARY KEY,T text,D text,F real,N real,B integer,K text)",
                 nullptr, nullptr, nullptr);
    return opened;
  }();
  return handle;
}

/// Nothing outside of quotes ends the statement, begins a comment or a dollar quote.
void RequireOneStatement(const QByteArray& text) {
  for (qsizetype at = 0; at < text.size(); ++at) {
    const char sign = text[at];
    if (sign == '\'' || sign == '"') {
      const bool escapes = sign == '\'' && at > 0 && text[at - 1] == 'E';
      for (++at; at < text.size() && text[at] != sign; ++at) at += escapes && text[at] == '\\';
      if (at >= text.size()) std::abort();
    } else if (sign == ';' || sign == '\0' || sign == '$' || text.mid(at, 2) == "--" || text.mid(at, 2) == "/*") {
      std::abort();
    }
  }
}

void Prepare(const QByteArray& text) {
  if (text.contains('\0')) return;  // a name that SQLite will not read to its end
  sqlite3_stmt* statement = nullptr;
  const char* rest = nullptr;
  if (sqlite3_prepare_v2(Database(), text.constData(), int(text.size()), &statement, &rest) == SQLITE_OK) {
    if (rest != text.constData() + text.size()) std::abort();
  } else if (QByteArrayView(sqlite3_errmsg(Database())).startsWith("unrecognized token")) {
    std::abort();
  }
  sqlite3_finalize(statement);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString statement = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
  const auto lookup = [](const QString& name) {
    return name.compare("files"_L1, Qt::CaseInsensitive) == 0 ? &Files() : nullptr;
  };
  for (const DialectKind kind : {DialectKind::Sqlite, DialectKind::PostgreSql, DialectKind::TransactSql}) {
    static std::array<std::unique_ptr<Translator>, 3> translators;
    std::unique_ptr<Translator>& translator = translators[std::size_t(kind)];
    if (!translator) translator = std::make_unique<Translator>(kind, lookup);
    try {
      translator->BaseTable(statement);
      const Plan plan = translator->Translate(statement);
      for (const NativeStatement* native : {&plan.statement, &plan.condition, &plan.otherwise}) {
        if (kind != DialectKind::TransactSql) RequireOneStatement(native->text);
        if (kind == DialectKind::Sqlite) Prepare(native->text);
      }
    } catch (const DataError&) {
      // what is to happen to nearly all of them
    }
  }
  return 0;
}
