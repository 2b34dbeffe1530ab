#include <QThread>
#include <QTimer>

#include "archiving/FrmArchiveFixture.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {

class FrmArchiveTransferTest : public FrmArchiveTest {
 protected:
  QString StatusOf(int number) { return design_->Value(u"select FileStatus from Lwdj where RegID = %1"_s.arg(number)); }
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(FrmArchiveTransferTest);

TEST_P(FrmArchiveTransferTest, ThePanelTransfersTheTickedInTheOrderOfTheirNumbers) {
  AddDocuments(4);
  InWindow([&](const ArchiveWindow& window) {
    for (const int row : {3, 1, 4}) window.Tick(row);
    GiveYear(window);
    window.Ok();
    EXPECT_EQ(boxes_.Texts(), QStringList{u"成功归档3份记录！起始件档号为：2002-0001"_s});
    EXPECT_EQ(boxes_.Last().flags, 0);
    EXPECT_EQ(window.Column(u"lstData"_s, 1), QStringList{u"3"_s}) << "the filter outlives the reading";
    EXPECT_EQ(window.Status(), u"当前记录：第1条/共1条"_s);
    EXPECT_EQ(window.Numbers(), QStringList{QString()});
  });
  EXPECT_EQ(Archived(), (QStringList{u"题名2 2002-0001"_s, u"题名4 2002-0002"_s, u"题名1 2002-0003"_s}));
  EXPECT_EQ(StatusOf(2), u"已归档"_s);
  EXPECT_EQ(StatusOf(3), u"需归档"_s);
  EXPECT_EQ(program_.Read(u"DoArchiveLog.INI"_s), "[Wsda]\r\nFILEYEAR=2002\r\n");
}

TEST_P(FrmArchiveTransferTest, TheEntryAsksInAWindowFirst) {
  AddDocuments(2);
  InWindow([&](const ArchiveWindow& window) {
    window.Tick(2);
    WithWindow(u"FrmArchivePara"_s, [](QWidget& asked) { asked.close(); });
    window.Entry(u"mnuArchive"_s).trigger();
    EXPECT_EQ(boxes_.Texts(), QStringList()) << "left without a transfer";
    EXPECT_TRUE(window.IsTicked(2));
    WithWindow(u"FrmArchivePara"_s, [](QWidget& asked) {
      Retype(Find<QWidget>(asked, u"Txt(1)"_s), u"2003"_s);
      Click(Find<QWidget>(asked, u"CmdOK"_s));
    });
    window.Key(u"DoArchive"_s).trigger();
    EXPECT_EQ(boxes_.Texts(), QStringList{u"成功归档1份记录！起始件档号为：2003-0001"_s});
  });
  EXPECT_EQ(Archived(), QStringList{u"题名1 2003-0001"_s});
}

TEST_P(FrmArchiveTransferTest, WithoutATickNothingIsTransferred) {
  AddDocuments(2);
  InWindow([&](const ArchiveWindow& window) {
    window.Ok();
    window.Entry(u"mnuArchive"_s).trigger();
    EXPECT_EQ(boxes_.Texts(), (QStringList{u"未选择需归档项目！"_s, u"未选择需归档项目！"_s}));
    EXPECT_EQ(boxes_.Last().flags, 0);
  });
}

TEST_P(FrmArchiveTransferTest, ABlankFieldOfThePanelTransfersNothing) {
  AddDocuments(1);
  InWindow([&](const ArchiveWindow& window) {
    window.Tick(1);
    window.Ok();
    EXPECT_EQ(boxes_.Texts(), QStringList{u"请输入‘年度’字段的值"_s});
    EXPECT_TRUE(window.IsTicked(1));
    EXPECT_TRUE(window.Control(u"Txt(1)"_s).hasFocus());
  });
  EXPECT_EQ(Archived(), QStringList());
}

TEST_P(FrmArchiveTransferTest, ATransferThatFailedKeepsTheTicksAndClearsTheBox) {
  AddDocuments(2);
  InWindow([&](const ArchiveWindow& window) {
    Click(window.Box(u"Check3"_s));
    GiveYear(window);
    design_->Run(u"update Lwdj set FileStatus='不归档'"_s);  // by another workstation
    window.Ok();
    EXPECT_EQ(boxes_.Texts(), QStringList{u"对数据进行归档操作不成功！\n\r请检查数据值和权限！"_s});
    EXPECT_EQ(boxes_.Last().flags, 16);
    EXPECT_EQ(boxes_.Last().title, u"文件归档"_s);
    EXPECT_EQ(window.Numbers(), (QStringList{u"1"_s, u"2"_s}));
    EXPECT_FALSE(window.Box(u"Check3"_s).isChecked());
    design_->Run(u"update Lwdj set FileStatus='需归档'"_s);
    boxes_.Clear();
    window.Ok();
    EXPECT_EQ(boxes_.Texts(), QStringList{u"成功归档2份记录！起始件档号为：2002-0001"_s}) << "and can be repeated";
  });
}

TEST_P(FrmArchiveTransferTest, OriginalsAreTakenWhereTheBoxSaysSo) {
  AddDocuments(2);
  for (const int number : {1, 2})
    design_->AddOriginal(DesignedDatabase::Key(number), QString::number(number), u"正文"_s, 1);
  InWindow([&](const ArchiveWindow& window) {
    GiveYear(window);
    window.Tick(1);
    window.Ok();
    EXPECT_EQ(design_->Value(u"select count(*) from Original_Text"_s), u"2"_s);
    Click(window.Box(u"Check2"_s));
    window.Tick(1);
    window.Ok();
    EXPECT_EQ(design_->Value(u"select count(*) from Original_Text"_s), u"3"_s);
  });
}

TEST_P(FrmArchiveTransferTest, KeysAreTakenAsTheyStand) {
  const QStringList keys{QString(), u"%_[x]"_s, u"a'b"_s, u"k\"7 "_s, u"钥匙😀"_s};
  for (const QString& key : keys) {
    design_->Insert(u"Lwdj"_s, u"ArchiveID,RegID,Amaintitle,FileStatus"_s,
                    {key, QString::number(keys.indexOf(key)), u"“"_s + key + u"”"_s, u"需归档"_s});
    design_->AddOriginal(key, u"1"_s, u"正文"_s, 1);
  }
  InWindow([&](const ArchiveWindow& window) {
    window.ClickColumn(1);
    Click(window.Box(u"Check2"_s));
    Click(window.Box(u"Check3"_s));
    GiveYear(window);
    window.Ok();
    EXPECT_EQ(boxes_.Texts(), QStringList{u"成功归档5份记录！起始件档号为：2002-0001"_s});
    EXPECT_EQ(window.Rows(), 0);
  });
  EXPECT_EQ(Archived(), (QStringList{u"“” 2002-0001"_s, u"“%_[x]” 2002-0002"_s, u"“a'b” 2002-0003"_s,
                                     u"“k\"7 ” 2002-0004"_s, u"“钥匙😀” 2002-0005"_s}));
  EXPECT_EQ(design_->Value(u"select count(*) from Original_Text"_s), u"10"_s);
}

TEST_P(FrmArchiveTransferTest, TicksThatTheListHasLetGoOfGoAlong) {
  AddDocuments(100);
  InWindow([&](const ArchiveWindow& window) {
    window.Tick(2);
    window.Entry(u"mnuLast"_s).trigger();
    ASSERT_LT(window.Rows(), 100) << "the list begins anew so far away";
    window.Tick(window.Rows());
    EXPECT_EQ(window.Numbers().last(), u"2"_s);
    GiveYear(window);
    window.Ok();
  });
  EXPECT_EQ(Archived(), (QStringList{u"题名99 2002-0001"_s, u"题名1 2002-0002"_s}));
}

TEST_P(FrmArchiveTransferTest, TheLineBesideTheKeyTellsWhatWillGoWhere) {
  AddDocuments(3);
  design_->Run(u"insert into Wsda (ArchiveID,FileYear,ItemNo) values ('9','2002',11)"_s);
  InWindow([&](const ArchiveWindow& window) {
    const auto tells = [&](const QString& text) {
      return WaitUntil([&] { return window.Text(u"LblForecast"_s) == text; });
    };
    EXPECT_TRUE(tells(u"请勾选要归档的文件；录入各字段后，这里显示首件档号"_s));
    window.Tick(1);
    window.Tick(2);
    GiveYear(window);
    EXPECT_TRUE(tells(u"将归档 2 份文件，归入“2002”，首件档号“2002-0012”"_s))
        << qPrintable(window.Text(u"LblForecast"_s));
    design_->Run(u"delete from ArchiveNo_Format"_s);
    window.Choose(u"Fwdj"_s);
    window.Choose(u"Lwdj"_s);
    EXPECT_TRUE(tells(u"目标库“Wsda”没有设置档号格式，不能归档"_s));
  });
}

TEST_P(FrmArchiveTransferTest, ATableWithoutAFormatFailsInTheEngine) {
  AddDocuments(1);
  design_->Run(u"delete from ArchiveNo_Format"_s);
  InWindow([&](const ArchiveWindow& window) {
    window.Tick(1);
    window.Ok();
    EXPECT_EQ(boxes_.Texts().size(), 1) << "an error on the empty field name";
    EXPECT_NE(boxes_.Last().text, u"对数据进行归档操作不成功！\n\r请检查数据值和权限！"_s);
    EXPECT_TRUE(window.IsTicked(1));
  });
  EXPECT_EQ(StatusOf(1), u"需归档"_s);
}

TEST_P(FrmArchiveTransferTest, ALongTransferIsSeenAndTheKeyInTheStatusBarTakesEverythingBack) {
  AddDocuments(6);
  log_.reset();
  bool seen = false;
  InWindow([&](const ArchiveWindow& window) {
    Click(window.Box(u"Check2"_s));
    Click(window.Box(u"Check3"_s));
    GiveYear(window);
    auto& stop = window.Control(u"CmdStop"_s);
    int originals = 0;
    Connected()->OnStatement([&](const QString& statement) {
      if (!statement.startsWith(u"Insert Into Original_Text"_s) || ++originals != 3) return;
      QThread::msleep(80);  // long enough to be shown
      QTimer::singleShot(0, &window.Window(), [&] {
        seen = stop.isVisible() && window.Control(u"ProMain"_s).isVisible();
        Click(stop);
      });
    });
    window.Ok();
    Connected()->OnStatement({});
    EXPECT_TRUE(seen);
    EXPECT_FALSE(stop.isVisible());
    EXPECT_EQ(window.Notice(), u"已取消归档，所有记录保持原样"_s);
    EXPECT_EQ(boxes_.Texts(), QStringList());
    EXPECT_EQ(window.Numbers().last(), u"6"_s) << "the ticks stay";
    EXPECT_FALSE(window.Box(u"Check3"_s).isChecked());
  });
  EXPECT_EQ(Archived(), QStringList());
  EXPECT_EQ(StatusOf(6), u"需归档"_s);
}

TEST_P(FrmArchiveTransferTest, ClosingTheWindowInMidTransferTakesEverythingBackAndItStays) {
  AddDocuments(4);
  log_.reset();
  InWindow([&](const ArchiveWindow& window) {
    Click(window.Box(u"Check2"_s));
    Click(window.Box(u"Check3"_s));
    GiveYear(window);
    int originals = 0;
    Connected()->OnStatement([&](const QString& statement) {
      if (!statement.startsWith(u"Insert Into Original_Text"_s) || ++originals != 2) return;
      QThread::msleep(80);
      QTimer::singleShot(0, &window.Window(), [&] { window.Window().close(); });
    });
    window.Ok();
    Connected()->OnStatement({});
    EXPECT_TRUE(window.Window().isVisible());
    EXPECT_EQ(window.Notice(), u"已取消归档，所有记录保持原样"_s);
  });
  EXPECT_EQ(Archived(), QStringList());
}

}  // namespace folvane::test
