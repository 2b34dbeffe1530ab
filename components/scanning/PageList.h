#pragma once

#include <QListWidget>
#include <functional>

#include "components/scanning/KeptPages.h"

namespace folvane::scanning {

/// The pages that were scanned, as small pictures in their order. They can be dragged into another one.
class PageList : public QListWidget {
 public:
  explicit PageList(QWidget* parent);

  std::function<void()> changed;  ///< pages, their order, or which one is current

  void Add(const ScannedPage& page, const QImage& preview);
  void DropSelected();
  void TurnSelected(int quarters);
  /// Moves the current page one place to the front or to the end.
  void MoveCurrent(int places);

  QList<ScannedPage> Pages() const;
  /// The current page, turned; null without one.
  QImage Preview() const;

 protected:
  void dropEvent(QDropEvent* event) override;

 private:
  void Number();
};

}  // namespace folvane::scanning
