#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "catalogue/QueryRows.h"
#include "forms/EntryLayout.h"

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

/// A broken rule, and the field that breaks it.
struct BrokenRule {
  RuleBreach breach;
  ControlId control;
  QString field;
};

/// Tests the rules of a table one after the other against what its entry form shows, and gives the first that is
/// broken. A rule whose control the form does not have is passed over, and so is one that cannot be tested, whatever
/// the reason.
/// @param fondsNo the fonds number of the record: a value may then stand once in each fonds; "" where it may stand
///                only once in the table
std::optional<BrokenRule> FirstBrokenRule(const QString& table, const QString& fondsNo, const ShownFields& fields);

}  // namespace folvane
