#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "designer/FormItems.h"
#include "forms/EntryField.h"

class QLabel;

namespace folvane {
class TwipScale;
}

namespace folvane::designer {

/// An entry form as it looks, with the controls themselves; they take neither mouse nor keys.
class FormSheet : public QWidget {
 public:
  explicit FormSheet(QWidget* parent);
  ~FormSheet() override;

  /// @param frame around the controls, null for none
  void Show(std::vector<FormItem> items, const Design::Control* frame);
  const std::vector<FormItem>& Items() const { return items_; }
  /// Where the control of an item stands, and the same with its caption.
  QRect BoxOf(std::size_t item) const;
  QRect ReachOf(std::size_t item) const;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  struct Built;
  void Build();
  void PutAllInPlace();

  std::vector<FormItem> items_;
  std::vector<Built> built_;
  QRect frame_;  ///< twips
};

}  // namespace folvane::designer
