#pragma once

#include <QWidget>
#include <array>

#include "designer/FormItems.h"

class QComboBox;
class QLabel;

namespace folvane {
class NumberBox;
}

namespace folvane::designer {

/// The line under a form that tells what is selected on it, and takes its kind and its measures.
class FormFoot : public QWidget {
  Q_OBJECT

 public:
  using Measure = int Design::Control::*;

  explicit FormFoot(QWidget* parent);

  /// @param item that is current, null for none; its kind and measures are shown
  /// @param field of the item, null where the table has none
  void Show(const QString& words, const FormItem* item, const Design::Field* field);

 Q_SIGNALS:
  void MeasureSet(Measure measure, int value);
  void KindSet(int type);

 private:
  void ShowKinds(const FormItem* item, const Design::Field* field);

  QLabel* words_;
  QComboBox* kind_;
  std::array<NumberBox*, 4> measures_;
};

}  // namespace folvane::designer
