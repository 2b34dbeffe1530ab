#pragma once

#include <QString>
#include <QStringList>
#include <algorithm>
#include <vector>

namespace folvane::transfer {

/// How much is wrong. In the order of their weight.
enum class Severity {
  None,
  Note,     ///< worth knowing
  Warning,  ///< a value may be cut, asked about or lost
  Error,    ///< a transfer fails, or the row is of no use
};

/// Something that was found in the settings, in words for the user.
struct Finding {
  Severity severity = Severity::None;
  QString text;
};

using Findings = std::vector<Finding>;

inline Severity WorstOf(const Findings& findings) {
  Severity worst = Severity::None;
  for (const Finding& finding : findings) worst = std::max(worst, finding.severity);
  return worst;
}

/// All of them in one line, the gravest first.
inline QString TextOf(Findings findings) {
  std::stable_sort(findings.begin(), findings.end(),
                   [](const Finding& one, const Finding& other) { return one.severity > other.severity; });
  QStringList texts;
  for (const Finding& finding : findings) texts << finding.text;
  return texts.join(u'；');
}

}  // namespace folvane::transfer
