#include "designer/PageFixture.h"
#include "designer/UsersPage.h"

// Users, their rights, and what they see.
namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kUsers = u"GrdUsers"_s, kRights = u"GrdRights"_s, kSeen = u"GrdSeen"_s;

class UsersPageTest : public PageTest<designer::UsersPage> {
 protected:
  void SetUp() override {
    PageTest::SetUp();
    for (int number = 1; number <= 60; ++number)
      Database().Native(
          u"insert into Lwdj(ArchiveID, RegID, Amaintitle, SecurityClass) values('%1', %1, '文件%1', %2)"_s.arg(number)
              .arg(number % 2 ? u"'秘密'"_s : u"null"_s));
    GoTo(kUsers, 1);
  }
  const Design::User& Clerk() { return Wanted().users[1]; }
  QString Seen() { return TextIn(Shown(), u"LblSeen"_s); }
  void ChooseTable(const QString& label) {
    auto& table = Find<QComboBox>(Shown(), u"CmbSeenTable"_s);
    table.setFocus();
    while (table.currentText() != label) {
      const int before = table.currentIndex();
      Press(table, table.findText(label) < before ? Qt::Key_Up : Qt::Key_Down);
      ASSERT_NE(table.currentIndex(), before) << label.toStdString();
    }
  }
  /// Opens the condition of the current rights by its key.
  void WithCondition(const WindowSteps& steps) {
    WithWindow(u"ConditionDialog"_s, steps);
    Grid(kRights).setFocus();
    Press(Grid(kRights), Qt::Key_F4);
  }
  static void Pick(QWidget& dialog, const QString& box, const QString& text) {
    auto& choice = Find<QComboBox>(dialog, box);
    if (choice.isEditable()) return Retype(choice, text);
    choice.setCurrentIndex(choice.findText(text));
    ASSERT_EQ(choice.currentText(), text);
    Q_EMIT choice.activated(choice.currentIndex());
  }
  static QString Result(QWidget& dialog) { return TextIn(dialog, u"LblResult"_s); }
  static void Accept(QWidget& dialog) { Click(Find(dialog, u"CmdOK"_s)); }
};
FOLVANE_ON_EACH_DATABASE(UsersPageTest);

TEST_P(UsersPageTest, ShowsTheRightsInWordsAndTheRowsThatTheUserSees) {
  EXPECT_EQ(Rows(kUsers), QStringList({u"系统管理员|1"_s, u"王小明|12"_s}));
  EXPECT_EQ(Rows(kRights), QStringList{u"收文登记 Lwdj|是|是|否|密级 为空|没有密级的收文"_s});
  EXPECT_EQ(Seen(), u"共 30 条记录。");
  EXPECT_EQ(Rows(kSeen).size(), 30);
  EXPECT_EQ(Rows(kSeen).value(0).count(u'|'), 1) << "the columns of the list";
  ChooseTable(u"归档文件 Gdwj"_s);
  EXPECT_EQ(Seen(), u"没有这个表的权限，看不到任何记录。");
  EXPECT_EQ(Rows(kSeen), QStringList());
  GoTo(kUsers, 0);
  EXPECT_EQ(Rows(kRights), QStringList());
  ChooseTable(u"收文登记 Lwdj"_s);
  EXPECT_EQ(Seen(), u"共 60 条记录，下面是前 50 条。");
  EXPECT_EQ(Rows(kSeen).size(), 50);
  EXPECT_EQ(UnnamedControls(Shown()), QStringList());
}

TEST_P(UsersPageTest, RecordsAreReadAgainByAKey) {
  Database().Native(u"delete from Lwdj where RegID > 10"_s);
  EXPECT_EQ(Seen(), u"共 30 条记录。");
  Click(Find(Shown(), u"CmdSeeAgain"_s));
  EXPECT_EQ(Seen(), u"共 5 条记录。");
  EXPECT_EQ(Rows(kSeen).size(), 5);
}

