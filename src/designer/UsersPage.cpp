#include "designer/UsersPage.h"

#include <QAction>
#include <QSplitter>
#include <QVBoxLayout>

#include "design/ConditionNames.h"
#include "designer/ConditionDialog.h"
#include "designer/DesignGrid.h"
#include "designer/Labels.h"
#include "designer/SeenPanel.h"
#include "shell/EventGuard.h"
#include "shell/ModalWindow.h"
#include "widgets/KeptSizes.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

using User = Design::User;
using Rights = Design::Rights;

const QString kUserColumns = u"FrmDesigner.UsersPage.Columns"_s, kUserRows = u"FrmDesigner.UsersPage.Rows"_s;

bool IsAdministrator(const User& user) { return user.id.toInt() == 1; }

QString NextUserId(const std::vector<User>& users) {
  qint64 highest = 0;
  for (const User& user : users) highest = std::max(highest, qint64(user.id.toInt()));
  return QString::number(highest + 1);
}

// An id stands unquoted in statements.
void NumberUser(Design& wanted, User& user, const QVariant& value) {
  bool isNumber = false;
  const int id = value.toString().trimmed().toInt(&isNumber);
  if (!isNumber || id < 1) throw DataError(DataErrorKind::Usage, u"用户编号应是正整数。"_s);
  for (const User& other : wanted.users)
    if (&other != &user && other.id.toInt() == id)
      throw DataError(DataErrorKind::Usage, u"已有编号为 %1 的用户。"_s.arg(id));
  if (IsAdministrator(user) && id != 1) throw DataError(DataErrorKind::Usage, u"系统管理员的编号是 1，不能更改。"_s);
  user.id = QString::number(id);
}

QString WordsFor(const Rights& rights) {
  QStringList words{u"查看"_s};
  if (rights.mayEdit) words << u"修改"_s;
  if (rights.mayPrint) words << u"打印"_s;
  if (rights.mayLookAtOriginals) words << u"查看原文"_s;
  return words.join(u'、');
}

// The words follow the ticks unless they were written by hand.
ThingColumn<Rights> Tick(bool Rights::*member, const QString& tip) {
  auto column = ColumnOf(member, 9);
  column.look.tip = tip;
  column.write = [member](Design&, Rights& rights, const QVariant& value) {
    const bool follows = rights.words.isEmpty() || rights.words == WordsFor(rights);
    rights.*member = value.toBool();
    if (follows) rights.words = WordsFor(rights);
  };
  return column;
}

Rights NextRights(const Design& design, const User& user) {
  for (const Design::Table& table : design.tables) {
    if (design::FindNamed(user.rights, table.name)) continue;
    Rights rights;
    rights.table = table.name;
    rights.mayEdit = rights.mayPrint = rights.mayLookAtOriginals = true;
    rights.words = WordsFor(rights);
    return rights;
  }
  throw DataError(DataErrorKind::Usage, u"用户对每个表都已有权限。"_s);
}

}  // namespace

UsersPage::UsersPage(DesignSession& session)
    : DesignPage(session, u"UsersPage"_s),
      condition_(new QAction(u"条件(&C)..."_s, this)),
      seen_(new SeenPanel(session)),
      beside_(new QSplitter),
      below_(new QSplitter(Qt::Vertical)) {
  users_ = new DesignGrid(NewUsers(), u"GrdUsers"_s, u"用户(&U)"_s, u"还没有用户。\n按 Ins 增加一个。"_s, this);
  rights_ = new DesignGrid(NewRights(), u"GrdRights"_s, u"权限(&R)"_s,
                           u"没有权限，什么也看不到。\n按 Ins 增加一个表；系统管理员不需要。"_s, this);
  condition_->setObjectName(u"GrdRightsCondition"_s);
  condition_->setShortcut(QKeySequence(u"F4"_s));
  condition_->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  condition_->setToolTip(u"组合用户能看到哪些记录的条件 (F4)"_s);
  addAction(condition_);
  rights_->AddKey(condition_);
  ConnectGuarded(condition_, &QAction::triggered, this, &UsersPage::EditCondition);
  beside_->setObjectName(u"SplUsers"_s);
  below_->setObjectName(u"SplSeen"_s);
  for (QSplitter* splitter : {beside_, below_}) splitter->setChildrenCollapsible(false);
  beside_->addWidget(users_);
  beside_->addWidget(rights_);
  below_->addWidget(beside_);
  below_->addWidget(seen_);
  RestoreSizes(*beside_, kUserColumns, {260, 640});
  RestoreSizes(*below_, kUserRows, {340, 240});
  auto* down = new QVBoxLayout(this);
  down->addWidget(below_);
  setFocusProxy(users_);
  ConnectGuarded(users_, &DesignGrid::CurrentRowChanged, this, [this] { rights_->Refresh(); });
  ConnectGuarded(rights_, &DesignGrid::CurrentRowChanged, this, &UsersPage::FollowRights);
}

UsersPage::~UsersPage() {
  KeepSizes(*beside_, kUserColumns);
  KeepSizes(*below_, kUserRows);
}

