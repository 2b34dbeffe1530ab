#pragma once

#include <QList>
#include <QString>
#include <QWidget>
#include <utility>

class QHBoxLayout;
class QLabel;

namespace folvane {

class TextBox;

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
  /// @param part what to call it behind the caption, where there are several
  void AddInput(QWidget& input, const QString& part = {});
  void AddText(const QString& text);

 private:
  QString dataField_;
  QList<std::pair<QWidget*, QString>> inputs_;
  QLabel* caption_;
  QHBoxLayout* row_;
};

/// A text box whose condition is that the field contains the text. The condition leaves the table's name to the form.
/// Its property `text` is what was typed.
class LikeCriterionBox : public CriterionBox {
  Q_OBJECT
  Q_PROPERTY(QString text READ Text WRITE SetText)

 public:
  explicit LikeCriterionBox(QWidget* parent = nullptr);

  QString Result() const override;
  QString Text() const;
  void SetText(const QString& text);

 private:
  TextBox* text_;
};

/// Two text boxes, Begin and End, for the limits of a field that holds numbers or dates; one of them is enough. The
/// condition stands by itself in brackets.
class RangeCriterionBox : public CriterionBox {
  Q_OBJECT

 public:
  explicit RangeCriterionBox(QWidget* parent = nullptr);

  QString Result() const override;

 private:
  TextBox* NewLimit(const QString& name, const QString& tip);

  TextBox *begin_, *end_;
};

}  // namespace folvane
