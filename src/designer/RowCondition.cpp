#include "designer/RowCondition.h"

#include <folvane/DataError.h>

#include "data/dialect/Tokenizer.h"
#include "design/PhysicalTables.h"
#include "design/Shape.h"
#include "query/Comparison.h"
#include "query/ConditionCheck.h"
#include "shell/SqlText.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kBegins = u"开头为"_s, kEmpty = u"为空"_s, kNotEmpty = u"不为空"_s;

QString Literal(const QString& text) { return u'\'' + EscapeSql(text) + u'\''; }

// A bracket means itself; the signs for any characters keep their meaning.
QString EscapedPattern(const QString& text) { return QString(text).replace(u'[', u"[[]"_s); }

// Numbers and dates are empty only as nulls.
bool IsTextField(const Design::Table& table, const QString& name) {
  const Design::Field* field = design::FindNamed(table.fields, name);
  const ColumnType type = field ? design::ColumnOf(*field).type : ColumnType::Text;
  return type != ColumnType::Integer && type != ColumnType::Date;
}

QString Compared(const ConditionLine& line, const Design::Table& table) {
  const QString subject = table.name + u'.' + line.field;
  const bool isText = IsTextField(table, line.field);
  if (line.relation == kEmpty) return isText ? u"(%1 Is Null Or %1 = '')"_s.arg(subject) : subject + u" Is Null"_s;
  if (line.relation == kNotEmpty) return subject + (isText ? u" <> ''"_s : u" Is Not Null"_s);
  const QString pattern = EscapedPattern(line.value) + u'%';
  if (line.relation == kBegins) return subject + u" Like "_s + Literal(pattern);
  const QString comparison = ComparisonOperator(line.relation);
  const QString value = Literal(IsPatternOperator(comparison) ? u'%' + pattern : line.value);
  return subject + u' ' + comparison + u' ' + value;
}

QString Told(const ConditionLine& line, const Design::Table& table) {
  const Design::Field* field = design::FindNamed(table.fields, line.field);
  const QString caption = field && !field->caption.isEmpty() ? field->caption : line.field;
  return caption + u' ' + line.relation + (TakesValue(line.relation) ? u' ' + line.value : QString());
}

template <class Tell>
QString Joined(const RowCondition& condition, const QString& both, const QString& either, const Tell& tell) {
  QString text;
  for (const ConditionLine& line : condition) {
    if (!text.isEmpty()) text += u' ' + (line.isOr ? either : both) + u' ';
    text += QString(line.opens, u'(') + tell(line) + QString(line.closes, u')');
  }
  return text;
}

QString FlawOfLine(const ConditionLine& line, const transfer::BusinessTable& columns) {
  if (line.field.isEmpty()) return u"没有选择字段"_s;
  const transfer::TableField* field = columns.Find(line.field);
  if (!field) return u"表中没有字段“%1”"_s.arg(line.field);
  if (!RelationWords().contains(line.relation)) return u"没有选择比较关系"_s;
  if (!TakesValue(line.relation)) return {};
  if (line.value.isEmpty()) return u"“%1”没有填写比较值"_s.arg(field->Word());
  if (line.relation == kBegins || IsPatternOperator(ComparisonOperator(line.relation))) return {};
  return FlawOfValue(line.value, field->adoType);
}

/// Takes a condition apart; gives nothing as soon as it has another form.
class LineReader {
 public:
  LineReader(const QString& sql, const Design::Table& table) : tokens_(sql::Tokenize(sql)), table_(table) {}

  std::optional<RowCondition> Read() {
    RowCondition lines;
    for (int depth = 0;;) {
      ConditionLine line;
      line.isOr = isOr_;
      while (!ReadEmptiness(line) && TakeSign("("_L1)) ++line.opens;
      if (line.field.isEmpty() && !ReadComparison(line)) return {};
      while (TakeSign(")"_L1)) ++line.closes;
      depth += line.opens - line.closes;
      lines.push_back(line);
      if (depth < 0) return {};
      if (Peek().kind == sql::TokenKind::End) return depth == 0 ? std::optional(lines) : std::nullopt;
      isOr_ = TakeWord("or"_L1);
      if (!isOr_ && !TakeWord("and"_L1)) return {};
    }
  }

 private:
  const sql::Token& Peek() const { return tokens_[at_]; }
  bool Take(bool fits) {
    if (fits) ++at_;
    return fits;
  }
  bool TakeSign(QLatin1String sign) { return Take(Peek().IsSign(sign)); }
  bool TakeWord(QLatin1String word) { return Take(Peek().IsWord(word)); }

