#include "entry/SaveRefusal.h"

#include "entry/FieldChecks.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/TableFields.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kKept = u"您输入的内容仍保留在界面上。"_s;

}  // namespace

void TellRefusal(const QString& table, const DataError& error, const QString& title) {
  ShowMessage({kNotSaved + ErrorTextFor(table, error), MessageFlag::Critical, title, kKept, ErrorDetails(error)});
}

bool AskForNewKey(const QString& table, const DataError& error, const QString& title) {
  return ShowMessage({kNotSaved + ErrorTextFor(table, error) + u"\r\n是否换用新的关键字再次保存？"_s,
                      MessageFlag::YesNo + MessageFlag::Question, title, kKept, ErrorDetails(error)}) == Answer::Yes;
}

}  // namespace folvane