void UsersPage::showEvent(QShowEvent* event) {
  DesignPage::showEvent(event);
  seen_->SeeAgain();
}

void UsersPage::Refresh() {
  seen_->FillTables();
  users_->Refresh();
}

const User* UsersPage::UserIn(const Design& design) const {
  const int row = users_->CurrentRow();
  return row >= 0 && std::size_t(row) < design.users.size() ? &design.users[std::size_t(row)] : nullptr;
}

const Rights* UsersPage::RightsIn(const Design& design) const {
  const User* user = UserIn(design);
  const int row = rights_->CurrentRow();
  return user && row >= 0 && std::size_t(row) < user->rights.size() ? &user->rights[std::size_t(row)] : nullptr;
}

GridModel* UsersPage::NewUsers() {
  ThingRules<User> rules;
  rules.locate = [](const Design& design) { return &design.users; };
  rules.fresh = [](const Design& design) { return User{NextUserId(design.users), u"新用户"_s, {}}; };
  rules.remove = [](Design& wanted, const User& user) {
    if (IsAdministrator(user)) throw DataError(DataErrorKind::Usage, u"系统管理员不能删去。"_s);
    std::erase(wanted.users, user);
  };
  auto id = ColumnOf(&User::id, 8);
  id.look.tip = u"整数；1 是系统管理员"_s;
  id.write = NumberUser;
  auto name = ColumnOf(&User::name, 18);
  name.write = [](Design&, User& user, const QVariant& value) {
    user.name = value.toString().trimmed();
    if (user.name.isEmpty()) throw DataError(DataErrorKind::Usage, u"用户没有姓名。"_s);
  };
  return new ThingModel<User>(Session(), rules, {name, id}, this);
}

GridModel* UsersPage::NewRights() {
  ThingRules<Rights> rules;
  rules.locate = [this](const Design& design) -> const std::vector<Rights>* {
    const User* user = UserIn(design);
    return user ? &user->rights : nullptr;
  };
  rules.fresh = [this](const Design& design) { return NextRights(design, *UserIn(design)); };
  auto words = ColumnOf(&Rights::words, 16);
  words.look.tip = u"用户看到的说明"_s;
  return new ThingModel<Rights>(Session(), rules,
                                {TableColumn(), Tick(&Rights::mayEdit, u"可以增加、修改和删除记录"_s),
                                 Tick(&Rights::mayPrint, u"可以打印和导出"_s),
                                 Tick(&Rights::mayLookAtOriginals, u"可以查看原文"_s), ConditionColumn(), words},
                                this);
}

ThingColumn<Rights> UsersPage::TableColumn() {
  auto table = ChoiceOf(&Rights::table, 16, [this](int) { return LabelsOf(Session().Wanted().tables); });
  table.read = [this](const Rights& rights) { return LabelFor(Session().Wanted().tables, rights.table); };
  // A condition names the fields of its table.
  table.write = [this](Design& wanted, Rights& rights, const QVariant& value) {
    const QString name = LabelledBy(wanted.tables, value.toString()).name;
    if (design::IsSame(name, rights.table)) return;
    if (!rights.condition.isEmpty()) Q_EMIT Session().Told(u"条件是对原来的表的，已去掉。"_s);
    rights.table = name;
    rights.condition.clear();
    rights.conditionFields.clear();
  };
  return table;
}

ThingColumn<Rights> UsersPage::ConditionColumn() {
  ThingColumn<Rights> column;
  column.look = {u"条件"_s, GridColumn::Kind::Text, 22, {}, u"用户只能看到符合条件的记录，按“条件...”组合"_s};
  column.read = [this](const Rights& rights) {
    const Design::Table* table = design::FindNamed(Session().Wanted().tables, rights.table);
    return table ? ConditionShown(rights.condition, *table) : rights.condition;
  };
  return column;
}

void UsersPage::FollowRights() {
  const Design& wanted = Session().Wanted();
  const User* user = UserIn(wanted);
  const Rights* rights = RightsIn(wanted);
  condition_->setEnabled(rights && design::FindNamed(wanted.tables, rights->table));
  if (rights) seen_->ChooseTable(rights->table);
  seen_->ShowUser(user ? user->id : QString());
}

void UsersPage::EditCondition() {
  const Design& wanted = Session().Wanted();
  const Rights* rights = RightsIn(wanted);
  const Design::Table* table = rights ? design::FindNamed(wanted.tables, rights->table) : nullptr;
  if (!table) return;
  const QString user = UserIn(wanted)->id;
  ConditionDialog dialog(wanted, *table, *Session().Database(), this);
  dialog.Show(rights->condition);
  ShowModal(dialog);
  if (dialog.result() != QDialog::Accepted) return;
  const QString condition = dialog.Condition();
  const QStringList fields = design::FieldsIn(condition, *table);
  Session().Change(u"修改对表“%1”的条件"_s.arg(table->name), [&](Design& changed) {
    Rights& own = *design::FindNamed(design::FindNamed(changed.users, user)->rights, table->name);
    own.condition = condition;
    own.conditionFields = fields;
  });
}

}  // namespace folvane::designer
