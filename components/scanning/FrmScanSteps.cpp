#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QToolButton>

#include "components/common/Notice.h"
#include "components/common/PlainTip.h"
#include "components/scanning/FrmScan.h"
#include "components/scanning/PageList.h"
#include "components/scanning/PagePreview.h"
#include "components/scanning/ScanMemory.h"
#include "components/scanning/ScanWords.h"

namespace folvane::scanning {
namespace {
using namespace Qt::Literals::StringLiterals;
using notices::Guarded;

// What a driver of a scanner without resolutions of its own is given.
constexpr int kUsualResolution = 300;

const QString kNoDevice =
    u"没有找到扫描仪。请检查：\n"
    u"1. 扫描仪的电源是否打开，连接线是否插好；\n"
    u"2. 网络扫描仪与本机是否在同一网络中；\n"
    u"3. 是否安装了扫描仪的驱动程序 (SANE)；\n"
    u"4. 当前用户是否有使用扫描仪的权限 (scanner 组)。\n"
    u"然后按“重新查找扫描仪”(F5)。"_s;

// Fills a box; the remembered choice is taken where it is offered, otherwise the scanner's own.
void Fill(QComboBox& box, const QStringList& words, QString (*inWords)(const QString&), const QString& remembered,
          const QString& current) {
  const QSignalBlocker quiet(box);
  box.clear();
  for (const QString& word : words) box.addItem(inWords(word), word);
  const int kept = box.findData(remembered);
  box.setCurrentIndex(kept >= 0 ? kept : box.findData(current));
}

QString ResolutionInWords(const QString& dpi) { return dpi + u" dpi"_s; }

}  // namespace

void FrmScan::Connect() {
  connect(refresh_, &QToolButton::clicked, this, &FrmScan::ListDevices);
  connect(device_, &QComboBox::currentIndexChanged, this, [this] { ReadChoices(); });
  connect(source_, &QComboBox::currentIndexChanged, this, [this] { ReadChoices(source_->currentData().toString()); });
  connect(scan_, &QPushButton::clicked, this, [this] { Scan(false); });
  connect(scanAll_, &QPushButton::clicked, this, [this] { Scan(true); });
  connect(stop_, &QPushButton::clicked, this, [this] {
    thread_.Stop();
    Say(u"正在停止…"_s);
  });
  for (const int key : {Qt::Key_Return, Qt::Key_Enter})
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key(key)), this), &QShortcut::activated, scan_,
            &QPushButton::click);
  connect(ok_, &QPushButton::clicked, this, [this] { Guarded([this] { Keep(); }); });
  connect(cancel_, &QPushButton::clicked, this, &FrmScan::reject);
  connect(name_, &QLineEdit::textChanged, this, &FrmScan::EnableKeys);
  pages_->changed = [this] { ShowCurrent(); };
}

void FrmScan::ListDevices() {
  Say(u"正在查找扫描仪…"_s);
  ++jobs_;
  EnableKeys();
  thread_.List();
}

void FrmScan::TakeDevices(const QList<ScannerInfo>& scanners) {
  const QSignalBlocker quiet(device_);
  device_->clear();
  for (const ScannerInfo& scanner : scanners) device_->addItem(scanner.name, scanner.id);
  device_->setCurrentIndex(scanners.isEmpty() ? -1 : qMax(0, device_->findData(Remembered(u"Device"_s))));
  if (scanners.isEmpty()) {
    TakeChoices({});
    Say(kNoDevice);
  } else {
    Say({});
    ReadChoices(Remembered(u"Source"_s));
  }
}

void FrmScan::ReadChoices(const QString& source) {
  if (device_->currentIndex() < 0) return;
  ++jobs_;
  EnableKeys();
  thread_.ReadChoices(device_->currentData().toString(), source);
}

