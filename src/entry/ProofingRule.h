#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "catalogue/QueryRows.h"

namespace folvane {

/// A proofing rule that a text breaks: the message, and whether the text is cleared so that the user starts anew.
struct RuleBreach {
  QString title, text;
  bool clears = false;
};

/// The relations of proofing rules, as a list offers them.
QStringList ProofingRelations();

/// What a rule of a relation can be compared with by a keyword; empty where a value is typed.
QStringList ProofingKeywords(const QString& relation);

/// The keyword that compares with the pattern of the rule.
inline const QString kCustomFormat = QStringLiteral("自定义格式");

/// Whether a text breaks a rule. An empty text breaks none.
/// @param isDuplicate tells whether another record holds the same text; asked only where the rule forbids that
/// @throws NumberError, PatternError when the comparison cannot be made
std::optional<RuleBreach> TestRule(const ProofingRuleRow& rule, const QString& text,
                                   const std::function<bool()>& isDuplicate);

}  // namespace folvane
