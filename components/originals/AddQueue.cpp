#include "components/originals/AddQueue.h"

#include <QFileInfo>

#include "components/originals/OriginalNames.h"

namespace folvane::originals {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kWhole = 100;

}  // namespace

QString QueuedFile::StepText() const {
  switch (step) {
    case AddStep::Adding:
      return u"正在添加 %1%"_s.arg(percent);
    case AddStep::Added:
      return u"已添加"_s;
    case AddStep::Failed:
      return u"失败："_s + problem;
    case AddStep::Cancelled:
      return u"已停止"_s;
    default:
      return u"待添加"_s;
  }
}

void AddQueue::Append(const FileToAdd& file) {
  const bool isKnown = std::any_of(files_.begin(), files_.end(), [&](const QueuedFile& queued) {
    return queued.file.path == file.path && queued.step != AddStep::Added;
  });
  if (!isKnown) files_.push_back({file, QFileInfo(file.path).size(), AddStep::Waiting, 0, {}});
}

void AddQueue::Rename(std::size_t index, const QString& name) { files_[index].file.name = FitName(name); }

void AddQueue::Run(const std::function<bool(std::size_t)>& show) {
  bool goesOn = true;
  for (std::size_t index = 0; index < files_.size() && goesOn; ++index) {
    if (files_[index].step == AddStep::Added) continue;
    AddOne(files_[index], [&] { return goesOn = show(index) && goesOn; });
    goesOn = show(index) && goesOn;
  }
}

void AddQueue::AddOne(QueuedFile& queued, const std::function<bool()>& show) {
  queued.step = AddStep::Adding;
  queued.percent = 0;
  queued.problem.clear();
  bool isCancelled = !show();
  if (isCancelled) {
    queued.step = AddStep::Cancelled;
    return;
  }
  try {
    originals_.Add(queued.file, [&](qint64 done, qint64) {
      queued.percent = queued.size > 0 ? int(std::min(done, queued.size) * kWhole / queued.size) : 0;
      isCancelled = isCancelled || !show();
      return !isCancelled;
    });
    queued.step = AddStep::Added;
  } catch (const std::exception& error) {
    queued.step = isCancelled ? AddStep::Cancelled : AddStep::Failed;
    queued.problem = QString::fromUtf8(error.what());
  }
}

int AddQueue::Count(AddStep step) const {
  return int(
      std::count_if(files_.begin(), files_.end(), [&](const QueuedFile& queued) { return queued.step == step; }));
}

}  // namespace folvane::originals
