#include "components/originals/RecordOriginals.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <limits>

#include <folvane/DataError.h>
#include <folvane/ResultSet.h>
#include <folvane/createdname.h>

#include "components/common/Quoted.h"
#include "components/common/WholeFile.h"
#include "components/originals/OriginalNames.h"

namespace folvane::originals {
namespace {
using namespace Qt::Literals::StringLiterals;
using components::Quoted;

constexpr int kMostTries = 100;

DataError FileTrouble(const QString& sentence, const QString& path) {
  return {DataErrorKind::File, sentence.arg(QDir::toNativeSeparators(path))};
}

/// A file that is read for the store, and what it was like at the beginning.
class SourceFile {
 public:
  /// @throws DataError for what cannot become an original
  explicit SourceFile(const QString& path) : file_(path) {
    const QFileInfo info(path);
    if (!info.exists()) throw FileTrouble(u"文件 %1 不存在。"_s, path);
    if (info.isDir()) throw FileTrouble(u"%1 是文件夹，不能作为原文添加。"_s, path);
    if (!info.isFile()) throw FileTrouble(u"%1 不是普通文件，不能作为原文添加。"_s, path);
    if (!file_.open(QFile::ReadOnly)) throw FileTrouble(u"文件 %1 无法读取："_s + file_.errorString(), path);
    size_ = file_.size();
    changed_ = info.lastModified();
    if (size_ == 0) throw FileTrouble(u"文件 %1 是空的，不能作为原文添加。"_s, path);
    if (size_ > std::numeric_limits<int>::max()) throw FileTrouble(u"文件 %1 超过 2 GB，不能作为原文添加。"_s, path);
  }

  QFile& Content() { return file_; }
  qint64 Size() const { return size_; }
  bool IsUnchanged() const {
    return file_.size() == size_ && (!file_.exists() || QFileInfo(file_.fileName()).lastModified() == changed_);
  }

