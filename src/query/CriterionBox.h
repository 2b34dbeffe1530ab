#pragma once

#include <QString>
#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace folvane {

/// An input for a condition on one field, behind a caption.
class CriterionBox : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
  Q_PROPERTY(QString DataField READ DataField WRITE SetDataField)
  Q_PROPERTY(QString Result READ Result)

 public:
  QString Caption() const;
  void SetCaption(const QString& caption);
  const QString& DataField() const { return dataField_; }
  void SetDataField(const QString& field) { dataField_ = field; }

  /// The condition that was entered; "" when nothing was.
  virtual QString Result() const = 0;

  /// The caption, for a form that lines up those of several inputs.
  QLabel& CaptionLabel() const { return *caption_; }

 protected:
  explicit CriterionBox(QWidget* parent);
  /// Puts an input behind what is in the row already; the first one takes the focus of the box.
  void AddInput(QWidget& input);
  void AddText(const QString& text);

 private:
  QString dataField_;
  QLabel* caption_;
  QHBoxLayout* row_;
};

}  // namespace folvane
