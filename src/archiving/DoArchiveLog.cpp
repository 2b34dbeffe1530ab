#include "archiving/DoArchiveLog.h"

#include "base/Surroundings.h"
#include "shell/EventGuard.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kLastValueBuffer = 1000;

}  // namespace

DoArchiveLog::DoArchiveLog(const QString& table) : file_(ProgramFile(u"DoArchiveLog.INI"_s)), table_(table) {}

template <typename Step>
void DoArchiveLog::Try(Step step) {
  try {
    step();
  } catch (const std::exception& error) {
    failure_ = ErrorText(error);
  }
}

QString DoArchiveLog::Last(const QString& field) {
  QString value;
  Try([&] { value = file_.Read(table_.toUpper(), field.toUpper(), {}, kLastValueBuffer); });
  while (value.startsWith(u' ')) value.remove(0, 1);  // that stood in quotes
  return value;
}

void DoArchiveLog::MakeFile() {
  if (!file_.Exists()) Try([this] { file_.Create({}); });
}

void DoArchiveLog::Keep(const QString& field, const QString& value) {
  if (failure_.isEmpty()) Try([&] { file_.Write(table_, field.toUpper(), value); });
}

}  // namespace folvane