void FrmScan::TakeChoices(const ScannerChoices& choices) {
  QStringList resolutions;
  for (const int dpi : choices.resolutions) resolutions << QString::number(dpi);
  const int dpi = choices.resolutions.contains(kUsualResolution) ? kUsualResolution : choices.resolution;
  Fill(*source_, choices.sources, &SourceInWords, {}, choices.source);
  Fill(*mode_, choices.modes, &ModeInWords, Remembered(u"Mode"_s), choices.mode);
  Fill(*resolution_, resolutions, &ResolutionInWords, Remembered(u"Resolution"_s), QString::number(dpi));
}

ScanSettings FrmScan::Chosen() const {
  return {source_->currentData().toString(), mode_->currentData().toString(), resolution_->currentData().toInt(),
          paper_->currentData().toSizeF()};
}

void FrmScan::Scan(bool all) {
  if (jobs_ > 0 || device_->currentIndex() < 0) return;
  Remember(u"Device"_s, device_->currentData().toString());
  Remember(u"Source"_s, source_->currentData().toString());
  Remember(u"Mode"_s, mode_->currentData().toString());
  Remember(u"Resolution"_s, resolution_->currentData().toString());
  Remember(u"Paper"_s, paper_->currentText());
  ++jobs_;
  isScanning_ = true;
  TellProgress(0);
  EnableKeys();
  thread_.Scan(device_->currentData().toString(), Chosen(), all);
}

void FrmScan::TellProgress(int percent) {
  if (!isScanning_) return;
  progress_->setRange(0, percent < 0 ? 0 : 100);
  progress_->setValue(qMax(percent, 0));
  progress_->show();
  Say(u"正在扫描第 %1 页…"_s.arg(pages_->count() + 1));
}

void FrmScan::TakePage(const ScannedPage& page, const QImage& preview) { pages_->Add(page, preview); }

void FrmScan::TakeEnd(const QString& why) {
  --jobs_;
  if (isScanning_) Say(u"共 %1 页。"_s.arg(pages_->count()));
  isScanning_ = false;
  progress_->hide();
  if (!why.isEmpty()) Say(why);
  EnableKeys();
}

void FrmScan::ShowCurrent() {
  preview_->Show(pages_->Preview());
  EnableKeys();
}

void FrmScan::Keep() {
  const QString name = name_->text().trimmed();
  const auto as = KeepAs(keepAs_->currentData().toInt());
  const QList<ScannedPage> pages = pages_->Pages();
  Remember(u"KeepAs"_s, keepAs_->currentText());
  std::vector<ScannedFile> files;
  RunInBackground(this, u"正在保存…"_s, int(pages.size()),
                  [&](const GoOn& goOn) { files = KeepPages(pages, as, name, directory_, goOn); });
  if (files.empty()) return;
  files_ = files;
  accept();
}

void FrmScan::reject() {
  thread_.Stop();
  const int count = pages_->count();
  if (count == 0 || notices::Ask(u"扫描的 %1 页还没有保存，确定要放弃吗？"_s.arg(count))) QDialog::reject();
}

void FrmScan::Say(const QString& text) { state_->setText(text); }

void FrmScan::EnableKeys() {
  const bool canScan = jobs_ == 0 && device_->currentIndex() >= 0, hasPages = pages_->count() > 0;
  for (QComboBox* box : {source_, mode_, resolution_}) box->setEnabled(canScan && box->count() > 0);
  device_->setToolTip(components::PlainTip(device_->currentText()));
  device_->setEnabled(jobs_ == 0 && device_->count() > 0);
  refresh_->setEnabled(jobs_ == 0);
  scan_->setEnabled(canScan);
  scanAll_->setEnabled(canScan && IsFeeder(source_->currentData().toString()));
  stop_->setEnabled(isScanning_);
  for (QAction* key : pageKeys_) key->setEnabled(hasPages && pages_->currentRow() >= 0);
  ok_->setEnabled(!isScanning_ && hasPages && !name_->text().trimmed().isEmpty());
}

}  // namespace folvane::scanning
