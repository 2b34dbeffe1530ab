#pragma once

#include <QByteArrayView>
#include <vector>

namespace folvane {

/// A Like pattern of the T-SQL language, taken apart once and matched against many texts, all in UTF-8. ASCII letters
/// match without regard to case; blanks at a text's end that the pattern does not ask for are passed over. A bracket
/// that is never closed lets nothing match.
/// https://learn.microsoft.com/sql/t-sql/language-elements/like-transact-sql
class LikeMatcher {
 public:
  /// @param escape the sign behind which the next one stands for itself, 0 for none
  explicit LikeMatcher(QByteArrayView pattern, char32_t escape = 0);
  bool Matches(QByteArrayView text) const;

 private:
  struct Range {
    char32_t low, high;
  };
  struct Part {
    enum Kind { Sign, Any, Run, Class, Nothing } kind;
    char32_t sign = 0;
    bool negated = false;
    std::vector<Range> ranges;
  };

  static bool MatchesOne(const Part& part, char32_t sign);
  void ReadClass(const char*& at, const char* end);

  std::vector<Part> parts_;
};

}  // namespace folvane
