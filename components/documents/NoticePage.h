#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace folvane::documents {

/// Stands in the place of the pages when there are none to show: says why, and offers what can be done.
class NoticePage : public QWidget {
 public:
  struct Offers {
    bool retry = false, password = false, open = false, save = false;
  };
  explicit NoticePage(QWidget* parent);

  std::function<void()> retry, open, save;
  std::function<void(const QString&)> unlock;

  void Say(const QString& text, const Offers& offers);

 private:
  QLabel* text_;
  QWidget* passwordRow_;
  QLineEdit* password_;
  QPushButton *retry_, *open_, *save_;
};

}  // namespace folvane::documents
