#include "components/originals/StoreCheck.h"

#include <QHash>
#include <QSet>

#include <folvane/DataError.h>
#include <folvane/ResultSet.h>

#include "components/originals/OriginalNames.h"

namespace folvane::originals {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr qint64 kStep = 256;  // rows between two tellings

struct Ended {};

// One spelling for a place: rows are written with either separator, and stores that do not tell cases apart may give
// back another case than was written.
QString PlaceKey(const QString& filePath, const QString& fileName) {
  return PlaceText(filePath, fileName).toCaseFolded();
}

/// A check under way.
class Check {
 public:
  Check(Connection& connection, OriginalFiles& store, const CheckProgress& progress)
      : connection_(connection), store_(store), progress_(progress) {}

  CheckFindings Run() {
    ListFiles();
    ReadRows();
    FindMissingFiles();
    FindUnknownFiles();
    return std::move(findings_);
  }

 private:
  void Tell(const QString& step, qint64 done, qint64 total) const {
    if (!progress_(step, done, total)) throw Ended();
  }

  // A store answers a cancelled listing with an error like any other.
  void ListFiles() {
    bool ended = false;
    try {
      files_ = store_.List([&](qint64 done, qint64 total) {
        ended = ended || !progress_(u"正在读取存放的文件"_s, done, total);
        return !ended;
      });
    } catch (const DataError&) {
      if (ended) throw Ended();
      throw;
    }
    if (ended) throw Ended();
    findings_.files = qsizetype(files_.size());
    for (const StoredFile& file : files_) listed_.insert(PlaceKey(file.filePath, file.name));
  }

  void ReadRows() {
    const ResultSet rows(connection_, u"Select ID,Type,FilePath,RecordID,Original_Name From Original_Text"_s);
    findings_.rows = rows.RowCount();
    for (qint64 row = 0; row < rows.RowCount(); ++row) {
      if (row % kStep == 0) Tell(u"正在核对原文记录"_s, row, rows.RowCount());
      const OriginalPlace place{rows.Text(row, 2), rows.Text(row, 0), rows.Text(row, 1)};
      const QString key = PlaceKey(place.filePath, place.id + place.type);
      named_.insert(key);
      if (listed_.contains(key)) continue;
      const auto [at, isNew] = unlisted_.try_emplace(key, findings_.missingFiles.size());
      if (isNew) findings_.missingFiles.push_back({place, rows.Text(row, 4), {}});
      findings_.missingFiles[at->second].recordIds << rows.Text(row, 3);
    }
  }

  // What was added after the listing, or lies outside of what is listed, is there all the same.
  void FindMissingFiles() {
    const qint64 total = qint64(findings_.missingFiles.size());
    qint64 done = 0;
    std::erase_if(findings_.missingFiles, [&](const MissingFile& missing) {
      if (done % kStep == 0) Tell(u"正在查找缺少的文件"_s, done, total);
      ++done;
      return IsThere(missing.place);
    });
  }

  // A place that the store refuses cannot have a file.
  bool IsThere(const OriginalPlace& place) const {
    try {
      return store_.Has(place);
    } catch (const DataError& refusal) {
      if (refusal.Kind() == DataErrorKind::Lost) throw;
      return false;
    }
  }

  // A file is put into the store before its row is written, so one may have got its row meanwhile.
  void FindUnknownFiles() {
    for (const StoredFile& file : files_)
      if (!named_.contains(PlaceKey(file.filePath, file.name))) findings_.unknownFiles.push_back(file);
    if (findings_.unknownFiles.empty()) return;
    const ResultSet rows(connection_, u"Select ID,Type,FilePath From Original_Text"_s);
    for (qint64 row = 0; row < rows.RowCount(); ++row)
      named_.insert(PlaceKey(rows.Text(row, 2), rows.Text(row, 0) + rows.Text(row, 1)));
    std::erase_if(findings_.unknownFiles,
                  [&](const StoredFile& file) { return named_.contains(PlaceKey(file.filePath, file.name)); });
  }

  Connection& connection_;
  OriginalFiles& store_;
  const CheckProgress& progress_;
  CheckFindings findings_;
  std::vector<StoredFile> files_;
  QSet<QString> listed_, named_;
  std::unordered_map<QString, std::size_t> unlisted_;  ///< their places in the findings
};

}  // namespace

QString CheckFindings::Summary() const {
  const QString looked = u"共 %1 条原文记录、%2 个文件"_s.arg(rows).arg(files);
  if (IsClean()) return looked + u"，没有发现问题。"_s;
  return looked + u"；%1 个文件缺少，%2 个文件没有原文记录。"_s.arg(missingFiles.size()).arg(unknownFiles.size());
}

QString CheckFindings::Text() const {
  QStringList lines{Summary()};
  for (const MissingFile& file : missingFiles) lines << LineOf(file).join(u'\t');
  for (const StoredFile& file : unknownFiles) lines << LineOf(file).join(u'\t');
  return lines.join(u'\n') + u'\n';
}

QStringList LineOf(const MissingFile& file) {
  return {u"文件缺少"_s, PlaceText(file.place.filePath, file.place.id + file.place.type), file.name, QString(),
          file.recordIds.join(u'、')};
}

QStringList LineOf(const StoredFile& unknown) {
  return {u"没有原文记录"_s, PlaceText(unknown.filePath, unknown.name), QString(),
          unknown.size < 0 ? QString() : SizeText(unknown.size), QString()};
}

std::optional<CheckFindings> CheckStore(Connection& connection, OriginalFiles& store, const CheckProgress& progress) {
  try {
    return Check(connection, store, progress).Run();
  } catch (const Ended&) {
    return std::nullopt;
  }
}

QString PlaceText(const QString& filePath, const QString& fileName) {
  const QString path = QString(filePath).replace(u'\\', u'/') + u'/' + fileName;
  return path.split(u'/', Qt::SkipEmptyParts).join(u'/');
}

}  // namespace folvane::originals
