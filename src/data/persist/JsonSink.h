#pragma once

#include "base/CodePage.h"
#include "data/persist/JsonText.h"
#include "data/persist/ValueDecoder.h"

namespace folvane {

/// Appends values to a line of JSON.
class JsonSink : public ValueSink {
 public:
  JsonSink(QByteArray& json, CodePageReader& codePage) : json_(json), codePage_(codePage) {}

  void Empty() override { json_.append("null"); }
  void Integer(qint64 value) override { AppendJsonNumber(json_, value); }
  void BigInteger(qint64 value) override { AppendJsonWord(json_, QByteArray::number(value)); }
  void UnsignedBigInteger(quint64 value) override { AppendJsonWord(json_, QByteArray::number(value)); }
  void Boolean(bool value) override { json_.append(value ? "true" : "false"); }
  void Single(float value) override;
  void Double(double value) override;
  void Decimal(QByteArrayView number) override { AppendJsonWord(json_, number); }
  void Date(const PersistedMoment& value) override;
  void Time(const PersistedMoment& value) override;
  void Timestamp(const PersistedMoment& value) override;
  void Guid(QByteArrayView text) override { AppendJsonWord(json_, text); }
  void NarrowText(QByteArrayView bytes) override;
  void WideText(QByteArrayView bytes) override;
  void Bytes(QByteArrayView bytes) override { AppendJsonWord(json_, bytes.toByteArray().toHex()); }

 private:
  template <typename Number>
  void Floating(Number value);

  QByteArray& json_;
  CodePageReader& codePage_;
  QByteArray text_;
};

}  // namespace folvane
