#pragma once

#include <QObject>

#include "forms/EntryField.h"

class QLineEdit;

namespace folvane {

/// The box of one line of a text field or combo box; nullptr for a field of another kind.
QLineEdit* LineOf(const EntryField& field);

/// Keeps what is pasted into a field of one line on one line, where its breaks would be stored and not be seen: those
/// at its end go, the others become blanks. What a record holds stays as it is shown.
class LineGuard : public QObject {
 public:
  /// Lives as long as the field. @param line of the field
  LineGuard(EntryField& field, QLineEdit& line);

 private:
  void Check(const QString& text);

  QLineEdit& line_;
  QString before_;  ///< what stood there before the edit that is being told
};

}  // namespace folvane
