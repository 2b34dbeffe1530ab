#pragma once

#include <QLine>
#include <QWidget>
#include <utility>
#include <vector>

namespace folvane::designer {

/// A point of a control that can be pulled, and which of its edges follow: -1 the left or upper one, 1 the other.
struct SizeHandle {
  QRect rect;
  int across = 0, down = 0;
};

/// @param isOneLine has a width alone
std::vector<SizeHandle> SizeHandles(const QRect& box, bool isOneLine);

/// What is drawn over the controls of a form that is being arranged, in pixels.
class FormMarks : public QWidget {
 public:
  struct Chosen {
    QRect box;
    bool isOneLine = false, isCurrent = false;
  };
  struct Number {
    QRect box;
    int number = 0;
    bool isGiven = false;
  };
  struct Shapes {
    std::vector<Chosen> chosen;
    std::vector<QRect> troubles;
    std::vector<Number> numbers;
    std::vector<QLine> guides;
    QRect band;
    QString hint;
    bool isActive = false;  ///< keys go to the form
  };

  explicit FormMarks(QWidget* parent);
  void Show(Shapes shapes);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintChosen(QPainter& painter) const;
  void PaintNumbers(QPainter& painter) const;
  void PaintLines(QPainter& painter) const;

  Shapes shapes_;
};

}  // namespace folvane::designer
