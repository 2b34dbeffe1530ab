#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QtGlobal>
#include <optional>

namespace folvane {

/// A date, a time of day or both, as files hold them. Parts beyond their usual ranges occur there, also years before 0
/// and after 9999.
struct PersistedMoment {
  int year = 0;
  int month = 0, day = 0, hour = 0, minute = 0, second = 0;
  quint32 nanosecond = 0;

  /// From days since 1899-12-30; the fraction is the time of day, also of days before. To the millisecond. Nothing for
  /// numbers that are no days of a calendar.
  static std::optional<PersistedMoment> OfDays(double days);
  /// From steps of 100 nanoseconds since 1601-01-01.
  static PersistedMoment OfFileTime(quint64 steps);
  /// From 2002-03-04, 2002-03-04 05:06:07.89 or with a T between. Nothing for a day that no calendar has.
  static std::optional<PersistedMoment> Read(QByteArrayView text);
  /// From 05:06:07, with or without a fraction.
  static std::optional<PersistedMoment> ReadTime(QByteArrayView text);

  /// Nothing where there is no such day, or none that the form can tell.
  std::optional<double> ToDays() const;
  std::optional<quint64> ToFileTime() const;

  /// Appends 2002-03-04. Years beyond four digits have their sign ahead, as ISO 8601 wants it.
  void AppendDate(QByteArray& text) const;
  /// Appends 05:06:07, and what fraction of a second there is.
  void AppendTime(QByteArray& text) const;
};

}  // namespace folvane
