#include "bench/Comparison.h"

#include <algorithm>

namespace folvane::bench {

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int kRounds = 5, kRoundsOfMany = 3;

Sample Better(const Sample& one, const Sample& other) {
  return {std::min(one.milliseconds, other.milliseconds), std::min(one.mebibytes, other.mebibytes)};
}

QString Figure(const Sample& sample, const QString& words) {
  return u"  %1 %2 ms %3 MiB"_s.arg(words, -44)
      .arg(sample.milliseconds, 10, 'f', sample.milliseconds < 10 ? 3 : 0)
      .arg(sample.mebibytes, 7, 'f', 0);
}

QString Ratio(double subject, double rival, double aim, const QString& of) {
  const double ratio = subject / rival;
  if (aim == 0) return u"   %1 x %2"_s.arg(ratio, 0, 'f', 2).arg(of);
  return u"   %1 x %2 (aim %3%4)"_s.arg(ratio, 0, 'f', 2).arg(of).arg(aim).arg(ratio > aim ? u", MISSED"_s : QString());
}

QString Limit(double figure, double aim, const QString& unit) {
  if (aim == 0) return {};
  return u"   %1 %2 (aim %3%4)"_s.arg(figure, 0, 'f', aim < 1 ? 4 : 1)
      .arg(unit)
      .arg(aim)
      .arg(figure > aim ? u", MISSED"_s : QString());
}

/// A database and what the first page of a table on it is held against.
struct Place {
  QString suffix, name, rival, rivalWords;
  double firstPageAim, pageAim;
};

void AddBrowser(std::vector<Comparison>& all, qint64 rows, const Place& place, const Rival& sorted,
                const Rival& found) {
  const QString at = u", "_s + place.name;
  // The aims are those of a large table; a small one costs the process more than its rows.
  const bool isLarge = rows >= 1'000'000;
  all.push_back({u"The record browser: a table chosen until its first page stands"_s + at,
                 rows,
                 u"browser-choose"_s + place.suffix,
                 u"click on the tree"_s,
                 {{place.rival, place.rivalWords, isLarge ? place.firstPageAim : 0}},
                 0,
                 isLarge ? 48.0 : 0});
  const auto page = [&](const QString& name, const QString& words) {
    all.push_back(
        {u"The record browser: to "_s + words + at, rows, name + place.suffix, u"menu entry"_s, {}, place.pageAim});
  };
  page(u"browser-last"_s, u"the last page"_s);
  page(u"browser-first"_s, u"the first page"_s);
  page(u"browser-next"_s, u"the next page"_s);
  all.push_back({u"The record browser: sorted by a column"_s + at,
                 rows,
                 u"browser-sort"_s + place.suffix,
                 u"click on the header"_s,
                 {sorted}});
  all.push_back({u"The record browser: quick search for titles that hold a text"_s + at,
                 rows,
                 u"browser-search"_s + place.suffix,
                 u"search bar"_s,
                 {found}});
}

}  // namespace