TEST_P(UsersPageTest, UsersHaveNumbersOfTheirOwnAndTheAdministratorStays) {
  Add(kUsers, u"李'四"_s);
  EXPECT_EQ(Wanted().users.back().id, u"13");
  EXPECT_EQ(Wanted().users.back().name, u"李'四");
  for (const QString& wrong : {u"x1"_s, u"-3"_s, u"0"_s, QString()}) {
    Write(kUsers, 2, 1, wrong);
    EXPECT_EQ(Told(), u"用户编号应是正整数。") << wrong.toStdString();
  }
  Write(kUsers, 2, 1, u"012"_s);
  EXPECT_EQ(Told(), u"已有编号为 12 的用户。");
  Write(kUsers, 2, 1, u"2147483647"_s);
  Add(kUsers, u"赵五"_s);
  EXPECT_EQ(Wanted().users.back().id, u"2147483648");
  for (int step = 0; step < 3; ++step) Undo();  // the name, the user, the number
  Write(kUsers, 0, 1, u"7"_s);
  EXPECT_EQ(Told(), u"系统管理员的编号是 1，不能更改。");
  Write(kUsers, 2, 0, u" "_s);
  EXPECT_EQ(Told(), u"用户没有姓名。");
  Remove(kUsers, 0);
  EXPECT_EQ(Told(), u"系统管理员不能删去。");
  EXPECT_EQ(Wanted().users.size(), 3u);
  Remove(kUsers, 1);
  EXPECT_EQ(Rows(kUsers), QStringList({u"系统管理员|1"_s, u"李'四|13"_s}));
  ExpectTakenBack();
}

TEST_P(UsersPageTest, RightsAreGivenTableByTableAndTheirWordsFollowTheTicks) {
  Add(kRights);
  EXPECT_EQ(Rows(kRights).value(1), u"归档文件 Gdwj|是|是|是||查看、修改、打印、查看原文");
  Tick(kRights, 1, 1);
  EXPECT_EQ(Clerk().rights[1].words, u"查看、打印、查看原文");
  Tick(kRights, 0, 3);
  EXPECT_EQ(Clerk().rights[0].words, u"没有密级的收文") << "written by hand";
  EXPECT_TRUE(Clerk().rights[0].mayLookAtOriginals);
  Add(kRights);
  EXPECT_EQ(Told(), u"用户对每个表都已有权限。");
  Write(kRights, 1, 0, u"收文登记 Lwdj"_s);
  EXPECT_EQ(Told(), u"已有对表“Lwdj”的权限。");
  Remove(kRights, 1);
  Write(kRights, 0, 0, u"归档文件 Gdwj"_s);
  EXPECT_EQ(Told(), u"条件是对原来的表的，已去掉。");
  EXPECT_EQ(Clerk().rights[0].condition, QString());
  EXPECT_EQ(Clerk().rights[0].conditionFields, QStringList());
  ExpectTakenBack();
}

TEST_P(UsersPageTest, AConditionThatIsOnlyLookedAtStaysAsItWasWritten) {
  const QString before = Clerk().rights[0].condition;
  GoTo(kRights, 0);
  WithCondition([](QWidget& dialog) {
    EXPECT_EQ(TextIn(dialog, u"TxtCondition"_s), u"Lwdj.SecurityClass Is Null");
    Accept(dialog);
  });
  EXPECT_EQ(Clerk().rights[0].condition, before);
  WithCondition([](QWidget& dialog) {
    Click(Find(dialog, u"CmdClear"_s));
    Accept(dialog);
  });
  EXPECT_EQ(Clerk().rights[0].condition, QString());
}

TEST_P(UsersPageTest, AConditionIsPutTogetherTriedAndTakenBack) {
  GoTo(kRights, 0);
  WithCondition([&](QWidget& dialog) {
    EXPECT_EQ(TextIn(dialog, u"LblWords"_s), u"密级 为空");
    EXPECT_EQ(Result(dialog), u"符合条件的有 30 条记录。");
    EXPECT_EQ(UnnamedControls(dialog), QStringList());
    Pick(dialog, u"CmbRelation1"_s, u"等于"_s);
    EXPECT_EQ(Find<QComboBox>(dialog, u"CmbValue1"_s).itemText(1), u"秘密");
    Pick(dialog, u"CmbValue1"_s, u"秘密"_s);
    Click(Find(dialog, u"CmdAdd"_s));
    Pick(dialog, u"CmbField2"_s, u"登记号 RegID"_s);
    Pick(dialog, u"CmbRelation2"_s, u"小于等于"_s);
    Pick(dialog, u"CmbValue2"_s, u"x"_s);
    ASSERT_TRUE(WaitUntil([&] { return Result(dialog) == u"第 2 行：“x”不是数字。"; })) << Result(dialog).toStdString();
    Accept(dialog);
    EXPECT_TRUE(dialog.isVisible());
    Pick(dialog, u"CmbValue2"_s, u"9"_s);
    EXPECT_EQ(TextIn(dialog, u"LblWords"_s), u"密级 等于 秘密 与 登记号 小于等于 9");
    ASSERT_TRUE(WaitUntil([&] { return Result(dialog) == u"符合条件的有 5 条记录。"; }))
        << Result(dialog).toStdString();
    Accept(dialog);
  });
  EXPECT_EQ(Clerk().rights[0].condition, u"Lwdj.SecurityClass = '秘密' And Lwdj.RegID <= '9'");
  EXPECT_EQ(Clerk().rights[0].conditionFields, QStringList({u"SecurityClass"_s, u"RegID"_s}));
  EXPECT_EQ(Rows(kSeen).size(), 5);
  EXPECT_EQ(Rows(kRights).value(0).section(u'|', 4, 4), u"密级 等于 秘密 与 登记号 小于等于 9");
  session_->Apply(session_->Plan(), {});
  Design expected = Wanted();
  PutInOrder(expected);
  EXPECT_EQ(Read(), expected);
  Undo();
  EXPECT_EQ(Rows(kSeen).size(), 30);
}

