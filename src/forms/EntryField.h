#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <QWidget>
#include <memory>
#include <vector>

#include "forms/EntryLayout.h"
#include "widgets/TypingGate.h"

namespace folvane {

/// What a field is made from.
struct FieldSpec {
  int controlType = 0;
  int index = 0;
  QString dataField;
  QString fieldType;
  QString caption;     ///< the name that messages use
  QString limitText;   ///< the hint on its length, "" for none
  QString dictionary;  ///< that fills its list, as an expression; "" for none
};

/// One field of a form: a control of any kind behind one face. Its control is named "Txt(3)" and carries the dynamic
/// properties DataField and Tag, the caption.
class EntryField : public QObject {
  Q_OBJECT

 public:
  ~EntryField() override;

  int ControlType() const { return spec_.controlType; }
  int Index() const { return spec_.index; }
  const QString& DataField() const { return spec_.dataField; }
  const QString& Caption() const { return spec_.caption; }
  const QString& LimitText() const { return spec_.limitText; }
  /// The control: it has the focus and gets the keys.
  QWidget& Widget() const { return *widget_; }

  virtual QString Text() const = 0;
  /// Shows a text, silently.
  virtual void SetText(const QString& text) = 0;
  /// Shows what a record holds, silently; in the field's display format, which changes nothing in the record.
  void Show(const QString& stored);
  /// Whether the text is the one that Show made of the record's value: nothing else has been typed or set since.
  bool IsAsShown() const { return Text() == shown_; }
  /// The value that a record is given for what the field shows.
  virtual QVariant Value() const { return Text(); }
  /// Makes text count that is still being typed.
  virtual void Commit() {}
  /// Whether an input method has text in hand that is not yet committed.
  virtual bool IsComposing() const = 0;
  /// Has what is typed or committed by an input method pass through the function before it goes in.
  virtual void SetAdmission(TypingGate::Admission admission) = 0;
  virtual void SelectAll() = 0;
  virtual void CaretToEnd() = 0;

  /// Gives the control the focus, in a window that is not active as soon as it is.
  void Focus();

 Q_SIGNALS:
  /// The user has changed the text; once for each change.
  void Changed();
  /// The user is typing what does not count yet, such as the first half of a date.
  void Typing();
  /// An input method has put text in.
  void TextCommitted();
  void Entered();
  /// The focus has gone to another control of the window, not only to a list or another window.
  void Left();

 protected:
  /// Takes the control, which goes with the field.
  EntryField(FieldSpec spec, QWidget* widget);
  virtual void ShowStored(const QString& stored) { SetText(stored); }

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;

  FieldSpec spec_;
  QPointer<QWidget> widget_;
  QString shown_;
};

/// Makes the field of a kind, its control hidden in the parent. Null for a kind that is not built.
/// @throws DataError when the list of a dictionary cannot be read
std::unique_ptr<EntryField> NewField(const FieldSpec& spec, QWidget* parent);

/// What fields show at the moment, in their order.
ShownFields ShownOf(const std::vector<std::unique_ptr<EntryField>>& fields);

/// The name of an array of controls, "Txt"; "" for a kind that is not built.
QString ControlArrayName(int controlType);

/// The name of one control of an array, "Txt(3)".
QString ControlName(const QString& array, int index);

}  // namespace folvane
