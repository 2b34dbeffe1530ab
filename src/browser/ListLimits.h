#pragma once

#include <QString>

#include "browser/BrowserParts.h"

namespace folvane {

/// The condition of the list by its kind and in words, such as "年度：2026"; "" for none.
QString FilterText(const BrowserParts& parts);

/// The user's rights in words where they limit the list, "" where they do not.
QString LimitingRights(const BrowserParts& parts);

/// What the user of a list without anything to see can do next, "" for a list that has rows to show.
QString EmptyListHint(const BrowserParts& parts);

}  // namespace folvane
