#include "support/HostDoubles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace folvane::test {

namespace {

constexpr int kOk = 1, kNo = 7;

/// What a user in a hurry presses: OK where there is one, else No.
int PlainAnswer(int flags) {
  const int buttons = flags & 15;
  return buttons == 3 || buttons == 4 ? kNo : kOk;
}

template <typename Answers, typename Value>
Value TakeFirst(Answers& answers, Value otherwise) {
  if (answers.empty()) return otherwise;
  Value answer = answers.front();
  answers.pop_front();
  return answer;
}

}  // namespace

MessageBoxes::MessageBoxes() {
  Services().messageBox = [this](const MessageRequest& request) { return Show(request); };
}

MessageBoxes& MessageBoxes::Answer(int answer) {
  answers_.push_back(answer);
  return *this;
}

int MessageBoxes::Show(const MessageRequest& request) {
  requests_.push_back(request);
  return TakeFirst(answers_, PlainAnswer(request.flags));
}

QStringList MessageBoxes::Texts() const {
  QStringList texts;
  for (const MessageRequest& request : requests_) texts << request.text;
  return texts;
}

MessageRequest MessageBoxes::Last() const {
  if (!requests_.empty()) return requests_.back();
  ADD_FAILURE() << "no message box was shown";
  return {};
}

FileDialogs::FileDialogs() {
  Services().fileDialog = [this](const FileRequest& request) {
    requests_.push_back(request);
    return TakeFirst(answers_, QString());
  };
}

FileDialogs& FileDialogs::Answer(const QString& path) {
  answers_.push_back(path);
  return *this;
}

QString MemoryRegistryStore::Read(const QString& key, const QString& name) const {
  return texts_.value({key.toLower(), name.toLower()});
}

void MemoryRegistryStore::Write(const QString& key, const QString& name, const QString& text) {
  texts_.insert({key.toLower(), name.toLower()}, text);
}

TempProgramDirectory::TempProgramDirectory() { Services().programDirectory = directory_.path(); }

QString TempProgramDirectory::Path(const QString& file) const {
  return file.isEmpty() ? directory_.path() : directory_.filePath(file);
}

void TempProgramDirectory::Write(const QString& file, const QByteArray& bytes) const {
  QDir().mkpath(QFileInfo(Path(file)).path());
  QFile out(Path(file));
  ASSERT_TRUE(out.open(QIODevice::WriteOnly)) << "cannot write " << file.toStdString();
  out.write(bytes);
}

QByteArray TempProgramDirectory::Read(const QString& file) const {
  QFile in(Path(file));
  if (!in.open(QIODevice::ReadOnly)) {
    ADD_FAILURE() << "cannot read " << file.toStdString();
    return {};
  }
  return in.readAll();
}

bool TempProgramDirectory::Has(const QString& file) const { return QFile::exists(Path(file)); }

void FixClock(const QDateTime& time) {
  Services().now = [time] { return time; };
}

void FixRandom(const std::vector<double>& numbers) {
  Services().random = [numbers, next = std::size_t(0)]() mutable { return numbers[next++ % numbers.size()]; };
}

HostDoublesListener::HostDoublesListener() : defaults_(Services()) {}

void HostDoublesListener::OnTestStart(const testing::TestInfo&) {
  HostServices fresh = defaults_;
  fresh.registry = std::make_shared<MemoryRegistryStore>();
  fresh.messageBox = [](const MessageRequest& request) {
    ADD_FAILURE() << "nobody expected this message box: " << request.text.toStdString();
    return PlainAnswer(request.flags);
  };
  fresh.fileDialog = [](const FileRequest& request) {
    ADD_FAILURE() << "nobody expected this file dialog: " << request.title.toStdString();
    return QString();
  };
  Services() = fresh;
}

void HostDoublesListener::OnTestEnd(const testing::TestInfo&) { Services() = defaults_; }

}  // namespace folvane::test
