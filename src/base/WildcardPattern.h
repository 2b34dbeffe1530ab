#pragma once

#include <QString>
#include <QStringView>
#include <variant>
#include <vector>

#include <folvane/DataError.h>

namespace folvane {

/// A pattern that cannot be read.
class PatternError : public DataError {
 public:
  explicit PatternError(const QString& message) : DataError(DataErrorKind::Conversion, message) {}
};

/// A pattern of the match operator, compared with a whole text by character code, so that case counts.
///
/// `?` is any one character, `*` any number of them, `#` one digit 0 to 9, `[list]` one character of the list and
/// `[!list]` one that is not in it. In a list stand characters and ascending ranges such as `a-f`; a hyphen at either
/// end of it stands for itself, and so do `?`, `*`, `#` and `[`. `[]` is no character at all, `[!]` an exclamation
/// mark, and
/// `]` outside a list stands for itself.
class WildcardPattern {
 public:
  /// @throws PatternError for a list that is not closed, a descending range, a hyphen that joins nothing
  explicit WildcardPattern(QStringView pattern);

  bool Matches(QStringView text) const;

 private:
  struct Range {
    char16_t first, last;
  };
  struct OneOf {
    bool negated = false;
    std::vector<Range> ranges;
  };
  struct AnyRun {};
  using Element = std::variant<OneOf, AnyRun>;

  static OneOf Any() { return {true, {}}; }
  static OneOf Only(char16_t first, char16_t last) { return {false, {{first, last}}}; }
  static bool Accepts(const OneOf& set, QChar letter);
  void AddList(QStringView list);

  std::vector<Element> elements_;
};

}  // namespace folvane
