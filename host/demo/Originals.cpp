#include "host/demo/Originals.h"

#include <QDir>
#include <QFile>
#include <stdexcept>

#include "host/demo/StoreFiles.h"

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kSamples = 24, kMostOriginals = 3;

// The first original is the document itself, the others are enclosures and scans.
struct FileKind {
  QString name, type;
  QByteArray (*content)(const Letter&);
};

FileKind KindOf(int order, Random& random) {
  if (order == 1) {
    return random.Chance(60) ? FileKind{u"正文"_s, u".pdf"_s, PdfFile} : FileKind{u"正文"_s, u".txt"_s, TextFile};
  }
  if (random.Chance(50)) return {u"扫描件"_s + QString::number(order - 1), u".png"_s, ScanFile};
  return {u"附件"_s + QString::number(order - 1), u".txt"_s, TextFile};
}

void WriteFile(const QString& path, const QByteArray& content) {
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
    throw std::runtime_error(path.toStdString() + ": " + file.errorString().toStdString());
}

}  // namespace

Originals::Originals(Connection& connection, const QString& directory, QDate samplesOf, Random& random)
    : directory_(directory),
      random_(random),
      ofIncoming_(KeyKind::OriginalOfIncoming, random),
      ofOutgoing_(KeyKind::OriginalOfOutgoing, random),
      rows_(connection, u"Original_Text"_s,
            {u"ID"_s, u"Original_Name"_s, u"Type"_s, u"RecordID"_s, u"Size"_s, u"FileOrder"_s, u"FilePath"_s}) {
  MakeSamples(samplesOf);
}

void Originals::MakeSamples(QDate day) {
  Letter sample;
  sample.registered = QDateTime(day, QTime(8, 0), Qt::UTC);
  sample.written = day;
  sample.title = u"历史文件扫描示例"_s;
  sample.author = u"青岚市人民政府办公室"_s;
  for (int i = 0; i < kSamples; ++i)
    samples_.push_back(Store(sample, ofIncoming_.At(sample.registered), i % kMostOriginals + 1));
}

StoredFile Originals::Store(const Letter& letter, const QString& id, int order) {
  const FileKind kind = KindOf(order, random_);
  const QByteArray content = kind.content(letter);
  StoredFile file{id, kind.name, kind.type, QString::number(letter.registered.date().year()), content.size()};
  if (!directory_.isEmpty()) WriteFile(directory_ + u'/' + file.path + u'/' + file.id + file.type, content);
  ++files_;
  return file;
}

std::vector<StoredFile> Originals::Attach(const Letter& letter, bool ownFiles) {
  if (!random_.Chance(33)) return {};
  RecordKeys& keys = letter.outgoing ? ofOutgoing_ : ofIncoming_;
  std::vector<StoredFile> files;
  const int count = random_.Chance(65) ? 1 : random_.Between(2, kMostOriginals);
  for (int order = 1; order <= count; ++order) {
    if (ownFiles && files_ < kMostFiles)
      files.push_back(Store(letter, keys.At(letter.registered), order));
    else  // samples of the same place among a record's originals
      files.push_back(samples_[size_t(random_.Below(kSamples / kMostOriginals) * kMostOriginals + order - 1)]);
  }
  Share(letter.key, files);
  return files;
}

void Originals::Share(const QString& recordId, const std::vector<StoredFile>& files) {
  qlonglong order = 0;
  for (const StoredFile& file : files)
    rows_.Add({file.id, file.name, file.type, recordId, qlonglong(file.size), ++order, file.path});
}

}  // namespace folvane::demo
