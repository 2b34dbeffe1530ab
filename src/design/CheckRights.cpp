#include <folvane/DataError.h>
#include <folvane/ResultSet.h>

#include "data/DatabaseSession.h"
#include "design/Checks.h"
#include "design/ConditionNames.h"
#include "design/Names.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

using Weight = DesignFinding::Weight;

std::function<void(Design&)> InRights(const Design::User& user, const Design::Rights& rights,
                                      std::function<void(Design::Rights&)> change) {
  return [id = user.id, table = rights.table, change = std::move(change)](Design& design) {
    Design::User* found = FindNamed(design.users, id);
    if (Design::Rights* mended = found ? FindNamed(found->rights, table) : nullptr) change(*mended);
  };
}

std::function<void(Design&)> WithoutRights(const Design::User& user, const Design::Rights& rights) {
  return [id = user.id, rights](Design& design) {
    if (Design::User* found = FindNamed(design.users, id)) std::erase(found->rights, rights);
  };
}

void CheckCondition(Checked& checked, const Design::User& user, const Design::Rights& rights, const QString& where) {
  if (rights.condition.isEmpty()) {
    if (rights.conditionFields.isEmpty()) return;
    checked.findings.push_back(
        {Weight::Note, u"rights-fields"_s, where, u"没有条件，却有条件的字段"_s, u"批量修改时不能改这些字段"_s,
         u"去掉条件的字段"_s, InRights(user, rights, [](Design::Rights& mended) { mended.conditionFields.clear(); })});
    return;
  }
  const QString refusal = checked.connection ? RefusalOf(*checked.connection, rights) : QString();
  if (!refusal.isEmpty())
    checked.findings.push_back({Weight::Error,
                                u"rights-condition"_s,
                                where,
                                u"数据库不接受条件“%1”：%2"_s.arg(rights.condition, refusal),
                                u"这个用户打开表时出错"_s,
                                u"请改正条件"_s,
                                {}});
}

void CheckConditionFields(Checked& checked, const Design::User& user, const Design::Rights& rights,
                          const Design::Table& table, const QString& where) {
  for (const QString& field : rights.conditionFields) {
    if (FindNamed(table.fields, field)) continue;
    const QString notOf = u"条件的字段“%1”不是表的字段"_s.arg(field);
    if (Names(rights.condition, field)) {
      checked.findings.push_back({Weight::Warning,
                                  u"rights-field"_s,
                                  where,
                                  notOf,
                                  u"保存时不按条件检查；没有这一列时，这个用户打开表出错"_s,
                                  u"请改正条件"_s,
                                  {}});
      continue;
    }
    checked.findings.push_back(
        {Weight::Warning, u"rights-field"_s, where, notOf, u"保存时不按条件检查"_s, u"去掉这个字段"_s,
         InRights(user, rights, [field](Design::Rights& mended) { mended.conditionFields.removeAll(field); })});
  }
}

void CheckUser(Checked& checked, const Design::User& user) {
  const QString where = Shape<Design::User>::TitleOf(user);
  bool isNumber = false;
  user.id.toInt(&isNumber);
  if (!isNumber)
    checked.findings.push_back({Weight::Error,
                                u"user-number"_s,
                                where,
                                u"用户编号不是整数"_s,
                                u"这个用户打开表时出错"_s,
                                u"请改为数字的编号"_s,
                                {}});
  if (user.name.isEmpty())
    checked.findings.push_back(
        {Weight::Warning, u"user-nameless"_s, where, u"用户没有姓名"_s, u"窗口中看不出是谁"_s, u"请填写姓名"_s, {}});
  for (const Design::Rights& rights : user.rights) {
    const QString place = where + u' ' + Shape<Design::Rights>::TitleOf(rights);
    const Design::Table* table = FindNamed(checked.design.tables, rights.table);
    if (!table) {
      checked.findings.push_back({Weight::Warning, u"rights-table"_s, place, u"设计中没有这个表"_s,
                                  u"这一项权限不起作用"_s, u"去掉这一项权限"_s, WithoutRights(user, rights)});
      continue;
    }
    CheckCondition(checked, user, rights, place);
    CheckConditionFields(checked, user, rights, *table, place);
  }
}

}  // namespace

QString RefusalOf(Connection& connection, const Design::Rights& rights) {
  const TableInfo* info = DatabaseSession::Of(connection).Table(rights.table);
  if (!info || !NameComplaint(rights.table).isEmpty()) return {};
  try {
    const ResultSet none(connection, u"Select * From %1 Where 1 = 2 And (%2)"_s.arg(rights.table, rights.condition));
  } catch (const DataError& error) {
    if (error.Kind() == DataErrorKind::Lost || error.Kind() == DataErrorKind::Locked) throw;
    return error.Message();
  }
  return {};
}

void CheckRights(Checked& checked) {
  const std::vector<Design::User>& users = checked.design.users;
  for (const Design::User& user : users) CheckUser(checked, user);
  const auto isAdministrator = [](const Design::User& user) { return user.id.toInt() == 1; };
  if (!users.empty() && std::none_of(users.begin(), users.end(), isAdministrator))
    checked.findings.push_back({Weight::Warning, u"user-administrator"_s, u"用户"_s, u"没有编号为 1 的系统管理员"_s,
                                u"没有人能看到所有的表"_s, u"增加系统管理员"_s, [](Design& design) {
                                  if (!FindNamed(design.users, u"1"_s))
                                    design.users.push_back({u"1"_s, u"系统管理员"_s, {}});
                                  PutInOrder(design);
                                }});
}

}  // namespace folvane::design
