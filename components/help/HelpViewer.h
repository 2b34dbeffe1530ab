#pragma once

#include <QString>
#include <QWidget>

class QTextBrowser;

namespace folvane {

/// The window that shows the topics of one help file. It belongs to the window that asked for help, stays usable while
/// that one is modal, and goes with it.
class HelpViewer : public QWidget {
  Q_OBJECT

 public:
  HelpViewer(QWidget* owner, const QString& file);
  ~HelpViewer() override;

  /// Whether it was made for this window and this file.
  bool Serves(const QWidget* owner, const QString& file) const;
  void ShowTopic(const QString& topic);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void LayOut();

  QString file_;
  bool registered_;  ///< the file is a help file, and its pages can be read
  QTextBrowser* browser_;
};

/// Shows a topic in the one help window, beside the owner.
void ShowHelp(QWidget* owner, const QString& file, const QString& topic);

}  // namespace folvane
