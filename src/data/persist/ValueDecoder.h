#pragma once

#include "data/persist/PersistedMoment.h"
#include "data/persist/Tablegram.h"

namespace folvane {

/// Takes values of a file as what they are. Views live only as long as the call.
class ValueSink {
 public:
  virtual ~ValueSink() = default;
  virtual void Empty() = 0;                ///< a variant that was never given a value
  virtual void Integer(qint64 value) = 0;  ///< of 32 bits at most
  virtual void BigInteger(qint64 value) = 0;
  virtual void UnsignedBigInteger(quint64 value) = 0;
  virtual void Boolean(bool value) = 0;
  virtual void Single(float value) = 0;
  virtual void Double(double value) = 0;
  virtual void Decimal(QByteArrayView number) = 0;  ///< with all its digits
  virtual void Date(const PersistedMoment& value) = 0;
  virtual void Time(const PersistedMoment& value) = 0;
  virtual void Timestamp(const PersistedMoment& value) = 0;
  virtual void Guid(QByteArrayView text) = 0;         ///< {01234567-89AB-CDEF-0123-456789ABCDEF}
  virtual void NarrowText(QByteArrayView bytes) = 0;  ///< in the code page of the machine that wrote the file
  virtual void WideText(QByteArrayView bytes) = 0;    ///< in UTF-16LE
  virtual void Bytes(QByteArrayView bytes) = 0;
};

/// Gives the value of a column, as a TablegramReader read it, to a sink.
void DecodeValue(const ColumnDescriptor& column, QByteArrayView bytes, ValueSink& sink);

/// The type number that ADO gives to the field of a column: files tell fixed, variable and long texts and bytes apart
/// by flags.
int AdoTypeOf(const ColumnDescriptor& column);

}  // namespace folvane