  // A field of the table, with the table's name in front or without; "" for anything else.
  QString Subject() {
    const auto isName = [this] { return Peek().kind == sql::TokenKind::Word || Peek().kind == sql::TokenKind::Quoted; };
    if (!isName()) return {};
    QString name = tokens_[at_++].text;
    if (TakeSign("."_L1)) {
      if (!design::IsSame(name, table_.name) || !isName()) return {};
      name = tokens_[at_++].text;
    }
    const Design::Field* field = design::FindNamed(table_.fields, name);
    return field ? field->name : QString();
  }

  // (F Is Null Or F = ''), in either order. Where it is none, nothing is taken.
  bool ReadEmptiness(ConditionLine& line) {
    const std::size_t start = at_;
    const auto half = [this](ConditionLine& read) { return ReadComparison(read) && read.relation == kEmpty; };
    ConditionLine one, other;
    if (TakeSign("("_L1) && half(one) && TakeWord("or"_L1) && half(other) && one.field == other.field &&
        TakeSign(")"_L1)) {
      line.field = one.field;
      line.relation = kEmpty;
      return true;
    }
    at_ = start;
    return false;
  }

  bool ReadComparison(ConditionLine& line) {
    line.field = Subject();
    if (line.field.isEmpty()) return false;
    if (TakeWord("is"_L1)) {
      line.relation = TakeWord("not"_L1) ? kNotEmpty : kEmpty;
      return TakeWord("null"_L1);
    }
    const bool isNegated = TakeWord("not"_L1);
    if (TakeWord("like"_L1)) return ReadPattern(line, isNegated);
    for (const QString& word : ComparisonWords())
      if (!IsPatternOperator(ComparisonOperator(word)) && Peek().text == ComparisonOperator(word)) line.relation = word;
    if (isNegated || line.relation.isEmpty() || Peek().kind != sql::TokenKind::Sign) return false;
    ++at_;
    if (Peek().kind != sql::TokenKind::Text && Peek().kind != sql::TokenKind::Number) return false;
    line.value = tokens_[at_++].text;
    if (!line.value.isEmpty()) return true;
    line.relation = line.relation == u"等于" ? kEmpty : line.relation == u"不等于" ? kNotEmpty : QString();
    return !line.relation.isEmpty();
  }

  bool ReadPattern(ConditionLine& line, bool isNegated) {
    if (Peek().kind != sql::TokenKind::Text || !Peek().text.endsWith(u'%')) return false;
    QString pattern = tokens_[at_++].text.chopped(1);
    const bool isAnywhere = pattern.startsWith(u'%');
    if (!isAnywhere && isNegated) return false;
    if (isAnywhere) pattern = pattern.mid(1);
    line.relation = !isAnywhere ? kBegins : isNegated ? u"不包含"_s : u"包含"_s;
    line.value = QString(pattern).replace(u"[[]"_s, u"["_s);
    return !line.value.isEmpty() && EscapedPattern(line.value) == pattern;  // no classes of characters
  }

  std::vector<sql::Token> tokens_;
  const Design::Table& table_;
  std::size_t at_ = 0;
  bool isOr_ = false;
};

}  // namespace

const QStringList& RelationWords() {
  static const QStringList words = ComparisonWords() + QStringList{kBegins, kEmpty, kNotEmpty};
  return words;
}

bool TakesValue(const QString& relation) { return relation != kEmpty && relation != kNotEmpty; }

QString SqlOf(const RowCondition& condition, const Design::Table& table) {
  return Joined(condition, u"And"_s, u"Or"_s, [&](const ConditionLine& line) { return Compared(line, table); });
}

QString WordsOf(const RowCondition& condition, const Design::Table& table) {
  return Joined(condition, u"与"_s, u"或"_s, [&](const ConditionLine& line) { return Told(line, table); });
}

std::optional<RowCondition> LinesOf(const QString& sql, const Design::Table& table) {
  if (sql.trimmed().isEmpty()) return RowCondition();
  try {
    return LineReader(sql, table).Read();
  } catch (const DataError&) {
    return {};  // no condition of any form
  }
}

QString ConditionShown(const QString& sql, const Design::Table& table) {
  const std::optional<RowCondition> lines = LinesOf(sql, table);
  return lines ? WordsOf(*lines, table) : sql;
}

QString FlawOf(const RowCondition& condition, const transfer::BusinessTable& columns) {
  int depth = 0;
  for (std::size_t at = 0; at < condition.size(); ++at) {
    const ConditionLine& line = condition[at];
    if (const QString flaw = FlawOfLine(line, columns); !flaw.isEmpty()) return u"第 %1 行："_s.arg(at + 1) + flaw;
    depth += line.opens - line.closes;
    if (depth < 0) return u"第 %1 行：右括号多了"_s.arg(at + 1);
  }
  return depth > 0 ? u"少了 %1 个右括号"_s.arg(depth) : QString();
}

}  // namespace folvane::designer
