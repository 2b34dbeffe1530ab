#pragma once

#include <QAbstractButton>

namespace folvane::host {

/// A card to press: a picture, a title, a line that explains it and the keys that press it too. One that is not enabled
/// says in place of the keys why not.
class EntryButton : public QAbstractButton {
 public:
  EntryButton(const QIcon& icon, const QString& title, const QString& line, const QKeySequence& keys,
              QWidget* parent = nullptr);

  /// Takes the card out of use, for the reason given in a few words.
  void Disable(const QString& reason);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent*) override;
  bool event(QEvent* event) override;

 private:
  QFont TitleFont() const;
  QString Corner() const;
  void DrawCard(QPainter& painter) const;
  void DrawTexts(QPainter& painter) const;

  QString line_;
};

}  // namespace folvane::host
