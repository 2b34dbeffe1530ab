#pragma once

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <ostream>

// How GoogleTest shows Qt's values in a failure. Declared in the global namespace, where its look-up finds them.

inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QByteArray& bytes, std::ostream* out) { *out << '"' << bytes.toStdString() << '"'; }
inline void PrintTo(const QDate& date, std::ostream* out) { *out << date.toString(Qt::ISODate).toStdString(); }
inline void PrintTo(const QDateTime& time, std::ostream* out) {
  *out << time.toString(Qt::ISODateWithMs).toStdString();
}
inline void PrintTo(const QStringList& texts, std::ostream* out) {
  *out << "{\"" << texts.join(QStringLiteral("\", \"")).toStdString() << "\"}";
}
inline void PrintTo(const QVariant& value, std::ostream* out) {
  if (!value.isValid()) {
    *out << "null";
  } else {
    *out << value.typeName() << "(\"" << value.toString().toStdString() << "\")";
  }
}
