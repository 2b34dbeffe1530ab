#include "host/demo/VolumeRecords.h"

#include <algorithm>

#include "host/demo/ArchiveNumbers.h"

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

const QStringList kVolumeColumns{u"ArchiveID"_s, u"FondsNo"_s,  u"CategoryCode"_s,  u"FileYear"_s,   u"Retention"_s,
                                 u"VolumeNo"_s,  u"FolderNo"_s, u"SecurityClass"_s, u"Amaintitle"_s, u"ResponsibleBy"_s,
                                 u"ItemCount"_s, u"Quantity"_s, u"DocStartDate"_s,  u"DocEndDate"_s, u"Location"_s,
                                 u"Keeper"_s,    u"Carrier"_s};
const QStringList kItemColumns{u"ArchiveID"_s, u"FondsNo"_s,     u"CategoryCode"_s,  u"FileYear"_s,
                               u"Retention"_s, u"VolumeNo"_s,    u"FolderNo"_s,      u"ArchiveNo"_s,
                               u"ItemNo"_s,    u"DocNo"_s,       u"Amaintitle"_s,    u"ResponsibleBy"_s,
                               u"FileDate"_s,  u"CreatedDate"_s, u"SecurityClass"_s, u"PageNo"_s,
                               u"Quantity"_s,  u"Note"_s,        u"InputDate"_s};
constexpr int kVolumeDigits = 4, kItemDigits = 3;

}  // namespace

VolumeRecords::VolumeRecords(Connection& connection, const Plan& plan, const Words& words, Random& random,
                             Originals& originals)
    : plan_(plan),
      words_(words),
      random_(random),
      originals_(originals),
      volumeKeys_(KeyKind::Volume, random),
      itemKeys_(KeyKind::VolumeItem, random),
      volumeRows_(connection, u"Wsda_Aj"_s, kVolumeColumns),
      itemRows_(connection, u"Wsda_Jn"_s, kItemColumns) {}

int VolumeRecords::OpenYear(int year) {
  CloseVolume();
  year_ = {};
  for (const ArchivedYear& archived : plan_.archived)
    if (archived.year == year) year_ = archived;
  taken_ = volumesOpened_ = 0;
  lastVolumes_.clear();
  spring_.emplace(QDate(year + 1, 3, 1), QDate(year + 1, 6, 30));
  return year_.items;
}

void VolumeRecords::Take(const Letter& letter, const std::vector<StoredFile>& originals) {
  const QDateTime moment = spring_->At(taken_, year_.items);
  if (qint64(taken_) * year_.volumes >= qint64(volumesOpened_) * year_.items) OpenVolume(letter, moment);
  ++taken_;
  Volume& volume = *volume_;
  const int pages = std::max(1, letter.pages);
  const int pageNo = volume.pages + 1;
  const QString key = itemKeys_.At(moment);
  ++volume.documents;
  volume.pages += pages;
  volume.lastDay = DayText(letter.registered.date());
  if (volume.security.isEmpty()) volume.security = letter.security;
  itemRows_.Add({key, kFonds, kCategory, QString::number(year_.year), volume.retention, volume.volumeNo,
                 volume.folderNo, volume.folderNo + u'-' + Padded(volume.documents, kItemDigits),
                 qlonglong(volume.documents), TextOrNull(letter.docNo), letter.title, letter.author,
                 DayText(letter.written), DayText(letter.registered.date()), TextOrNull(letter.security),
                 qlonglong(pageNo), qlonglong(pages), TextOrNull(letter.note), DayText(moment.date())});
  originals_.Share(key, originals);
}

void VolumeRecords::OpenVolume(const Letter& letter, const QDateTime& moment) {
  CloseVolume();
  ++volumesOpened_;
  Volume volume;
  volume.key = volumeKeys_.At(moment);
  volume.retention = random_.Pick(words_.List(u"保管期限"_s));
  volume.volumeNo = Padded(++lastVolumes_[volume.retention], kVolumeDigits);
  volume.folderNo = NumberBeginning(words_, year_.year, volume.retention) + u'-' + volume.volumeNo;
  volume.title = letter.title + u"等来文"_s;
  volume.firstDay = DayText(letter.registered.date());
  volume_ = volume;
}

void VolumeRecords::CloseVolume() {
  if (!volume_) return;
  const Volume& volume = *volume_;
  volumeRows_.Add({volume.key, kFonds, kCategory, QString::number(year_.year), volume.retention, volume.volumeNo,
                   volume.folderNo, TextOrNull(volume.security), volume.title, u"青岚市人民政府办公室"_s,
                   qlonglong(volume.documents), qlonglong(volume.pages), volume.firstDay, volume.lastDay,
                   random_.Chance(90) ? QVariant(random_.Pick(words_.List(u"存放位置"_s))) : QVariant(),
                   words_.Person(random_), u"纸质"_s});
  volume_.reset();
}

void VolumeRecords::Finish() {
  CloseVolume();
  volumeRows_.Finish();
  itemRows_.Finish();
}

}  // namespace folvane::demo
