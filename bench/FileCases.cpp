// The rows of a record set saved to a file and opened again, against the same rows as comma-separated texts.
#include <QFile>
#include <QSaveFile>
#include <QTextStream>
#include <sqlite3.h>

#include <folvane/SqliteConnection.h>

#include "bench/Cases.h"
#include "bench/SampleTable.h"
#include "data/Recordset.h"

namespace folvane::bench {

namespace {

QString DatFile(const Setting& setting) { return setting.database + QStringLiteral(".Dat"); }
QString CsvFile(const Setting& setting) { return setting.database + QStringLiteral(".csv"); }

void SaveDat(const Setting& setting, Meter& meter) {
  Recordset records;
  records.Open(QStringLiteral("Select * From Records Order By ArchiveID"), AdoptSqlite(OpenSqlite(setting.database)));
  meter.Start();
  records.Save(DatFile(setting));
  meter.Stop();
}

void OpenDat(const Setting& setting, Meter& meter) {
  if (!QFile::exists(DatFile(setting))) {
    Meter unused;
    SaveDat(setting, unused);
  }
  Recordset records;
  meter.Start();
  records.OpenFile(DatFile(setting));
  meter.Stop();
  if (records.RecordCount() != setting.rows) qFatal("the file has %lld rows", records.RecordCount());
}

void WriteField(QTextStream& out, const QString& value) {
  if (value.contains(u',') || value.contains(u'"') || value.contains(u'\n'))
    out << u'"' << QString(value).replace(u'"', QStringLiteral("\"\"")) << u'"';
  else
    out << value;
}

/// As a program writes them that keeps its values as texts of Qt; safe on the disk, too.
void WriteCsv(const Setting& setting, Meter& meter) {
  std::vector<QStringList> rows;
  for (qint64 i = 0; i < setting.rows; ++i) {
    rows.emplace_back();
    for (const QByteArray& value : SampleRow(i)) rows.back() << QString::fromUtf8(value);
  }
  meter.Start();
  QSaveFile file(CsvFile(setting));
  if (!file.open(QIODevice::WriteOnly)) qFatal("the file cannot be written");
  QTextStream out(&file);
  for (const QStringList& row : rows) {
    for (qsizetype i = 0; i < row.size(); ++i) {
      if (i) out << u',';
      WriteField(out, row[i]);
    }
    out << u'\n';
  }
  out.flush();
  file.commit();
  meter.Stop();
}

QStringList Fields(const QString& line) {
  QStringList fields;
  for (qsizetype at = 0; at <= line.size(); ++at) {
    if (at == line.size() || line[at] != u'"') {
      const qsizetype comma = line.indexOf(u',', at);
      const qsizetype end = comma < 0 ? line.size() : comma;
      fields << line.mid(at, end - at);
      at = end;
      continue;
    }
    QString field;
    for (++at; at < line.size() && (line[at] != u'"' || line.mid(at + 1, 1) == u"\""); ++at) {
      if (line[at] == u'"') ++at;
      field += line[at];
    }
    fields << field;
    ++at;
  }
  return fields;
}

void ReadCsv(const Setting& setting, Meter& meter) {
  if (!QFile::exists(CsvFile(setting))) {
    Meter unused;
    WriteCsv(setting, unused);
  }
  std::vector<QStringList> rows;
  meter.Start();
  QFile file(CsvFile(setting));
  if (!file.open(QIODevice::ReadOnly)) qFatal("the file cannot be read");
  QTextStream in(&file);
  for (QString line; in.readLineInto(&line);) rows.push_back(Fields(line));
  meter.Stop();
  if (qint64(rows.size()) != setting.rows || rows.back().size() != kColumns) qFatal("the file has other rows");
}

}  // namespace

Cases FileCases() {
  return {
      {QStringLiteral("dat-save"), SaveDat},
      {QStringLiteral("dat-open"), OpenDat},
      {QStringLiteral("csv-write"), WriteCsv},
      {QStringLiteral("csv-read"), ReadCsv},
  };
}

}  // namespace folvane::bench
