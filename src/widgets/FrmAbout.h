#pragma once

#include <QDialog>

namespace folvane {

/// What the system is: a picture and a link to its help.
class FrmAbout : public QDialog {
 public:
  FrmAbout();
};

}  // namespace folvane
