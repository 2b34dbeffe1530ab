// What of a flow's sheets is deleted.
#include <QScopeGuard>
#include <algorithm>

#include "data/OneTransaction.h"
#include "flows/FlowSheets.h"
#include "flows/PassedErrors.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

QString FlowSheets::DeleteDetail() {
  PassedErrors passed;
  passed.Try([&] {
    SharedConnection()->Execute(u"Delete From "_s + flow_.detailTable + u" where Register_ID='"_s + Key() +
                                u"' and File_ID='"_s + EscapeSql(Detail(u"File_ID"_s)) + u'\'');
  });
  passed.Try([&] { RequeryDetails(); });
  if (details_.RecordCount() == 0) {
    passed.Try([&] { WriteHead({{flow_.statusColumn, flow_.idle}}); });
    passed.Try([&] { RequeryHeads(); });
  }
  return passed.Text();
}

QStringList FlowSheets::DeleteStatements() const {
  return {u"Delete From "_s + flow_.detailTable + u" Where Register_ID = '"_s + Key() + u'\'',
          u"Update "_s + Head(u"File_Table"_s) + u" Set "_s + flow_.recordColumn + u" = '"_s + flow_.idle +
              u"' Where ArchiveID = '"_s + EscapeSql(Head(u"File_ID"_s)) + u'\'',
          u"Delete From "_s + flow_.headTable + u" where Register_ID='"_s + Key() + u'\''};
}

QString FlowSheets::DeleteHead() {
  PassedErrors passed;
  for (const QString& statement : DeleteStatements()) passed.Try([&] { SharedConnection()->Execute(statement); });
  passed.Try([&] {
    // The sheet that moved up into the place of the deleted one is not the next: the window shows the one before it.
    const qint64 position = heads_.AbsolutePosition();
    heads_.Requery();
    if (HasHeads()) heads_.SetAbsolutePosition(std::clamp<qint64>(position - 1, 1, heads_.RecordCount()));
  });
  passed.Try([&] { OpenDetails(); });
  return passed.Text();
}

void FlowSheets::DeleteHeads(const QStringList& keys) {
  QStringList statements;
  {
    const auto back = qScopeGuard([this, position = heads_.AbsolutePosition()] { GoToHead(position); });
    for (const QString& key : keys) {
      heads_.MoveFirst();
      heads_.Find(u"Register_ID = '"_s + EscapeSql(key) + u'\'');
      statements += DeleteStatements();
    }
  }
  InOneTransaction(*SharedConnection(), [&] {
    for (const QString& statement : statements) SharedConnection()->Execute(statement);
  });
  heads_.Requery();
  OpenDetails();
}

}  // namespace folvane
