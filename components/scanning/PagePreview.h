#pragma once

#include <QImage>
#include <QWidget>

namespace folvane::scanning {

/// Shows a page as large as there is room.
class PagePreview : public QWidget {
 public:
  explicit PagePreview(QWidget* parent);
  void Show(const QImage& page);
  const QImage& Shown() const { return page_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QImage page_;
};

}  // namespace folvane::scanning
