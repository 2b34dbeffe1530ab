#pragma once

#include <QStringList>
#include <algorithm>
#include <vector>

#include <folvane/DataError.h>

#include "design/Shape.h"

// Fields and tables as lists to choose from show them.
namespace folvane::designer {

/// "题名 Amaintitle", or the name alone where there is no caption.
template <class Thing>
QString LabelOf(const Thing& thing) {
  return thing.caption.isEmpty() || thing.caption == thing.name ? thing.name : thing.caption + u' ' + thing.name;
}

template <class Thing>
QStringList LabelsOf(const std::vector<Thing>& things) {
  QStringList labels;
  for (const Thing& thing : things) labels << LabelOf(thing);
  return labels;
}

/// That of the thing of a name; the name itself where there is none.
template <class Thing>
QString LabelFor(const std::vector<Thing>& things, const QString& name) {
  const Thing* found = design::FindNamed(things, name);
  return found ? LabelOf(*found) : name;
}

/// The thing that a label, a name or a caption means. @throws DataError Usage where there is none
template <class Thing>
const Thing& LabelledBy(const std::vector<Thing>& things, const QString& text) {
  const QString label = text.trimmed();
  for (const auto fits : {+[](const Thing&thing, const QString&sought) { return LabelOf(thing) == sought; },
                          +[](const Thing&thing, const QString&sought) { return design::IsSame(thing.name, sought); },
                          +[](const Thing&thing, const QString&sought) { return thing.caption == sought; }}) {
    const auto found = std::find_if(things.begin(), things.end(), [&](const Thing& each) { return fits(each, label); });
    if (found != things.end()) return *found;
  }
  throw DataError(DataErrorKind::Usage, QStringLiteral("设计中没有“%1”。").arg(label));
}

}  // namespace folvane::designer