TEST_P(UsersPageTest, AConditionThatIsClearedShowsAllRows) {
  GoTo(kRights, 0);
  WithCondition([&](QWidget& dialog) {
    Click(Find(dialog, u"CmdRemove1"_s));
    ASSERT_TRUE(WaitUntil([&] { return Result(dialog) == u"符合条件的有 60 条记录。"; }));
    Accept(dialog);
  });
  EXPECT_EQ(Clerk().rights[0].condition, QString());
  EXPECT_EQ(Clerk().rights[0].conditionFields, QStringList());
  ExpectTakenBack();
}

TEST_P(UsersPageTest, AConditionThatTheDatabaseRefusesIsToldAndNotTaken) {
  session_->Change(u"x"_s, [](Design& design) { design.users[1].rights[0].condition = u"Left(NoSuch,4) = '2026'"_s; });
  EXPECT_TRUE(Seen().startsWith(u"数据库不接受：")) << Seen().toStdString();
  EXPECT_EQ(Rows(kRights).value(0).section(u'|', 4, 4), u"Left(NoSuch,4) = '2026'");
  GoTo(kRights, 0);
  WithCondition([&](QWidget& dialog) {
    EXPECT_FALSE(Find(dialog, u"CmdAdd"_s).isEnabled());
    Accept(dialog);
    EXPECT_TRUE(Result(dialog).startsWith(u"数据库不接受这个条件：")) << Result(dialog).toStdString();
    EXPECT_TRUE(dialog.isVisible());
    Retype(Find(dialog, u"TxtCondition"_s), u"1 = 1) Or (RegID = 'x"_s);
    Accept(dialog);
    EXPECT_TRUE(dialog.isVisible());
    Retype(Find(dialog, u"TxtCondition"_s), u"RegID In (1, 2)"_s);
    Accept(dialog);
  });
  EXPECT_EQ(Clerk().rights[0].condition, u"RegID In (1, 2)");
  EXPECT_EQ(Clerk().rights[0].conditionFields, QStringList{u"RegID"_s});
  EXPECT_EQ(Seen(), u"共 2 条记录。");
  EXPECT_EQ(Database().Value(u"select count(*) from Lwdj"_s), u"60");
}

TEST_P(UsersPageTest, WhatIsOnlyWantedYetCannotBeTriedButIsTaken) {
  session_->Change(u"x"_s, [](Design& design) {
    TableOf(design, u"Lwdj"_s).fields.push_back({u"Urgency"_s, u"缓急"_s, u"文本型"_s, 10, {}});
    Design::Table table;
    table.name = u"Htdj"_s;
    table.caption = u"合同登记"_s;
    table.fields = {{u"Amount"_s, u"金额"_s, u"数值型"_s, 10, {}}};
    design.tables.push_back(table);
    design.users[1].rights.push_back({u"Htdj"_s, u"查看"_s, false, false, false, {}, {}});
  });
  GoTo(kRights, 0);
  WithCondition([&](QWidget& dialog) {
    Pick(dialog, u"CmbField1"_s, u"缓急 Urgency"_s);
    Pick(dialog, u"CmbRelation1"_s, u"不为空"_s);
    Accept(dialog);
    EXPECT_EQ(Result(dialog), u"字段“Urgency”还没有建立，应用设计后才能试用条件。");
  });
  EXPECT_EQ(Clerk().rights[0].condition, u"Lwdj.Urgency <> ''");
  GoTo(kRights, 1);
  EXPECT_EQ(Seen(), u"表还没有建立，应用设计后才有记录。");
  WithCondition([&](QWidget& dialog) {
    Click(Find(dialog, u"CmdAdd"_s));
    Pick(dialog, u"CmbValue1"_s, u"1000"_s);
    Accept(dialog);
  });
  EXPECT_EQ(Clerk().rights[1].condition, u"Htdj.Amount = '1000'");
  ExpectTakenBack();
}

}  // namespace
}  // namespace folvane::test
