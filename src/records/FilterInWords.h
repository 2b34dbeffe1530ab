#pragma once

#include <QString>
#include <functional>

namespace folvane {

/// The condition of a list as its user reads it; both texts are empty for no condition.
struct FilterInWords {
  QString kind;   ///< 年度, 分组 or 查询
  QString words;  ///< "" where the condition has a form that cannot be told in words
};

/// Tells a condition as tree nodes, the search bar and the query windows compose it.
/// @param captionOf gives a field's caption; "" leaves the field's own name
FilterInWords InWords(const QString& filter, const std::function<QString(const QString& field)>& captionOf);

}  // namespace folvane
