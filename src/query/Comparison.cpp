#include "query/Comparison.h"

#include <vector>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

struct Term {
  QString word, sql;
};

const std::vector<Term>& Comparisons() {
  static const std::vector<Term> terms{
      {u"等于"_s, u"="_s},      {u"大于"_s, u">"_s},    {u"大于等于"_s, u">="_s}, {u"小于"_s, u"<"_s},
      {u"小于等于"_s, u"<="_s}, {u"不等于"_s, u"<>"_s}, {u"包含"_s, u"Like"_s},   {u"不包含"_s, u"Not Like"_s},
  };
  return terms;
}

const std::vector<Term>& Connectors() {
  static const std::vector<Term> terms{{u"与"_s, u"and"_s}, {u"或"_s, u"or"_s}};
  return terms;
}

QStringList WordsOf(const std::vector<Term>& terms) {
  QStringList words;
  for (const Term& term : terms) words << term.word;
  return words;
}

QString SqlOf(const std::vector<Term>& terms, const QString& word) {
  for (const Term& term : terms) {
    if (term.word == word) return term.sql;
  }
  return {};
}

}  // namespace

const QStringList& ComparisonWords() {
  static const QStringList words = WordsOf(Comparisons());
  return words;
}

QString ComparisonOperator(const QString& word) { return SqlOf(Comparisons(), word); }

bool IsPatternOperator(const QString& comparison) { return comparison == u"Like" || comparison == u"Not Like"; }

const QStringList& ConnectorWords() {
  static const QStringList words = WordsOf(Connectors());
  return words;
}

QString Connector(const QString& word) { return SqlOf(Connectors(), word); }

}  // namespace folvane
