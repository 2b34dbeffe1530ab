#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>
#include <gmock/gmock.h>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>

#include "HostTest.h"
#include "host/Accounts.h"
#include "host/LogOnDialog.h"
#include "host/NewOffice.h"
#include "host/readymade/ReadyMade.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using host::Accounts;
using host::DatabaseChoice;
using host::HostDatabase;
using host::HostError;
using host::MakeOffice;
using host::OfficeOrder;
using testing::IsEmpty;

const QString kFirstSecret = u"correct horse"_s;

/// What stands in a window's way in a database with this design.
QStringList Defects(Connection& connection) {
  QStringList defects;
  for (const DesignFinding& finding : CheckDesign(ReadDesign(connection), &connection)) {
    if (finding.weight != DesignFinding::Weight::Note) defects << finding.where + u'：' + finding.what;
  }
  return defects;
}

QStringList NamesOf(const std::vector<host::ReadyMade>& designs) {
  QStringList names;
  for (const host::ReadyMade& design : designs) names << design.name;
  return names;
}

class NewOfficeTest : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    Database().Native(u"drop table UserPopedom"_s);
    Services().programDirectory = folder_.path();
  }
  OfficeOrder Order(const QStringList& readyMade) {
    const DatabaseChoice where = OnSqlite() ? DatabaseChoice{folder_.filePath(u"办公室.db"_s), {}} : Choice();
    return {where, readyMade, u"李馆长"_s, kFirstSecret};
  }
  /// Whether nothing of an office that was refused is left.
  bool IsUntouched() {
    if (OnSqlite()) return QDir(folder_.path()).entryList({u"办公室*"_s}).isEmpty();
    return Database().Value(
               u"select count(*) from information_schema.tables "
               "where table_schema = current_schema()"_s) == u"0";
  }
  QTemporaryDir folder_;
};
FOLVANE_ON_EACH_DATABASE(NewOfficeTest);

TEST_P(NewOfficeTest, AnOfficeHasItsTablesAndItsAdministrator) {
  const OfficeOrder order = Order({u"incoming"_s, u"archive-items"_s});
  MakeOffice(order);
  const auto office = HostDatabase::Open(order.where);
  EXPECT_EQ(office->User(u"1"_s).name, u"李馆长"_s);
  const Accounts accounts(office->Connection());
  EXPECT_EQ(accounts.LogOnRule(), Accounts::Rule::Password);
  EXPECT_NO_THROW(accounts.LogOn(u"1"_s, kFirstSecret));
  const Design design = ReadDesign(*office->Connection());
  ASSERT_EQ(design.transfers.size(), 1u) << "those of tables that were not chosen are left out";
  EXPECT_EQ(design.transfers[0].source, u"Lwdj"_s);
  EXPECT_EQ(office->Connection()->Execute(u"Insert Into Lwdj (ArchiveID, Amaintitle) Values ('1', '通知')"_s), 1);
  EXPECT_TRUE(QFile::exists(folder_.filePath(u"RegIDFormula.Ini"_s)));
}

TEST_P(NewOfficeTest, TheReadyMadeDesignsWorkTogether) {
  const OfficeOrder order = Order(NamesOf(host::ReadyMades()));
  MakeOffice(order);
  EXPECT_THAT(Defects(*HostDatabase::Open(order.where)->Connection()), IsEmpty());
}

TEST(ReadyMadeDesigns, EachWorksAlone) {
  for (const QString& name : NamesOf(host::ReadyMades())) {
    const auto database = TestDatabase::Create("SQLite");
    const auto connection = database->Connect();
    ApplyDesign(*connection, PlanDesign(*connection, {}, host::JoinedDesign({name})));
    EXPECT_THAT(Defects(*connection), IsEmpty()) << name.toStdString();
  }
}

TEST_P(NewOfficeTest, NothingIsLeftOfAnOfficeThatIsRefused) {
  OfficeOrder order = Order({u"incoming"_s});
  order.password = u"short"_s;
  EXPECT_THROW(MakeOffice(order), HostError);
  EXPECT_TRUE(IsUntouched());
  order = Order({u"incoming"_s, u"nothing"_s});
  EXPECT_THROW(MakeOffice(order), HostError);
  order = Order({u"incoming"_s});
  order.administrator = u" "_s;
  EXPECT_THROW(MakeOffice(order), HostError);
  EXPECT_TRUE(IsUntouched());
}

TEST_P(NewOfficeTest, ADatabaseInUseIsNotMadeAnOfficeAgain) {
  const OfficeOrder order = Order({u"incoming"_s});
  MakeOffice(order);
  EXPECT_THROW(MakeOffice(order), HostError);
  EXPECT_EQ(HostDatabase::Open(order.where)->Users().size(), 1);
}

TEST(ReadyMadeDesigns, StandInTheirFilesAsAnExportWouldWriteThem) {
  for (const QString& name : NamesOf(host::ReadyMades())) {
    QFile file(u"%1/designs/%2.yaml"_s.arg(QStringLiteral(SOURCES), name));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    const QByteArray text = file.readAll();
    EXPECT_EQ(DesignText(ParseDesign(text)), text) << name.toStdString();
  }
}

TEST(NewOfficeDialog, MakesAnOfficeFromTheLogOnWindow) {
  const QTemporaryDir folder;
  Services().programDirectory = folder.path();
  Services().fileDialog = [&](const FileRequest&) { return folder.filePath(u"档案室"_s); };
  host::LogOnDialog logOn({}, []() -> QString { return {}; });
  logOn.show();
  WithWindow(u"NewOfficeDialog"_s, [](QWidget& dialog) {
    EXPECT_EQ(UnnamedControls(dialog), QStringList());
    const auto type = [&](const QString& box, const QString& text) { Retype(Find<QLineEdit>(dialog, box), text); };
    auto& message = Find<QLabel>(dialog, u"LblMessage"_s);
    type(u"TxtPassword"_s, kFirstSecret);
    Click(Find(dialog, u"CmdOK"_s));
    EXPECT_EQ(message.text(), u"两次输入的口令不一致。"_s);
    type(u"TxtRepeat"_s, kFirstSecret);
    Click(Find(dialog, u"CmdOK"_s));
    EXPECT_EQ(message.text(), u"请选择数据库文件，或输入 ODBC 连接串。"_s);
    Click(Find(dialog, u"CmdBrowse"_s));
    auto& designs = Find<QListWidget>(dialog, u"LstDesigns"_s);
    EXPECT_EQ(designs.count(), 8);
    designs.item(2)->setCheckState(Qt::Checked);
    Click(Find(dialog, u"CmdOK"_s));
  });
  Click(Find(logOn, u"CmdNew"_s));
  ASSERT_TRUE(QFile::exists(folder.filePath(u"档案室.db"_s)));
  EXPECT_TRUE(Find<QLabel>(logOn, u"LblMessage"_s).text().startsWith(u"已建立"_s));
  Retype(Find<QLineEdit>(logOn, u"TxtPassword"_s), kFirstSecret);
  Click(Find(logOn, u"CmdOK"_s));
  ASSERT_EQ(logOn.result(), QDialog::Accepted) << Find<QLabel>(logOn, u"LblMessage"_s).text().toStdString();
  const Design made = ReadDesign(*logOn.TakeSession()->Database().Connection());
  QStringList tables;
  for (const Design::Table& table : made.tables) tables << table.name;
  EXPECT_THAT(tables, testing::IsSupersetOf({u"Lwdj"_s, u"Fwdj"_s, u"Gdwj"_s, u"Hyjy"_s}));
}

}  // namespace
}  // namespace folvane::test