std::vector<Comparison> Comparisons() {
  std::vector<Comparison> all;
  for (const qint64 rows : {10'000, 100'000, 1'000'000}) {
    // A small result costs the process its first chunk, which says nothing of what a row costs.
    const double memoryAim = rows < 100'000 ? 0 : 1.2;
    all.push_back({u"All rows of a table in the order of its key, SQLite"_s,
                   rows,
                   u"read-recordset"_s,
                   u"record set opened"_s,
                   {{u"read-raw"_s, u"sqlite3_step, all columns copied"_s, 1.15, memoryAim},
                    {u"read-sqltablemodel"_s, u"QSqlTableModel, all rows fetched"_s, 1.0 / 3, 1.0 / 3}}});
    all.push_back({u"A record by its key among the rows of a record set"_s,
                   rows,
                   u"find-again"_s,
                   u"Find, after the first"_s,
                   {{u"find-first"_s, u"Find, the first (builds the index)"_s},
                    {u"find-raw"_s, u"the database's own index, prepared"_s}},
                   0.002});
    AddBrowser(all, rows, {u""_s, u"SQLite"_s, u"step-raw"_s, u"sqlite3_step, all columns, nothing kept"_s, 0.25, 10},
               {u"sort-keys-raw"_s, u"sqlite3_step over the keys in that order"_s, 1.2},
               {u"search-raw"_s, u"sqlite3_step under the same LIKE, nothing kept"_s, 1.1});
    AddBrowser(all, rows,
               {u"-odbc"_s, u"PostgreSQL"_s, u"psql-keys"_s, u"psql copying the ordered keys out"_s, 1.2, 15},
               {u"psql-keys-sorted"_s, u"psql copying the keys in that order"_s, 1.2},
               {u"psql-keys-found"_s, u"psql copying the keys under the same LIKE"_s, 1.1});
  }
  all.push_back({u"One statement a row in one transaction, SQLite"_s,
                 10'000,
                 u"insert-literals"_s,
                 u"Connection::Execute, literals"_s,
                 {{u"insert-bytes"_s, u"prepared statement, bytes bound as they lie"_s, 1.3},
                  {u"insert-texts"_s, u"prepared statement, texts of Qt bound"_s},
                  {u"insert-literals-raw"_s, u"the same texts given to sqlite3_exec"_s}}});
  for (const qint64 rows : {100'000, 1'000'000}) {
    all.push_back({u"The rows of a record set saved to a file"_s,
                   rows,
                   u"dat-save"_s,
                   u"Recordset::Save"_s,
                   {{u"csv-write"_s, u"QTextStream, comma-separated"_s, 1.0}}});
    all.push_back({u"A record set opened from a file"_s,
                   rows,
                   u"dat-open"_s,
                   u"Recordset::OpenFile"_s,
                   {{u"csv-read"_s, u"QTextStream, comma-separated"_s, 1.0}}});
  }
  all.push_back({u"The entry window: opened with 40 fields"_s,
                 1'000,
                 u"entry-open"_s,
                 u"built, bound and shown"_s,
                 {{u"entry-open-raw"_s, u"as many bare boxes and labels shown"_s}}});
  all.push_back({u"The entry window: moved through all records with 40 fields, each shown"_s,
                 1'000,
                 u"entry-move"_s,
                 u"toolbar key"_s,
                 {{u"entry-move-raw"_s, u"sqlite3_step into bare boxes"_s}}});
  all.push_back({u"The entry window: one save with six proofing rules, two against doubles"_s,
                 100'000,
                 u"entry-save"_s,
                 u"SaveData"_s,
                 {{u"entry-save-raw"_s, u"the two look-ups and the update, sqlite3_exec"_s}}});
  all.push_back({u"A value put into an empty field of every record, by two statements"_s,
                 100'000,
                 u"bulk-fill"_s,
                 u"batch update, the road of statements"_s,
                 {{u"bulk-fill-raw"_s, u"the same two statements, sqlite3_exec"_s}}});
  all.push_back({u"A part of a value replaced in every record, by a walk"_s,
                 100'000,
                 u"bulk-walk"_s,
                 u"batch update, the walk through a record set"_s,
                 {{u"bulk-walk-raw"_s, u"prepared statement by key and old value"_s}}});
  all.push_back({u"A value found in one of all fields and overwritten in every record"_s,
                 10'000,
                 u"bulk-replace"_s,
                 u"replace all"_s,
                 {{u"bulk-replace-raw"_s, u"prepared statement by key, nothing searched"_s}}});
  all.push_back({u"The window of circulation: opened over all sheets"_s,
                 100'000,
                 u"flow-open"_s,
                 u"window with its grids"_s,
                 {{u"flow-raw"_s, u"sqlite3_step, columns copied"_s}}});
  all.push_back({u"A report of all sheets as a PDF file"_s,
                 1'000,
                 u"report-pdf"_s,
                 u"report component, default page"_s,
                 {{u"table-pdf"_s, u"one table of a rich text, printed by Qt"_s}}});
  all.push_back({u"Originals put into a directory, files of 100 KiB"_s,
                 1'000,
                 u"store-put"_s,
                 u"store of originals"_s,
                 {{u"copy-put"_s, u"system calls alone, synced as often"_s, 1.5},
                  {u"copy-put-unsynced"_s, u"system calls alone, nothing synced"_s}}});
  all.push_back({u"Originals copied out of a directory, files of 100 KiB"_s,
                 1'000,
                 u"store-get"_s,
                 u"store of originals"_s,
                 {{u"copy-get"_s, u"system calls alone"_s, 1.5}}});
  all.push_back({u"Originals put on an FTP server, files of 100 KiB"_s,
                 1'000,
                 u"ftp-put"_s,
                 u"store of originals"_s,
                 {{u"curl-put"_s, u"libcurl alone, one handle"_s, 1.5}}});
  all.push_back({u"Originals read from an FTP server, files of 100 KiB"_s,
                 1'000,
                 u"ftp-get"_s,
                 u"store of originals"_s,
                 {{u"curl-get"_s, u"libcurl alone, one handle"_s, 1.5}}});
  all.push_back({u"Records with two originals each transferred into the archive, SQLite"_s,
                 10'000,
                 u"archive-transfer"_s,
                 u"transfer, numbers composed"_s,
                 {{u"archive-raw"_s, u"prepared statements that write the same"_s, 2}}});
  all.push_back({u"Records with two originals each transferred into the archive, PostgreSQL"_s,
                 10'000,
                 u"archive-transfer-odbc"_s,
                 u"transfer, numbers composed"_s,
                 {{u"archive-raw-odbc"_s, u"prepared statements that write the same"_s, 2}}});
  all.push_back({u"Records of a Dat file added to an empty table"_s,
                 100'000,
                 u"import-file"_s,
                 u"file read, keys looked for, batch written"_s,
                 {{u"import-raw"_s, u"prepared look-ups and inserts"_s}}});
  all.push_back({u"All rows of a table in the order of its key, PostgreSQL"_s,
                 100'000,
                 u"odbc-recordset"_s,
                 u"record set over ODBC"_s,
                 {{u"psql-copy"_s, u"psql, COPY ... TO STDOUT"_s, 1.8}}});
  return all;
}

void Compare(const Comparison& comparison, const std::function<Sample(const QString&, qint64)>& run, QTextStream& out) {
  std::vector<QString> names{comparison.subject};
  for (const Rival& rival : comparison.rivals) names.push_back(rival.name);
  std::vector<Sample> best(names.size(), {1e300, 1e300});
  const int rounds = comparison.rows >= 1'000'000 ? kRoundsOfMany : kRounds;
  for (int round = 0; round < rounds; ++round)
    for (std::size_t i = 0; i < names.size(); ++i) best[i] = Better(best[i], run(names[i], comparison.rows));

  out << Qt::endl << comparison.title << u", %L1 rows"_s.arg(comparison.rows) << Qt::endl;
  const Sample& subject = best.front();
  out << Figure(subject, comparison.words) << Limit(subject.milliseconds, comparison.millisecondsAim, u"ms"_s)
      << Limit(subject.mebibytes * (1 << 20) / double(comparison.rows), comparison.bytesARowAim, u"bytes a row"_s)
      << Qt::endl;
  for (std::size_t i = 1; i < names.size(); ++i) {
    const Rival& rival = comparison.rivals[i - 1];
    out << Figure(best[i], rival.words) << Ratio(subject.milliseconds, best[i].milliseconds, rival.timeAim, u"time"_s);
    if (rival.memoryAim > 0) out << Ratio(subject.mebibytes, best[i].mebibytes, rival.memoryAim, u"memory"_s);
    out << Qt::endl;
  }
}

}  // namespace folvane::bench
