#pragma once

#include <QDialog>
#include <QTemporaryDir>

#include "components/scanning/ScanThread.h"

class QAction;
class QComboBox;
class QLabel;
class QLayout;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QToolBar;
class QToolButton;

namespace folvane::scanning {

class PageList;
class PagePreview;

/// Scans pages, shows them as they come, and makes files of those that are kept.
class FrmScan : public QDialog {
 public:
  FrmScan(QWidget* parent, const QString& directory);
  /// The files that were made; none when the window was cancelled.
  const std::vector<ScannedFile>& Files() const { return files_; }

  void reject() override;

 private:
  void LayOut();
  QLayout* NewSettings();
  QLayout* NewScanKeys();
  QToolBar* NewPageBar();
  QLayout* NewKeepRow();
  void Connect();

  // The scanner.
  void ListDevices();
  void TakeDevices(const QList<ScannerInfo>& scanners);
  void ReadChoices(const QString& source = {});
  void TakeChoices(const ScannerChoices& choices);
  ScanSettings Chosen() const;
  void Scan(bool all);
  void TakePage(const ScannedPage& page, const QImage& preview);
  void TellProgress(int percent);
  void TakeEnd(const QString& why);

  // The pages.
  void ShowCurrent();
  void Keep();
  void Say(const QString& text);
  void EnableKeys();

  const QString directory_;
  const QTemporaryDir pagesFolder_;
  std::vector<ScannedFile> files_;
  int jobs_ = 0;  ///< that the thread has not finished
  bool isScanning_ = false;

  QComboBox *device_, *source_, *mode_, *resolution_, *paper_, *keepAs_;
  QToolButton* refresh_;
  QPushButton *scan_, *scanAll_, *stop_, *ok_, *cancel_;
  QProgressBar* progress_;
  QLabel* state_;
  PageList* pages_;
  PagePreview* preview_;
  QLineEdit* name_;
  QList<QAction*> pageKeys_;

  ScanThread thread_;  // last: nothing is told to a window that is half gone
};

}  // namespace folvane::scanning
