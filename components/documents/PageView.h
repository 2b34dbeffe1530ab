#pragma once

#include <QAbstractScrollArea>
#include <functional>

#include "components/documents/PageLoader.h"

namespace folvane::documents {

/// Shows one page in the middle of its room, with scroll bars where it is larger.
class PageView : public QAbstractScrollArea {
 public:
  explicit PageView(QWidget* parent);

  /// What the user asks for by keyboard and mouse.
  std::function<void(int pages)> turnBy;
  std::function<void(bool toLast)> turnToEnd;
  std::function<void(bool larger)> zoom;
  std::function<void()> resized;

  /// @param fromEnd a page that was turned back to is shown at its lower end
  void Show(const DrawnPage& page, bool fromEnd);
  void Clear();
  /// What is shown, null for nothing.
  const QImage& Shown() const { return page_.image; }
  /// The room for a page that is fitted in that way, in pixels.
  QSize Room(Zoom::Fit fit) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void SetRanges();
  void ScrollOrTurn(int direction);
  QRect PageRect() const;

  DrawnPage page_;
  QPoint dragged_;
};

}  // namespace folvane::documents
