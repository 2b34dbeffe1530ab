#include "records/FilterInWords.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>
#include <optional>

#include <folvane/DataError.h>

#include "data/dialect/Tokenizer.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;
using sql::Token;
using sql::TokenKind;
using Words = std::optional<QString>;

QString WordOf(const QString& comparison) {
  static const QHash<QString, QString> words{{u"="_s, u"等于"_s}, {u"<>"_s, u"不等于"_s},   {u">"_s, u"大于"_s},
                                             {u"<"_s, u"小于"_s}, {u">="_s, u"大于等于"_s}, {u"<="_s, u"小于等于"_s}};
  return words.value(comparison);
}

/// Reads terms joined by And and Or; gives nothing as soon as one has another form.
class ConditionReader {
 public:
  ConditionReader(const QString& condition, const std::function<QString(const QString&)>& captionOf)
      : tokens_(sql::Tokenize(condition)), captionOf_(captionOf) {}

  Words Condition() {
    QString text;
    for (;;) {
      const Words term = TakeSign("("_L1) ? Bracketed() : Comparison();
      if (!term) return {};
      text += *term;
      if (Peek().kind == TokenKind::End) return text;
      if (TakeWord("and"_L1)) {
        text += u" 与 "_s;
      } else if (TakeWord("or"_L1)) {
        text += u" 或 "_s;
      } else {
        return {};
      }
    }
  }

 private:
  const Token& Peek() const { return tokens_[at_]; }
  bool Take(bool fits) {
    if (fits) ++at_;
    return fits;
  }
  bool TakeSign(QLatin1String sign) { return Take(Peek().IsSign(sign)); }
  bool TakeWord(QLatin1String word) { return Take(Peek().IsWord(word)); }

  Words Name() {
    if (Peek().kind != TokenKind::Word && Peek().kind != TokenKind::Quoted) return {};
    return tokens_[at_++].text;
  }
  Words Text() {
    if (Peek().kind != TokenKind::Text) return {};
    return tokens_[at_++].text;
  }

  // A field, with or without its table, by its caption; the year of a date as such.
  Words Subject() {
    Words name = Name();
    if (name && name->compare("left"_L1, Qt::CaseInsensitive) == 0 && TakeSign("("_L1)) return Year();
    if (name && TakeSign("."_L1)) name = Name();
    if (!name) return {};
    const QString caption = captionOf_(*name);
    return caption.isEmpty() ? *name : caption;
  }

  Words Year() {
    const Words field = Name();
    const bool dated = field && field->compare("CreatedDate"_L1, Qt::CaseInsensitive) == 0;
    const bool whole = dated && TakeSign(","_L1) && Take(Peek().text == u"4"_s) && TakeSign(")"_L1);
    return whole ? Words(u"年度"_s) : Words();
  }

  Words Comparison() {
    const Words subject = Subject();
    return subject ? Compared(*subject) : Words();
  }

  Words Compared(const QString& subject) {
    const bool negated = TakeWord("not"_L1);
    if (TakeWord("like"_L1)) return Matched(subject, negated);
    const QString word = WordOf(Peek().text);
    if (negated || word.isEmpty()) return {};
    ++at_;
    const Words value = Text();
    return value ? Words(subject + u' ' + word + u' ' + *value) : Words();
  }

  Words Matched(const QString& subject, bool negated) {
    const Words pattern = Text();
    if (!pattern || !pattern->endsWith(u'%')) return {};
    const bool anywhere = pattern->size() > 1 && pattern->startsWith(u'%');
    const QString value =
        pattern->mid(anywhere ? 1 : 0, pattern->size() - (anywhere ? 2 : 1)).replace(u"[[]"_s, u"["_s);
    const QString word = anywhere ? u"包含"_s : u"开头为"_s;
    return subject + (negated ? u" 不"_s : u" "_s) + word + u' ' + value;
  }

  Words Bracketed() {
    const Words subject = Subject();
    if (!subject) return {};
    if (TakeWord("between"_L1)) return Span(*subject);
    const Words compared = Compared(*subject);
    if (!compared || TakeSign(")"_L1)) return compared;
    return Emptiness(*subject, *compared);
  }

  Words Span(const QString& subject) {
    const Words begin = Text();
    const bool joined = begin && TakeWord("and"_L1);
    const Words end = joined ? Text() : Words();
    if (!end || !TakeSign(")"_L1)) return {};
    return subject + u" 从 "_s + *begin + u" 到 "_s + *end;
  }

  // The second half of (F = '' Or F Is Null), or of the same with <> and Is Not Null, which a search for an empty value
  // composes.
  Words Emptiness(const QString& subject, const QString& compared) {
    if (!TakeWord("or"_L1) || Subject() != subject || !TakeWord("is"_L1)) return {};
    const bool negated = TakeWord("not"_L1);
    if (compared != subject + (negated ? u" 不等于 "_s : u" 等于 "_s)) return {};
    if (!TakeWord("null"_L1) || !TakeSign(")"_L1)) return {};
    return subject + (negated ? u" 不为空"_s : u" 为空"_s);
  }

  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  const std::function<QString(const QString&)>& captionOf_;
};

Words Told(const QString& filter, const std::function<QString(const QString&)>& captionOf) {
  try {
    return ConditionReader(filter, captionOf).Condition();
  } catch (const DataError&) {
    return {};
  }
}

}  // namespace

FilterInWords InWords(const QString& filter, const std::function<QString(const QString&)>& captionOf) {
  if (filter.isEmpty()) return {};
  static const QRegularExpression year(u"^Left\\(CreatedDate,4\\) = '([^']*)'$"_s,
                                       QRegularExpression::CaseInsensitiveOption);
  if (const auto found = year.match(filter); found.hasMatch()) return {u"年度"_s, found.captured(1)};
  // The conditions of the nodes below a table; the blanks in them tell them from what queries compose.
  static const QRegularExpression group(u"^(DOCNO like '[^%'][^']*%'|\\w+ ='[^']*')$"_s,
                                        QRegularExpression::UseUnicodePropertiesOption);
  return {group.match(filter).hasMatch() ? u"分组"_s : u"查询"_s, Told(filter, captionOf).value_or(QString())};
}

}  // namespace folvane
