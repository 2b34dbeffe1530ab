#include "host/demo/Words.h"

#include "host/demo/TextLists.h"

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

QStringList DocumentsFrom(const QString& side) {
  if (side == u"up"_s) return {u"通知"_s, u"通知"_s, u"通报"_s, u"意见"_s, u"批复"_s, u"函"_s, u"决定"_s};
  if (side == u"side"_s) return {u"通知"_s, u"函"_s, u"请示"_s, u"报告"_s, u"纪要"_s};
  return {u"请示"_s, u"请示"_s, u"报告"_s, u"函"_s};
}

}  // namespace

Words::Words(const Design& design) {
  lists_ = ReadLists(u"words.txt"_s);
  for (const Design::Dictionary& dictionary : design.dictionaries)
    for (const Design::DictionaryEntry& entry : dictionary.entries) {
      lists_[dictionary.name] << entry.text;
      codes_[dictionary.name][entry.text] = entry.code;
    }
  for (const QStringList& line : ReadLines(u"senders.txt"_s))
    senders_.push_back({line[0], line[1].split(u' '), DocumentsFrom(line[2])});
}

const QStringList& Words::List(const QString& name) const { return *lists_.constFind(name); }

QString Words::Fill(QString pattern, int year, Random& random) const {
  for (qsizetype open = pattern.indexOf(u'{'); open >= 0; open = pattern.indexOf(u'{', open)) {
    const qsizetype close = pattern.indexOf(u'}', open);
    const QString name = pattern.mid(open + 1, close - open - 1);
    QString text;
    if (name == u"年"_s)
      text = QString::number(year);
    else if (name == u"序"_s)
      text = QString::number(random.Between(1, 60));
    else if (name == u"姓名"_s)
      text = Person(random);
    else
      text = random.Pick(List(name));
    pattern.replace(open, close - open + 1, text);
  }
  return pattern;
}

QString Words::Title(const QString& author, const QString& kind, int year, Random& random) const {
  const QString subject = Fill(random.Pick(List(kind)), year, random);
  return subject.startsWith(u"关于"_s) ? author + subject : subject;
}

QString Words::Person(Random& random) const {
  const QString& families = List(u"姓"_s).first();
  return families[random.Below(int(families.size()))] + random.Pick(List(u"名"_s));
}

}  // namespace folvane::demo
