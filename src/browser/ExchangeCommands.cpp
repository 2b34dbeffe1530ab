#include "browser/ExchangeCommands.h"

#include <QDir>
#include <QWidget>

#include "base/Surroundings.h"
#include "browser/RecordImport.h"
#include "records/ListStatus.h"
#include "records/RecordList.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "widgets/BusyPointer.h"
#include "widgets/LongWork.h"
#include "widgets/RecordListView.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// The folder of the exchanged files; one that cannot be made leaves the dialog to find another.
QString ExchangeFolder() {
  const QDir program(ProgramDirectory());
  program.mkpath(u"Data"_s);
  return program.filePath(u"Data"_s);
}

}  // namespace

void ExchangeCommands::Save() {
  if (list_.Table().isEmpty()) return;
  if (list_.RecordCount() < 1) {
    ShowMessage(u"记录数目为0，不能进行保存！"_s);
    return;
  }
  const QString path = AskForFile({true, u"导出数据"_s, ExchangeFolder(), u"*.Dat|*.Dat"_s});
  if (path.isEmpty()) return;
  try {
    const BusyPointer busy;
    list_.Records().Save(path);
  } catch (const std::exception& error) {
    return status_.ShowNotice(u"导出未完成："_s + ErrorText(error), ErrorDetails(error));
  }
  ShowMessage(u"文件保存完毕!"_s);
}

void ExchangeCommands::Open() {
  if (list_.Table().isEmpty()) return;
  const QString path = AskForFile({false, u"导入数据"_s, ExchangeFolder(), u"Dat文件(*.Dat)|*.Dat"_s});
  if (path.isEmpty()) return;
  std::optional<qint64> added;
  try {
    added = Import(path);
  } catch (const std::exception& error) {
    return status_.ShowNotice(u"导入未完成："_s + ErrorText(error), ErrorDetails(error));
  }
  if (!added) return status_.ShowNotice(u"已取消导入，没有导入任何数据"_s);
  ShowMessage(u"导入完成，成功导入%1条数据！"_s.arg(*added));
  if (*added > 0) status_.RunTrapped([this] { list_.Reload(); });
}

std::optional<qint64> ExchangeCommands::Import(const QString& path) {
  LongWork work(*list_.View().window(), &status_.StopKey(),
                [this](int done, int maximum) { status_.ShowWork(done, maximum); });
  return RecordImport(list_.Table(), list_.Records()).Run(path, [&work](qint64 done, qint64 total) {
    return work.GoOn(done, total);
  });
}

}  // namespace folvane
