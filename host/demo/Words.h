#pragma once

#include <QHash>
#include <QStringList>
#include <vector>

#include <folvane/Design.h>

#include "host/demo/Random.h"

namespace folvane::demo {

/// An agency that writes to the office.
struct Sender {
  QString name;
  QStringList words;      ///< of its document numbers
  QStringList documents;  ///< kinds of document that come from above, beside or below
};

/// The vocabulary of the demo: lists and dictionaries by name and what is put together of them.
class Words {
 public:
  explicit Words(const Design& design);

  const QStringList& List(const QString& name) const;
  /// The code of an entry in archive numbers, "" when it has none.
  QString Code(const QString& name, const QString& entry) const { return codes_[name].value(entry); }
  const std::vector<Sender>& Senders() const { return senders_; }

  /// Puts a random entry in the place of each {list}; {年} is the year, {序} a number and {姓名} a person.
  QString Fill(QString pattern, int year, Random& random) const;
  /// A title of that kind of document.
  QString Title(const QString& author, const QString& kind, int year, Random& random) const;
  QString Person(Random& random) const;

 private:
  QHash<QString, QStringList> lists_;
  QHash<QString, QHash<QString, QString>> codes_;
  std::vector<Sender> senders_;
};

}  // namespace folvane::demo
