#include "components/originals/Commands.h"

#include <QApplication>
#include <QTemporaryDir>

#include <folvane/DataError.h>

#include "components/common/Notice.h"
#include "components/documents/DocumentViewer.h"
#include "components/originals/FrmAddOriginals.h"
#include "components/originals/FrmCheckOriginals.h"
#include "components/originals/FrmOriginals.h"
#include "components/scanning/ScanDialog.h"

namespace folvane::originals {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace notices;

// Before anybody chooses files in vain.
bool CanReachStore(RecordOriginals& originals) {
  try {
    originals.Store();
    return true;
  } catch (const std::exception& error) {
    TellError(error);
    return false;
  }
}

std::vector<FileToAdd> FilesAt(const QStringList& paths) {
  std::vector<FileToAdd> files;
  for (const QString& path : paths) files.push_back(FileToAdd::At(path));
  return files;
}

std::vector<FileToAdd> Scanned(QWidget* parent, const QString& directory) {
  std::vector<FileToAdd> files;
  for (const scanning::ScannedFile& file : scanning::ScanDocuments(parent, directory))
    files.push_back({file.name, file.type, file.path});
  return files;
}

}  // namespace

int AddOriginals(QWidget* parent, RecordOriginals& originals, const std::vector<FileToAdd>& offered) {
  if (!CanReachStore(originals)) return 0;
  FrmAddOriginals window(parent, originals);
  window.Offer(offered);
  if (offered.empty()) window.ChooseAtOnce();
  window.exec();
  return window.Added();
}

// What was scanned is nowhere else: the window stays until it is added, or the user lets it go.
int ScanOriginals(QWidget* parent, RecordOriginals& originals) {
  if (!CanReachStore(originals)) return 0;
  const QTemporaryDir directory;
  if (!directory.isValid()) throw DataError(DataErrorKind::File, u"无法建立临时文件夹："_s + directory.errorString());
  const std::vector<FileToAdd> files = Scanned(parent, directory.path());
  if (files.empty()) return 0;
  FrmAddOriginals window(parent, originals);
  window.Offer(files);
  window.AddAtOnce();
  window.exec();
  return window.Added();
}

void ViewOriginals(QWidget* parent, RecordOriginals& originals, const QString& fileId) {
  std::vector<documents::Document> documents;
  int first = -1;
  for (const Original& original : originals.Read()) {
    if (original.id == fileId) first = int(documents.size());
    documents.push_back(
        {original.name, original.type, [&originals, original](QIODevice& target, const std::function<bool()>& goesOn) {
           originals.Fetch(original, target, [&](qint64, qint64) { return goesOn(); });
         }});
  }
  if (first < 0) return Tell(u"该原文已不存在，可能已被其他用户删除。"_s, kWarningIcon);
  if (CanReachStore(originals)) documents::ShowDocuments(parent, u"浏览原文"_s, documents, first);
}

void ManageOriginals(QWidget* parent, RecordOriginals& originals) { FrmOriginals(parent, originals).exec(); }

void CheckOriginals(QWidget* parent, RecordOriginals& originals) {
  if (CanReachStore(originals)) FrmCheckOriginals(parent, originals).exec();
}

bool HandleOriginals(const OriginalsRequest& request) {
  RecordOriginals originals(request);
  QWidget* const parent = QApplication::activeWindow();
  if (request.action == u"AddState"_s) return AddOriginals(parent, originals, FilesAt(request.files)) > 0;
  if (request.action == u"ScanState"_s) {
    ScanOriginals(parent, originals);
  } else if (request.action == u"BrowseState"_s) {
    ViewOriginals(parent, originals, request.fileId);
  } else if (request.action.isEmpty()) {
    ManageOriginals(parent, originals);
  } else {
    throw DataError(DataErrorKind::Usage, u"不认识的原文操作“%1”。"_s.arg(request.action));
  }
  return true;
}

}  // namespace folvane::originals
