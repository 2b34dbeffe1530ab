#pragma once

#include "base/CodePage.h"
#include "data/persist/ValueDecoder.h"

namespace folvane {

/// Appends values to a line of JSON.
class JsonSink : public ValueSink {
 public:
  JsonSink(QByteArray& json, CodePageReader& codePage) : json_(json), codePage_(codePage) {}

  void Empty() override { json_.append("null"); }
  void Integer(qint64 value) override { json_.append(QByteArray::number(value)); }
  void BigInteger(qint64 value) override { Quoted(QByteArray::number(value)); }
  void UnsignedBigInteger(quint64 value) override { Quoted(QByteArray::number(value)); }
  void Boolean(bool value) override { json_.append(value ? "true" : "false"); }
  void Single(float value) override;
  void Double(double value) override;
  void Decimal(QByteArrayView number) override { Quoted(number); }
  void Date(const PersistedMoment& value) override;
  void Time(const PersistedMoment& value) override;
  void Timestamp(const PersistedMoment& value) override;
  void Guid(QByteArrayView text) override { Quoted(text); }
  void NarrowText(QByteArrayView bytes) override;
  void WideText(QByteArrayView bytes) override;
  void Bytes(QByteArrayView bytes) override { Quoted(bytes.toByteArray().toHex()); }

 private:
  /// A text that has nothing to be escaped.
  void Quoted(QByteArrayView text);
  template <typename Number>
  void Floating(Number value);

  QByteArray& json_;
  CodePageReader& codePage_;
  QByteArray text_;
};

}  // namespace folvane
