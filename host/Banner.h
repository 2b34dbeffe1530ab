#pragma once

#include <QString>
#include <QWidget>

namespace folvane::host {

/// The coloured field beside a form: the program's picture, its name and a line below.
class Banner : public QWidget {
 public:
  Banner(const QString& title, const QString& line, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent*) override;
};

}  // namespace folvane::host
