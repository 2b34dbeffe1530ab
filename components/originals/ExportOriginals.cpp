#include "components/originals/ExportOriginals.h"

#include <QDir>
#include <QFileDialog>
#include <QProgressDialog>
#include <optional>

#include <folvane/HostServices.h>

#include "components/common/Notice.h"
#include "components/originals/OriginalNames.h"
#include "components/originals/WorkDialog.h"

namespace folvane::originals {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace notices;

constexpr int kUnshown = 500;  // milliseconds before the progress is shown
const QString kExport = u"导出原文"_s;

QString AskForFile(const Original& original) {
  const QString proposal = QDir::home().filePath(ExportName({original.name, original.type}, {}));
  const QString filter = original.type.isEmpty() ? u"所有文件|*"_s : u"原文文件|*"_s + original.type;
  return AskForPath(kExport, proposal, filter);
}

/// The paths that originals are copied to; "" for one that the user leaves out. The host's own dialog knows files only,
/// so it is asked for each.
std::vector<QString> AskForFiles(QWidget* parent, const std::vector<Original>& which) {
  std::vector<QString> paths;
  if (which.size() == 1 || Services().fileDialog) {
    for (const Original& original : which) paths.push_back(AskForFile(original));
    return paths;
  }
  const QString directory = QFileDialog::getExistingDirectory(parent, u"选择导出到的文件夹"_s, QDir::homePath());
  if (directory.isEmpty()) return {};
  QStringList taken = QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
  for (const Original& original : which) {
    taken << ExportName({original.name, original.type}, taken);
    paths.push_back(QDir(directory).filePath(taken.last()));
  }
  return paths;
}

}  // namespace

int ExportOriginals(QWidget* parent, RecordOriginals& originals, const std::vector<Original>& which) {
  const std::vector<QString> paths = AskForFiles(parent, which);
  QProgressDialog progress(u"正在导出原文…"_s, u"停止"_s, 0, int(paths.size()), parent);
  progress.setObjectName(u"PrgExport"_s);
  progress.setWindowTitle(kExport);
  progress.setWindowModality(Qt::WindowModal);
  progress.setMinimumDuration(kUnshown);
  Pulse pulse;
  QStringList problems;
  int copied = 0;
  for (std::size_t at = 0; at < paths.size() && !progress.wasCanceled(); ++at) {
    progress.setValue(int(at));
    if (paths[at].isEmpty()) continue;
    try {
      originals.Export(which[at], paths[at], [&](qint64, qint64) {
        if (pulse.IsDue()) QCoreApplication::processEvents();
        return !progress.wasCanceled();
      });
      ++copied;
    } catch (const std::exception& error) {
      if (!progress.wasCanceled()) problems << which[at].name + u"："_s + QString::fromUtf8(error.what());
    }
  }
  progress.reset();
  if (!problems.isEmpty())
    Tell(u"%1 个原文没有导出：\n%2"_s.arg(problems.size()).arg(problems.join(u'\n')), kWarningIcon);
  return copied;
}

}  // namespace folvane::originals
