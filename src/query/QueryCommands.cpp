#include "query/QueryCommands.h"

#include "query/AskQuery.h"
#include "query/ConditionText.h"
#include "query/FrmReadOrder.h"
#include "records/ListLimits.h"
#include "records/ListStatus.h"
#include "records/RecordList.h"
#include "records/TableParameters.h"
#include "shell/LoadedWindow.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

void QueryCommands::SimpleQuery() {
  if (list_.Table().isEmpty()) return;
  parameters_.SetTag(QString());
  AskedQuery query = AskSimpleQuery(list_.Table());
  if (query.words.isEmpty()) query.words = u"简单查询 "_s + query.condition;
  Show(query);
}

void QueryCommands::CompoundQuery() {
  if (list_.Table().isEmpty()) return;
  parameters_.SetTag(QString());
  Show(AskCompoundQuery(list_.Table()));
}

// What a query leaves out is to be told as long as its filter is in force.
void QueryCommands::Show(const AskedQuery& query) {
  parameters_.SetLeftOut(query.condition, query.ignored);
  if (!query.condition.isEmpty()) {
    if (const QString words = query.words.trimmed(); !words.isEmpty()) limits_.KeepWords(query.condition, words);
    list_.ShowWhere(query.condition);
  }
  if (!query.ignored.isEmpty()) status_.ShowNotice(LeftOutNote(query.ignored));
}

void QueryCommands::Refresh() {
  if (list_.Table().isEmpty()) return;
  parameters_.SetTag(QString());
  list_.ShowWhere(QString());
}

// Records that were refused may come in another order: the one that is kept may name a field that is gone.
void QueryCommands::Sort() {
  if (list_.Rows().Count() == 0 && list_.State() != ListRecords::Refused) return;
  const QString order = AskOrder(list_.Table(), parameters_.Selected(Parameter::Order));
  if (!order.isEmpty()) list_.ShowInOrder(order);
}

void QueryCommands::SetBrowseOrder() {
  const LoadedWindow<FrmReadOrder> window;
  window->vsFlag = 1;
  window->Open();
}

}  // namespace folvane
