#pragma once

#include <QDialog>
#include <QString>

class QLineEdit;

namespace folvane {

/// Asks for the pattern of a proofing rule.
class FrmCustomFormat : public QDialog {
 public:
  FrmCustomFormat();

  QString ReturnStr;  ///< the pattern; "" when the window was cancelled

  /// Shows the window modally with a pattern to begin with.
  void Open(const QString& pattern);

 private:
  void LayOut();
  void TakePattern();

  QLineEdit* format_;
};

}  // namespace folvane
