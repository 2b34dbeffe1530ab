#pragma once

#include <QWidget>

#include "designer/RowCondition.h"

class QComboBox;
class QToolButton;

namespace folvane::designer {

/// A line of a condition as it is put together: field, relation and value, what ties it to the line above, and
/// brackets.
class ConditionRow : public QWidget {
  Q_OBJECT

 public:
  /// @param design whose dictionaries offer values; outlives the row, as the table does
  ConditionRow(const Design& design, const Design::Table& table, QWidget* parent);

  ConditionLine Line() const;
  void Show(const ConditionLine& line);
  /// @param number from 1; names the boxes, "CmbField1", and the first has nothing above it
  void SetNumber(int number);

 Q_SIGNALS:
  void Changed();
  void RemovalAsked();

 private:
  QComboBox* NewBox(const QStringList& items, const QString& caption, int stretch);
  void OfferValues();

  const Design& design_;
  const Design::Table& table_;
  QComboBox *join_, *opens_, *field_, *relation_, *value_, *closes_;
  QToolButton* remove_;
};

}  // namespace folvane::designer
