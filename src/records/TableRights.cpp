#include "records/TableRights.h"

#include <folvane/DataError.h>

#include "catalogue/ReadRows.h"
#include "catalogue/RightsRows.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

void SetRights(TableParameters& parameters, int row, const QString& limit, const TableRightsRow& rights) {
  parameters.Set(row, Parameter::RowLimit, limit);
  parameters.Set(row, Parameter::LookFile, rights.popLookFile);
  parameters.Set(row, Parameter::Print, rights.popPrintData);
  parameters.Set(row, Parameter::Edit, rights.popEditData);
  parameters.Set(row, Parameter::RightsText, rights.popStrChn);
}

TableRightsRow SameRights(const QString& flag, const QString& words) {
  TableRightsRow rights;
  rights.popLookFile = rights.popPrintData = rights.popEditData = flag;
  rights.popStrChn = words;
  return rights;
}

}  // namespace

bool IsAdministrator(const QString& userId) {
  bool isNumber = false;
  const double number = userId.trimmed().toDouble(&isNumber);
  if (!isNumber) throw DataError(DataErrorKind::Conversion, u"类型不匹配：用户编号“"_s + userId + u"”不是数字"_s);
  return number == 1;
}

void ReadTableRights(TableParameters& parameters, int row, const QString& table) {
  if (IsAdministrator(Shared().UserId)) {
    SetRights(parameters, row, QString(), SameRights(u"1"_s, u"所有权限"_s));
    return;
  }
  const std::vector<TableRightsRow> rights = ReadRows<TableRightsRow>(
      SharedConnection(),
      u"Select PopStrChn,PopEditData,PopPrintData,PopLookFile,PopCondition From UserPopedomScope Where UserID = '"_s +
          Shared().UserId + u"' And PopTableName = '"_s + table + u"'"_s);
  if (rights.empty()) {
    SetRights(parameters, row, u"1 = 2"_s, SameRights(u"0"_s, u"无权限"_s));
    return;
  }
  const QString& condition = rights.front().popCondition;
  SetRights(parameters, row, condition.isEmpty() ? QString() : u"("_s + condition + u")"_s, rights.front());
}

}  // namespace folvane
