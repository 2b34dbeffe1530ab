#pragma once

#include <QDialog>
#include <QString>

namespace folvane {

class TextBox;

/// Asks for the title of a new volume. What is typed goes in full-width, blanks not at all. Used through LoadedWindow
/// and shown by ShowModal; whoever showed it reads Title.
class FrmInAmain : public QDialog {
 public:
  FrmInAmain();

  QString Title;  ///< "" when the window was closed without one

 private:
  void LayOut();
  void TakeTitle();

  TextBox* title_;
};

}  // namespace folvane
