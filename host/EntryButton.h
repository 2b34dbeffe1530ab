#pragma once

#include <QAbstractButton>

namespace folvane::host {

/// A card to press: a picture, a title, a line that explains it and the keys that press it too.
class EntryButton : public QAbstractButton {
 public:
  EntryButton(const QIcon& icon, const QString& title, const QString& line, const QKeySequence& keys,
              QWidget* parent = nullptr);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent*) override;
  bool event(QEvent* event) override;

 private:
  QFont TitleFont() const;
  QString Keys() const;
  void DrawCard(QPainter& painter) const;
  void DrawTexts(QPainter& painter) const;

  QString line_;
};

}  // namespace folvane::host