 private:
  QFile file_;
  qint64 size_ = 0;
  QDateTime changed_;
};

}  // namespace

std::vector<Original> Moved(const std::vector<Original>& originals, const std::vector<int>& rows, int before) {
  std::vector<Original> ahead, moved, behind;
  for (int row = 0; row < int(originals.size()); ++row) {
    const bool isMoved = std::find(rows.begin(), rows.end(), row) != rows.end();
    (isMoved ? moved : row < before ? ahead : behind).push_back(originals[std::size_t(row)]);
  }
  ahead.insert(ahead.end(), moved.begin(), moved.end());
  ahead.insert(ahead.end(), behind.begin(), behind.end());
  return ahead;
}

FileToAdd FileToAdd::At(const QString& path) {
  const NameAndType called = SplitFileName(QFileInfo(path).fileName());
  return {called.name, called.type, path};
}

RecordOriginals::RecordOriginals(const OriginalsRequest& request)
    : RecordOriginals(request.connection, request.recordId, [request] { return OpenOriginalFiles(request); }) {}

RecordOriginals::RecordOriginals(std::shared_ptr<folvane::Connection> connection, const QString& recordId,
                                 OpenStore open)
    : connection_(std::move(connection)), recordId_(recordId), open_(std::move(open)) {
  if (!connection_) throw DataError(DataErrorKind::Usage, u"没有数据库连接，无法处理原文。"_s);
  if (recordId_.isEmpty()) throw DataError(DataErrorKind::Usage, u"没有指定记录，无法处理原文。"_s);
}

OriginalFiles& RecordOriginals::Store() {
  if (!store_) store_ = open_();
  return *store_;
}

std::vector<Original> RecordOriginals::Read() const {
  const ResultSet rows(*connection_,
                       u"Select ID,Original_Name,Type,FilePath,Size,FileOrder From Original_Text Where RecordID = "_s +
                           Quoted(recordId_) + u" Order By FileOrder,ID"_s);
  std::vector<Original> originals;
  for (qint64 row = 0; row < rows.RowCount(); ++row) {
    originals.push_back({rows.Text(row, 0), rows.Text(row, 1), rows.Text(row, 2), rows.Text(row, 3),
                         rows.Text(row, 4).toLongLong(), rows.Text(row, 5).toInt()});
  }
  return originals;
}

Original RecordOriginals::Add(const FileToAdd& file, const TransferProgress& progress) {
  SourceFile source(file.path);
  const OriginalPlace place = FreePlace(file.type);
  Store().Put(place, source.Content(), progress);
  const Original original{place.id, FitName(file.name), place.type, place.filePath, source.Size(), 0};
  if (!source.IsUnchanged()) {
    Store().Remove(place);
    throw FileTrouble(u"文件 %1 在读取时被修改，没有添加。"_s, file.path);
  }
  InsertOrTakeBack(original);
  return original;
}

// The id has to be free among the files and, whatever their endings, among the rows: those with one id share a file.
OriginalPlace RecordOriginals::FreePlace(const QString& type) {
  for (int left = kMostTries; left > 0; --left) {
    const OriginalPlace place{Store().PathOfToday(), createdname().CreateName(), type};
    if (HasRow(u"ID = "_s + Quoted(place.id))) continue;
    if (!Store().Has(place)) return place;
  }
  throw DataError(DataErrorKind::Other, u"无法为原文生成唯一的编号，请稍后再试。"_s);
}

void RecordOriginals::InsertOrTakeBack(const Original& original) {
  try {
    Insert(original);
  } catch (const DataError& refusal) {
    // A connection that goes away in the middle may have kept the row all the same.
    const std::optional<bool> kept = IsKept(original);
    if (kept && *kept) return;
    if (!kept) throw;
    try {
      Store().Remove(original.Place());
    } catch (const DataError& left) {
      throw DataError(refusal.Kind(), refusal.Message() + u"\n已存入的文件未能删除："_s + left.Message(),
                      refusal.Statement(), refusal.NativeCode());
    }
    throw;
  }
}

std::optional<bool> RecordOriginals::IsKept(const Original& original) const {
  try {
    return HasRow(RowOf(original.id));
  } catch (const DataError&) {
    return std::nullopt;
  }
}

void RecordOriginals::Insert(const Original& original) {
  const ResultSet last(*connection_,
                       u"Select Max(FileOrder) From Original_Text Where RecordID = "_s + Quoted(recordId_));
  const qint64 order = qint64(last.Text(0, 0).toInt()) + 1;
  connection_->Execute(u"Insert Into Original_Text(ID,Original_Name,Type,RecordID,Size,FileOrder,FilePath) Values("_s +
                       QStringList{Quoted(original.id), Quoted(original.name), Quoted(original.type), Quoted(recordId_),
                                   QString::number(original.size), QString::number(order), Quoted(original.filePath)}
                           .join(u',') +
                       u')');
}

void RecordOriginals::Rename(const Original& original, const QString& name) {
  if (connection_->Execute(u"Update Original_Text Set Original_Name = "_s + Quoted(FitName(name)) + u" Where "_s +
                           RowOf(original.id)) == 0)
    throw DataError(DataErrorKind::Conflict, u"原文“%1”已被其他用户删除。"_s.arg(original.name));
}

void RecordOriginals::Reorder(const std::vector<Original>& inOrder) {
  std::optional<Transaction> all;
  if (!connection_->InTransaction()) all.emplace(*connection_);
  int order = 0;
  for (const Original& original : inOrder) {
    if (original.order == ++order) continue;
    connection_->Execute(u"Update Original_Text Set FileOrder = %1 Where "_s.arg(order) + RowOf(original.id));
  }
  if (all) all->Commit();
}

bool RecordOriginals::Delete(const Original& original) {
  DeleteOriginals(u" Where "_s + RowOf(original.id));
  try {
    if (HasRow(u"ID = "_s + Quoted(original.id))) return false;
    return Store().Has(original.Place());
  } catch (const DataError&) {
    return true;  // a store that cannot be asked has not removed anything either
  }
}

void RecordOriginals::Fetch(const Original& original, QIODevice& target, const TransferProgress& progress) {
  Store().Get(original.Place(), target, progress);
}

void RecordOriginals::Export(const Original& original, const QString& path, const TransferProgress& progress) {
  QSaveFile file(path);
  if (!file.open(QFile::WriteOnly)) throw FileTrouble(u"文件 %1 无法写入："_s + file.errorString(), path);
  Fetch(original, file, progress);
  if (!components::CommitWhole(file)) throw FileTrouble(u"文件 %1 无法写入："_s + file.errorString(), path);
}

QString RecordOriginals::RowOf(const QString& id) const {
  return u"ID = "_s + Quoted(id) + u" And RecordID = "_s + Quoted(recordId_);
}

bool RecordOriginals::HasRow(const QString& condition) const {
  return ResultSet(*connection_, u"Select ID From Original_Text Where "_s + condition).RowCount() > 0;
}

}  // namespace folvane::originals
