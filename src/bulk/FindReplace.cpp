#include "bulk/FindReplace.h"

#include <algorithm>

#include "base/IgnoreErrors.h"
#include "bulk/FieldChoice.h"
#include "bulk/ReturnTo.h"
#include "catalogue/FieldRows.h"
#include "catalogue/ReadRows.h"
#include "data/Recordset.h"
#include "shell/SqlText.h"
#include "shell/TableFields.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// Large enough for the cost of a transaction not to count, small enough for progress and a stop to show soon.
constexpr int kSteps = 500;

template <typename LookAt>
qint64 CountPortion(Recordset& records, SearchWay way, LookAt lookAt) {
  qint64 found = 0;
  for (int done = 0; done < kSteps && StandsOnRecord(records); ++done, StepSearch(records, way))
    found += lookAt() ? 1 : 0;
  return found;
}

}  // namespace

FindReplace::FindReplace(std::shared_ptr<Connection> connection, QString tableName)
    : connection_(std::move(connection)), tableName_(std::move(tableName)) {}

void FindReplace::SetTerms(const SearchTerms& terms) {
  replacement_ = terms.replace;
  refused_ = {};
  search_ = RecordSearch();
  IgnoreErrors([&] { search_ = RecordSearch(terms, terms.allFields ? QString() : GetFieldName(terms.caption)); });
}

QString FindReplace::GetFieldName(const QString& caption) const {
  return FieldFrom(u"Select FieldName from DynamicWindows Where ChnFieldName='"_s + EscapeSql(caption) +
                       u"' And TableName='"_s + EscapeSql(tableName_) + u"'"_s,
                   tableName_, caption);
}

void FindReplace::GetFieldControl(const QString& field) {
  const auto rows = ReadRows<EntryControlRow>(
      connection_, u"Select ControlType,ControlIndex From SaveControls Where DataField='"_s + EscapeSql(field) +
                       u"' And DataSource='"_s + EscapeSql(tableName_) + u"'"_s);
  if (!rows.empty()) hitControl_ = {rows.front().controlType, rows.front().controlIndex};
}

void FindReplace::FindInRecord(const Recordset& records, bool replace, bool& found) {
  try {
    Look(records, replace, found);
  } catch (const std::exception& error) {
    if (replace) NoteRefusal(error);
  }
}

void FindReplace::NoteRefusal(const std::exception& error) {
  if (++refused_.count == 1) refused_.reason = ErrorTextFor(tableName_, error).simplified();
}

void FindReplace::Look(const Recordset& records, bool replace, bool& found) {
  int hit = search_.NextHit(records);
  if (hit >= 0 && !replace) {
    GetFieldControl(records.Fields().Item(hit).Name());
    found = true;
  }
  for (; hit >= 0 && replace; hit = search_.NextHit(records, hit + 1)) {
    Overwrite(records, records.Fields().Item(hit).Name());
    found = true;
  }
}

// The replacement goes in as it was typed: one with a quote is no statement, and nothing is overwritten.
void FindReplace::Overwrite(const Recordset& records, const QString& field) const {
  const qint64 written =
      connection_->Execute(u"Update "_s + tableName_ + u" Set "_s + field + u'=' + UnescapedLiteral(replacement_) +
                           u" Where ArchiveId='"_s + EscapeSql(records[u"ArchiveId"_s].Text()) + u"'"_s);
  if (written == 0) throw DataError(DataErrorKind::Conflict, u"该记录已被其他用户删除。"_s);
}

bool FindReplace::FindNext(Recordset& records, SearchWay way, const Progress& progress) {
  ReturnTo before(records);
  const qint64 count = records.RecordCount();
  qint64 done = 0;
  for (BeginSearch(records, way); StandsOnRecord(records); StepSearch(records, way)) {
    bool found = false;
    FindInRecord(records, false, found);
    if (found) {
      before.Stay();
      return true;
    }
    if (!progress(++done, count)) break;
  }
  return false;
}

qint64 FindReplace::ReplaceAll(Recordset& records, SearchWay way, const Progress& progress) {
  const ReturnTo before(records);
  const qint64 count = records.RecordCount();
  qint64 done = 0, replaced = 0;
  BeginSearch(records, way);
  while (StandsOnRecord(records)) {
    replaced += ReplacePortion(records, way);
    done = std::min<qint64>(done + kSteps, count);
    if (!progress(done, count)) break;
  }
  return replaced;
}

// One transaction for many records, as long as none of them fails. A portion with a failure is done again record by
// record: what fails in one is not to take back the others.
qint64 FindReplace::ReplacePortion(Recordset& records, SearchWay way) {
  const qint64 start = records.Bookmark();
  qint64 replaced = 0;
  const bool done = !connection_->InTransaction() && IgnoreErrors([&] {
    Transaction transaction(*connection_);
    replaced = CountPortion(records, way, [&] {
      bool found = false;
      Look(records, true, found);
      return found;
    });
    transaction.Commit();
  });
  if (done) return replaced;
  records.SetBookmark(start);
  return CountPortion(records, way, [&] {
    bool found = false;
    FindInRecord(records, true, found);
    return found;
  });
}

}  // namespace folvane
