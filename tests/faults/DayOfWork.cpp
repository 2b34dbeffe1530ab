#include "faults/DayOfWork.h"

#include "archiving/ArchiveTransfer.h"
#include "base/KeyMaker.h"
#include "data/Recordset.h"
#include "entry/RegIdRule.h"
#include "flows/TransferIntoFlow.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

DayOfWork::DayOfWork(std::shared_ptr<Connection> connection, const OriginalsRequest& store, const QString& page,
                     unsigned seed)
    : connection_(std::move(connection)), store_(store), page_(page), random_(seed) {
  store_.connection = connection_;
}

void DayOfWork::DoSome() {
  const QString key = Register();
  WorkOnOriginals(key);
  if (random_() % 2) SendAround(key);
  if (random_() % 3 == 0) Archive();
}

originals::RecordOriginals DayOfWork::OriginalsOf(const QString& key) const {
  OriginalsRequest request = store_;
  request.recordId = key;
  return originals::RecordOriginals(request);
}

QString DayOfWork::Register() {
  const RegIdRule rule{u"Fwdj"_s, RegFormula::BrowserCondition, {}, {}, false};
  const int number = NextRegId(rule, {}, {});
  const QString key = CreateName();
  Recordset letters;
  letters.Open(u"Select * From Fwdj Where 1 = 2"_s, connection_);
  letters.AddNew();
  for (const auto& [field, text] : {std::pair{u"ArchiveID"_s, key},
                                    {u"RegID"_s, QString::number(number)},
                                    {u"Amaintitle"_s, u"题名%1"_s.arg(number)},
                                    {u"FileStatus"_s, u"需归档"_s},
                                    {u"SignDate"_s, u"2002-01-05"_s},
                                    {u"Pages"_s, u"1"_s}})
    letters[field].SetValue(text);
  letters.UpdateBatch();
  return key;
}

void DayOfWork::WorkOnOriginals(const QString& key) {
  originals::RecordOriginals originals = OriginalsOf(key);
  for (unsigned count = random_() % 3; count > 0; --count) {
    const originals::Original added = originals.Add(originals::FileToAdd::At(page_));
    if (random_() % 3 == 0) originals.Delete(added);
  }
}

void DayOfWork::SendAround(const QString& key) { TransferRecord(u"Fwdj"_s, key, u"PassRead_File"_s); }

void DayOfWork::Archive() {
  QStringList keys;
  Recordset waiting;
  waiting.Open(u"Select ArchiveID From Fwdj Where FileStatus = '需归档' Order By RegID"_s, connection_);
  for (; !waiting.EOF_(); waiting.MoveNext()) keys << waiting[u"ArchiveID"_s].Text();
  ArchiveTransfer transfer;
  transfer.askTitle = [] { return u"案卷"_s; };
  transfer.DoFileArch({u"Fwdj"_s, u"Wenshu"_s, u"Select * From Fwdj"_s, true}, keys, true);
}

}  // namespace folvane::test
