#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QToolButton;

namespace folvane {

/// The line above the record list that tells what limits it: the year, group or query in force with a key that lifts
/// it, and the rights of the user, which nobody can lift.
class FilterBar : public QWidget {
 public:
  explicit FilterBar(QWidget* parent = nullptr);

  /// @param filter kind and words of the condition in force, "" for none
  /// @param rights the rights that limit the list in words, "" where they do not
  /// @param all    what the list shows without any limit
  void ShowLimits(const QString& filter, const QString& rights, const QString& all = QStringLiteral("全部记录"));
  /// Shows nothing, for no table is in view.
  void Clear();
  /// What a press of the lifting key runs.
  void OnLift(std::function<void()> handler);

 private:
  QLabel* note_;
  QToolButton* lift_;
  QLabel* rights_;
};

}  // namespace folvane
