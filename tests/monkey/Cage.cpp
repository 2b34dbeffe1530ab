#include "monkey/Cage.h"

#include <QDesktopServices>
#include <QDir>
#include <QImage>

#include "monkey/AwkwardTexts.h"
#include "scanning/TestScanner.h"
#include "shell/MessageBox.h"
#include "shell/ModalWindow.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kSecondsOfAStep = 7, kSavedFiles = 20;
const QStringList kSchemes{u"file"_s, u"http"_s, u"https"_s, u"mailto"_s, u"ftp"_s};

std::vector<int> AnswersOf(int flags) {
  switch (flags & 15) {
    case 1:
      return {1, 2};
    case 3:
      return {6, 7, 2};
    case 4:
      return {6, 7};
    default:
      return {1};
  }
}

void WriteFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) < 0) qFatal("cannot write %s", qPrintable(path));
}

}  // namespace

Cage::Cage(quint64 seed) : startDirectory_(QDir::currentPath()), dice_(seed, 0) {
  WriteFiles();
  TestScanner();
  QDir::setCurrent(files_.path());
  for (const QString& scheme : kSchemes) QDesktopServices::setUrlHandler(scheme, this, "OpenUrl");
  Services().messageBox = [this](const MessageRequest& request) { return AnswerBox(request); };
  Services().fileDialog = [this](const FileRequest& request) { return AnswerDialog(request); };
  Services().beep = [] {};
  Services().now = [this] {
    return QDateTime(QDate(2026, 11, 20), QTime(8, 30), Qt::UTC).addSecs(step_ * kSecondsOfAStep);
  };
  Services().random = [this] { return dice_.Between(0, 999'999) / 1e6; };
}

Cage::~Cage() {
  for (const QString& scheme : kSchemes) QDesktopServices::unsetUrlHandler(scheme);
  QDir::setCurrent(startDirectory_);
}

void Cage::OpenUrl(const QUrl&) { ++opened_; }

// Now and then the library's own box, which the monkey then finds as a window over the others.
int Cage::AnswerBox(const MessageRequest& request) {
  ++boxes_;
  if (!dice_.OneIn(4)) return dice_.AnyOf(AnswersOf(request.flags));
  MessageBox box(request, CurrentWindow());
  box.exec();
  return box.GivenAnswer();
}

QString Cage::AnswerDialog(const FileRequest& request) {
  ++dialogs_;
  if (dice_.OneIn(4)) return {};
  const QDir folder(files_.path());
  if (request.save) return folder.filePath(u"saved %1"_s.arg(dice_.Between(1, kSavedFiles)));
  return dice_.OneIn(10) ? folder.filePath(u"missing"_s) : folder.filePath(dice_.AnyOf(folder.entryList(QDir::Files)));
}

void Cage::WriteFiles() {
  const QDir folder(files_.path());
  QImage image(60, 80, QImage::Format_RGB32);
  image.fill(Qt::darkCyan);
  image.save(folder.filePath(u"图 'a'.png"_s));
  WriteFile(folder.filePath(u"text.txt"_s), AwkwardTexts().join(u'\n').toUtf8());
  WriteFile(folder.filePath(u"empty"_s), {});
  WriteFile(folder.filePath(u"broken.pdf"_s), "%PDF-1.4\n1 0 obj\n<<");
  WriteFile(folder.filePath(u"broken.png"_s), "\x89PNG\r\n\x1a\n\0\0");
  WriteFile(folder.filePath(u"broken.dat"_s), QByteArray::fromHex("01544721"));
}

}  // namespace folvane::test
