#include "records/TableRights.h"

#include <folvane/DataError.h>

#include "data/Recordset.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kDefaultOrder = u"ArchiveId Desc"_s;

void SetRights(TableParameters& parameters, int row, const QString& limit, const QString& look, const QString& print,
               const QString& edit, const QString& words) {
  parameters.Set(row, Parameter::RowLimit, limit);
  parameters.Set(row, Parameter::LookFile, look);
  parameters.Set(row, Parameter::Print, print);
  parameters.Set(row, Parameter::Edit, edit);
  parameters.Set(row, Parameter::RightsText, words);
}

QString OfTableAndUser(const QString& table) {
  return u" Where TableName = '"_s + table + u"' and UserID="_s + Shared().UserId;
}

QString InsertOrder(const QString& begin, const QString& table, const QString& order) {
  return begin + u"(TableName,OrderStr,UserID) Values('"_s + table + u"','"_s + order + u"',"_s + Shared().UserId +
         u")"_s;
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
    SetRights(parameters, row, QString(), u"1"_s, u"1"_s, u"1"_s, u"所有权限"_s);
    return;
  }
  Recordset rights;
  rights.Open(
      u"Select PopStrChn,PopEditData,PopPrintData,PopLookFile,PopCondition From UserPopedomScope Where UserID = '"_s +
          Shared().UserId + u"' And PopTableName = '"_s + table + u"'"_s,
      SharedConnection());
  if (rights.EOF_()) {
    SetRights(parameters, row, u"1 = 2"_s, u"0"_s, u"0"_s, u"0"_s, u"无权限"_s);
    return;
  }
  const QString condition = rights[u"PopCondition"_s].Text();
  SetRights(parameters, row, condition.isEmpty() ? QString() : u"("_s + condition + u")"_s,
            rights[u"PopLookFile"_s].Text(), rights[u"PopPrintData"_s].Text(), rights[u"PopEditData"_s].Text(),
            rights[u"PopStrChn"_s].Text());
}

QString ReadDefaultOrder(const QString& table) {
  Recordset order;
  order.Open(u"Select OrderStr From FindCirOrder"_s + OfTableAndUser(table), SharedConnection());
  if (!order.EOF_()) return order[u"OrderStr"_s].Text();
  SharedConnection()->Execute(InsertOrder(u"Insert into FindCirOrder"_s, table, kDefaultOrder));
  return kDefaultOrder;
}

void SaveOrder(const QString& table, const QString& order) {
  Recordset stored;
  stored.Open(u"Select * From FindCirOrder"_s + OfTableAndUser(table), SharedConnection());
  SharedConnection()->Execute(stored.EOF_()
                                  ? InsertOrder(u"Insert Into FindCirOrder"_s, table, order)
                                  : u"Update FindCirOrder Set OrderStr = '"_s + order + u"'"_s + OfTableAndUser(table));
}

}  // namespace folvane
