#include "data/persist/RowLoader.h"

#include <limits>

#include "data/persist/DecimalText.h"
#include "data/persist/PersistedRecords.h"
#include "data/persist/Utf16.h"
#include "data/persist/ValueDecoder.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

/// Adds values to a row of a store.
class StoreSink : public ValueSink {
 public:
  explicit StoreSink(CodePageReader& codePage) : codePage_(codePage) {}
  void SetStore(RowStore& rows) { rows_ = &rows; }

  void Empty() override { rows_->AddNull(); }
  void Integer(qint64 value) override { rows_->AddInteger(value); }
  void BigInteger(qint64 value) override { rows_->AddInteger(value); }
  void UnsignedBigInteger(quint64 value) override {
    value <= quint64(std::numeric_limits<qint64>::max()) ? rows_->AddInteger(qint64(value))
                                                         : Text(QByteArray::number(value));
  }
  void Boolean(bool value) override { rows_->AddInteger(value); }
  void Single(float value) override { rows_->AddReal(AsWritten(value)); }
  void Double(double value) override { rows_->AddReal(value); }
  void Decimal(QByteArrayView number) override { Text(number); }
  void Date(const PersistedMoment& value) override {
    text_.clear();
    value.AppendDate(text_);
    Text(text_);
  }
  void Time(const PersistedMoment& value) override {
    text_.clear();
    value.AppendTime(text_);
    Text(text_);
  }
  void Timestamp(const PersistedMoment& value) override {
    text_.clear();
    value.AppendDate(text_);
    text_.append(' ');
    value.AppendTime(text_);
    Text(text_);
  }
  void Guid(QByteArrayView text) override { Text(text); }
  void NarrowText(QByteArrayView bytes) override { Text(codePage_.Read(bytes, text_)); }
  void WideText(QByteArrayView bytes) override {
    Utf16ToUtf8(bytes, text_);
    Text(text_);
  }
  void Bytes(QByteArrayView bytes) override { rows_->AddBytes(bytes.data(), std::size_t(bytes.size())); }

 private:
  void Text(QByteArrayView utf8) { rows_->AddText(utf8.data(), std::size_t(utf8.size())); }

  CodePageReader& codePage_;
  RowStore* rows_ = nullptr;
  QByteArray text_;
};

ColumnInfo ColumnOf(const ColumnDescriptor& column) {
  ColumnInfo info;
  info.name = column.name;
  info.type = AdoTypeOf(column);
  info.definedSize = int(std::min<quint32>(column.maxLength, quint32(std::numeric_limits<int>::max())));
  info.nullable = column.HasPresenceBit();
  info.autoNumber = column.autoIncrement != 0;
  return info;
}

class Loader {
 public:
  Loader(const TablegramSet& set, CodePageReader& codePage) : set_(set), sink_(codePage) {
    fetched_.rows = std::make_unique<RowStore>();
    for (std::size_t i = 0; i < set.columns.size(); ++i) {
      if (!set.columns[i].visible) continue;
      shown_.push_back(i);
      fetched_.columns.push_back(ColumnOf(set.columns[i]));
    }
    fetched_.rows->SetColumnCount(int(shown_.size()));
  }

  void Add(const PersistedRecord& record) {
    if (record.state != PersistedRecord::Unchanged && !fetched_.waiting) ExpectWaiting();
    if (fetched_.waiting) Note(record);
    AddRow(record.cells, *fetched_.rows);
  }
  FetchedRows Take() { return std::move(fetched_); }

 private:
  void ExpectWaiting() {
    fetched_.waiting = std::make_unique<WaitingRows>();
    fetched_.waiting->states.resize(fetched_.rows->RowCount(), WaitingRows::Clean);
    fetched_.waiting->originals.SetColumnCount(int(shown_.size()));
  }

  void Note(const PersistedRecord& record) {
    WaitingRows& waiting = *fetched_.waiting;
    switch (record.state) {
      case PersistedRecord::Unchanged:
        return waiting.states.push_back(WaitingRows::Clean);
      case PersistedRecord::Inserted:
        return waiting.states.push_back(WaitingRows::Added);
      case PersistedRecord::Deleted:
        return waiting.states.push_back(WaitingRows::Deleted);
      case PersistedRecord::Changed:
        break;
    }
    waiting.states.push_back(WaitingRows::Changed);
    waiting.changed.push_back(fetched_.rows->RowCount());
    AddRow(record.original, waiting.originals);
  }

  void AddRow(const std::vector<TablegramCell>& cells, RowStore& rows) {
    sink_.SetStore(rows);
    for (const std::size_t i : shown_)
      cells[i].state == TablegramCell::Value ? DecodeValue(set_.columns[i], cells[i].bytes, sink_) : rows.AddNull();
    rows.EndRow();
  }

  const TablegramSet& set_;
  std::vector<std::size_t> shown_;
  StoreSink sink_;
  FetchedRows fetched_;
};

}  // namespace

FetchedRows LoadTablegram(QByteArrayView content, CodePageReader& codePage) {
  TablegramReader reader(content);
  const TablegramSet& root = reader.Head().sets.front();
  if (reader.Head().IsHierarchical()) {
    const TablegramSet& child = reader.Head().sets[1];
    const QString chapter = root.columns[std::size_t(child.parentColumn)].name;
    throw FileError(u"该文件是分层的记录集（字段“%1”含有子记录集），不能作为普通记录集打开。"_s.arg(chapter));
  }
  Loader loader(root, codePage);
  PersistedRecords records(reader);
  PersistedRecord record;
  while (records.Next(record)) loader.Add(record);
  return loader.Take();
}

}  // namespace folvane
