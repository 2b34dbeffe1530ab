#include <QDateTime>
#include <QtEndian>
#include <bit>
#include <limits>

#include "data/ValueText.h"
#include "data/persist/PersistedMoment.h"
#include "data/persist/ScalarEncoding.h"

namespace folvane {

namespace {

constexpr quint32 kNanosecondsOfMillisecond = 1'000'000;
constexpr quint32 kNanosecondsOfFileTime = 100;

/// As files write dates or as people do.
std::optional<PersistedMoment> MomentOf(QByteArrayView text) {
  if (const std::optional<PersistedMoment> moment = PersistedMoment::Read(text)) return moment;
  const QDateTime read = ReadDateTime(QString::fromUtf8(text));
  if (!read.isValid() || text.contains('.')) return std::nullopt;
  return PersistedMoment::Read(read.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toUtf8());
}

bool IsMidnight(const PersistedMoment& moment) {
  return moment.hour == 0 && moment.minute == 0 && moment.second == 0 && moment.nanosecond == 0;
}

class ShortWriter {
 public:
  ShortWriter(QByteArray& buffer, qsizetype size) { buffer.resize(size), at_ = buffer.data(); }
  ShortWriter& Put(int number) {
    qToLittleEndian(quint16(number), at_);
    at_ += 2;
    return *this;
  }
  void PutLong(quint32 number) { qToLittleEndian(number, at_); }

 private:
  char* at_;
};

template <typename Number>
bool PutBits(QByteArray& buffer, std::optional<Number> number) {
  if (!number) return false;
  buffer.resize(sizeof(quint64));
  qToLittleEndian(std::bit_cast<quint64>(*number), buffer.data());
  return true;
}

}  // namespace

bool EncodeMomentValue(const Cell& cell, int type, QByteArray& buffer) {
  if (cell.kind != Cell::Text) return false;
  const auto moment = type == AdoType::DbTime ? PersistedMoment::ReadTime(cell.bytes) : MomentOf(cell.bytes);
  if (!moment || moment->year > std::numeric_limits<qint16>::max()) return false;
  switch (type) {
    case AdoType::DbDate:
      ShortWriter(buffer, 6).Put(moment->year).Put(moment->month).Put(moment->day);
      return IsMidnight(*moment);
    case AdoType::DbTime:
      ShortWriter(buffer, 6).Put(moment->hour).Put(moment->minute).Put(moment->second);
      return moment->nanosecond == 0;
    case AdoType::DbTimeStamp:
      ShortWriter(buffer, 16)
          .Put(moment->year)
          .Put(moment->month)
          .Put(moment->day)
          .Put(moment->hour)
          .Put(moment->minute)
          .Put(moment->second)
          .PutLong(moment->nanosecond);
      return true;
    case AdoType::Date:
      return moment->nanosecond % kNanosecondsOfMillisecond == 0 && PutBits(buffer, moment->ToDays());
    default:
      return moment->nanosecond % kNanosecondsOfFileTime == 0 && PutBits(buffer, moment->ToFileTime());
  }
}

}  // namespace folvane
