// The store on a server, as the program sets it up and deletes from it.
#include <atomic>
#include <curl/curl.h>
#include <dlfcn.h>
#include <gmock/gmock.h>

#include "base/TypedValues.h"
#include "originals/FtpTestServer.h"
#include "originals/OriginalStore.h"
#include "records/DesignedDatabase.h"
#include "shell/SharedState.h"

// The network that cannot be made ready: where asked for, the transport's own beginning fails.
static std::atomic<bool> networkFails = false;
extern "C" CURLcode curl_global_init(long flags) {
  using Init = CURLcode (*)(long);
  static const auto real = reinterpret_cast<Init>(dlsym(RTLD_NEXT, "curl_global_init"));
  return networkFails ? CURLE_FAILED_INIT : real(flags);
}

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QString kNoAccount = u"FTP服务器账号未配置，请与网络管理员联系！"_s;
const QString kNoServer = u"FTP服务器仍未设置，请与网络管理员联系！"_s;
const QString kNoConnection = u"FTP Server连接错误！hConnection值为0，请退出系统重新登录后再试！"_s;
const QString kReadStore = u"Select Info_Description,Info_Type from Report_Info Where Report_Id = '2002123456789'"_s;
const QString kReadPort = u"Select * From report_info where report_id='2002123456789'"_s;
const QString kReadAccount = u"Select * from report_info where report_id = '20020123456789'"_s;

class ServerStoreTest : public DesignTest {
 protected:
  static void SetUpTestSuite() { server = std::make_unique<FtpServer>(); }
  static void TearDownTestSuite() { server.reset(); }

  void SetUp() override {
    DesignTest::SetUp();
    server->Reset();
    Shared().DatabaseKind = u"SYSBASE"_s;
  }
  void TearDown() override {
    networkFails = false;
    Shared().hOpen = false;
    Shared().hConnection.reset();
    Shared().FtpConnected = false;
    Shared().OriginalRoot.clear();
    DesignTest::TearDown();
  }

  void SetStore(const QString& root, const QString& port) {
    design_->Insert(u"Report_Info"_s, u"Report_Id,Info_Type,note"_s, {u"2002123456789"_s, root, port});
  }
  void SetAccount(const QString& user, const QString& password, const QString& address) {
    design_->Insert(u"Report_Info"_s, u"Report_Id,Info_Type,Info_Description,note"_s,
                    {u"20020123456789"_s, user, password, address});
  }
  /// Both rows as the server wants them.
  void SetAll(const QString& root = {}) {
    const FtpLogin login = server->Login();
    SetStore(root, u" %1 "_s.arg(login.port));
    SetAccount(login.user, login.password, login.server);
  }
  void AddOriginal(int record, const QString& id, const QString& filePath) {
    design_->Insert(u"Original_Text"_s, u"ID,Original_Name,Type,RecordID,Size,FileOrder,FilePath"_s,
                    {id, u"正文"_s, u".tif"_s, DesignedDatabase::Key(record), u"1"_s, u"1"_s, filePath});
  }
  static QString OfRecord(int record) { return u" Where RecordID = '"_s + DesignedDatabase::Key(record) + u"'"_s; }
  int Rows() { return design_->Value(u"select count(*) from Original_Text"_s).toInt(); }

  static inline std::unique_ptr<FtpServer> server;
  MessageBoxes boxes_;
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(ServerStoreTest);

TEST_P(ServerStoreTest, TheServerIsConnectedOnceAndItsRootEntered) {
  QDir().mkpath(server->Path(u"archive"_s));
  SetAll(u"archive"_s);
  InitOriginalStore();
  EXPECT_EQ(Shared().OriginalRoot, u"archive"_s);
  EXPECT_TRUE(Shared().hOpen);
  EXPECT_TRUE(Shared().FtpConnected);
  ASSERT_TRUE(Shared().hConnection);
  EXPECT_EQ(server->TakeCommands().last(), u"CWD /archive"_s);
  EXPECT_THAT(log_->Take(), ElementsAre(kReadStore, kReadPort, kReadAccount));
  Shared().DatabaseKind = u"SQL SERVER"_s;
  InitOriginalStore();
  EXPECT_THAT(log_->Take(), ElementsAre(kReadStore)) << "a connection that is there is kept";
  EXPECT_THAT(server->TakeCommands(), IsEmpty());
  EXPECT_THAT(boxes_.Requests(), IsEmpty());
}

TEST_P(ServerStoreTest, ARootThatTheServerDoesNotHaveIsNotNoticed) {
  SetAll(u"none"_s);
  InitOriginalStore();
  EXPECT_TRUE(Shared().FtpConnected);
  EXPECT_EQ(server->TakeCommands().last(), u"CWD /none"_s);
}

TEST_P(ServerStoreTest, WithoutARowTheRootIsEmptyAndARowIsMade) {
  SetAccount(u"<null>"_s, u"<null>"_s, u"<null>"_s);
  InitOriginalStore();
  EXPECT_EQ(Shared().OriginalRoot, QString());
  EXPECT_EQ(design_->Value(u"select Info_Type from Report_Info where Report_Id = '2002123456789'"_s), QString());
  EXPECT_THAT(log_->Take(),
              ElementsAre(kReadStore, u"Insert Into Report_Info(Report_Id,Info_Type) Values('2002123456789','')"_s,
                          kReadPort, kReadAccount));
  EXPECT_THAT(boxes_.Texts(), ElementsAre(kNoAccount));
}

TEST_P(ServerStoreTest, WithoutAnAccountItsRowIsMadeAndTheAnswerIsTrue) {
  SetStore(u""_s, u"<null>"_s);
  EXPECT_TRUE(ConnectFtpServer());
  EXPECT_THAT(log_->Take(), ElementsAre(kReadPort, kReadAccount,
                                        u"Insert Into Report_Info(Report_Id,Info_Type,Info_Description) "
                                        "Values('20020123456789','','')"_s));
  EXPECT_EQ(boxes_.Last().text, kNoAccount);
  EXPECT_EQ(boxes_.Last().flags, 64);
  EXPECT_EQ(boxes_.Last().title, u"系统提示"_s);
  EXPECT_FALSE(Shared().hConnection);
}

TEST_P(ServerStoreTest, AnAccountWithoutAUserIsToldAndTheAnswerIsFalse) {
  SetStore(u""_s, u"<null>"_s);
  SetAccount(u"<null>"_s, u"secret"_s, u"127.0.0.1"_s);
  EXPECT_FALSE(ConnectFtpServer());
  EXPECT_THAT(boxes_.Texts(), ElementsAre(kNoAccount));
  EXPECT_EQ(boxes_.Last().flags, 64);
  EXPECT_EQ(boxes_.Last().title, u"系统提示"_s);
}

TEST_P(ServerStoreTest, AnEmptyUserIsOneAndTheMissingAddressIsTold) {
  SetStore(u""_s, u"<null>"_s);
  SetAccount(u""_s, u""_s, u"<null>"_s);
  Shared().hOpen = true;
  EXPECT_TRUE(ConnectFtpServer());
  EXPECT_THAT(boxes_.Texts(), ElementsAre(kNoServer));
  EXPECT_EQ(boxes_.Last().flags, 64);
  EXPECT_EQ(boxes_.Last().title, u"系统提示"_s);
}

TEST_P(ServerStoreTest, WithoutTheNetworkOrWhenConnectedNothingIsDone) {
  SetStore(u""_s, u"no number"_s);
  SetAccount(u"user"_s, u""_s, u"127.0.0.1"_s);
  EXPECT_TRUE(ConnectFtpServer()) << "the network is not open";
  Shared().hOpen = true;
  Shared().FtpConnected = true;
  EXPECT_TRUE(ConnectFtpServer()) << "there is a connection";
  EXPECT_THAT(boxes_.Requests(), IsEmpty());
  EXPECT_THAT(server->TakeCommands(), IsEmpty());
}

TEST_P(ServerStoreTest, AConnectionThatFailsIsToldWithItsReasonAndTheAnswerIsTrue) {
  const FtpLogin login = server->Login();
  SetStore(u""_s, QString::number(login.port));
  SetAccount(login.user, u"wrong"_s, login.server);
  Shared().hOpen = true;
  EXPECT_TRUE(ConnectFtpServer());
  EXPECT_FALSE(Shared().FtpConnected);
  EXPECT_FALSE(Shared().hConnection);
  EXPECT_THAT(boxes_.Texts(), ElementsAre(kNoConnection));
  EXPECT_EQ(boxes_.Last().flags, 64);
  EXPECT_EQ(boxes_.Last().title, u"系统提示"_s);
  EXPECT_TRUE(boxes_.Last().note.contains(u"530"_s)) << boxes_.Last().note.toStdString();
}

TEST_P(ServerStoreTest, ABlankPortIsTwentyOneAndOneThatIsNoNumberAnError) {
  SetStore(u""_s, u"  "_s);
  SetAccount(u"user"_s, u""_s, u"127.0.0.1"_s);
  Shared().hOpen = true;
  EXPECT_TRUE(ConnectFtpServer());
  EXPECT_TRUE(boxes_.Last().note.contains(u"127.0.0.1:21"_s)) << boxes_.Last().note.toStdString();
  for (const QString& port : {u"ftp"_s, u"65536"_s, u"-1"_s, u"99999999999"_s}) {
    design_->Run(u"update Report_Info set note = '%1' where Report_Id = '2002123456789'"_s.arg(port));
    EXPECT_EQ(ErrorFrom([] { ConnectFtpServer(); }).Kind(), DataErrorKind::Conversion) << port.toStdString();
  }
}

TEST_P(ServerStoreTest, ANetworkThatCannotBeOpenedIsAConversionErrorForTheCaller) {
  SetAll();
  networkFails = true;
  EXPECT_EQ(ErrorFrom([] { InitOriginalStore(); }).Kind(), DataErrorKind::Conversion);
  EXPECT_FALSE(Shared().hOpen);
  EXPECT_THAT(boxes_.Requests(), IsEmpty()) << "the dialogue is never shown";
  EXPECT_THAT(server->TakeCommands(), IsEmpty());
  networkFails = false;
  InitOriginalStore();
  EXPECT_TRUE(Shared().FtpConnected);
}

TEST_P(ServerStoreTest, TheDirectoryOfADeleteCountsFromTheTopOfTheServer) {
  SetAll(u"archive"_s);
  server->Write(u"archive/2002/7.tif"_s, "picture");
  server->Write(u"8.tif"_s, "picture");
  InitOriginalStore();
  server->TakeCommands();
  AddOriginal(1, u"7"_s, u"archive\\2002"_s);
  AddOriginal(1, u"8"_s, QString());
  EXPECT_EQ(DeleteOriginalsAndTell(OfRecord(1)), QString());
  EXPECT_THAT(server->Files(), IsEmpty());
  EXPECT_EQ(Rows(), 0);
  EXPECT_THAT(server->TakeCommands(),
              testing::UnorderedElementsAre(u"CWD /archive/2002"_s, u"CWD /archive/2002"_s, u"DELE 7.tif"_s, u"CWD /"_s,
                                            u"CWD /"_s, u"DELE 8.tif"_s));
}

TEST_P(ServerStoreTest, ASharedFileStaysOnTheServerUntilItsLastHolderGoes) {
  SetAll();
  server->Write(u"2002/7.tif"_s, "picture");
  InitOriginalStore();
  AddOriginal(1, u"7"_s, u"2002"_s);
  AddOriginal(2, u"7"_s, u"2002"_s);
  DeleteOriginals(OfRecord(1));
  EXPECT_TRUE(server->Has(u"2002/7.tif"_s));
  EXPECT_EQ(Rows(), 1);
  DeleteOriginals(OfRecord(2));
  EXPECT_FALSE(server->Has(u"2002/7.tif"_s));
  EXPECT_EQ(Rows(), 0);
}

TEST_P(ServerStoreTest, WithoutAConnectionTheRowsGoTheFileStaysAndIsTold) {
  server->Write(u"2002/7.tif"_s, "picture");
  AddOriginal(1, u"7"_s, u"2002"_s);
  EXPECT_TRUE(DeleteOriginalsAndTell(OfRecord(1)).contains(u"没有连接"_s));
  EXPECT_TRUE(server->Has(u"2002/7.tif"_s));
  EXPECT_EQ(Rows(), 0);
}

TEST_P(ServerStoreTest, ADeleteThatTheServerRefusesIsToldAndTheRowsGo) {
  SetAll();
  server->Write(u"7.tif"_s, "of the top");
  server->Write(u"2003/8.tif"_s, "picture");
  InitOriginalStore();
  server->TakeCommands();
  AddOriginal(1, u"7"_s, u"2002"_s);
  AddOriginal(1, u"8"_s, u"2003"_s);
  const QString told = DeleteOriginalsAndTell(OfRecord(1));
  EXPECT_TRUE(told.startsWith(u"1 个原文文件"_s) && told.contains(u"550"_s)) << told.toStdString();
  EXPECT_EQ(server->Files(), QStringList{u"7.tif"_s}) << "no file goes from a directory that was not meant";
  EXPECT_THAT(server->TakeCommands().filter(u"DELE"_s), ElementsAre(u"DELE 8.tif"_s));
  EXPECT_EQ(Rows(), 0);
}

TEST_P(ServerStoreTest, AServerThatIsGoneIsAskedOnceAndTheRestIsTold) {
  SetAll();
  InitOriginalStore();
  server->SetRules(u"drop USER -1\ndrop CWD -1"_s);
  server->TakeCommands();
  for (int id = 1; id <= 5; ++id) AddOriginal(1, QString::number(id), u"2002"_s);
  const QString told = DeleteOriginalsAndTell(OfRecord(1));
  EXPECT_TRUE(told.startsWith(u"5 个原文文件"_s)) << told.toStdString();
  EXPECT_EQ(server->TakeCommands().filter(u"USER"_s).size(), 1);
  EXPECT_EQ(Rows(), 0);
}

TEST_P(ServerStoreTest, AMalformedPlaceIsRefusedBeforeTheServerHearsOfIt) {
  SetAll();
  server->Write(u"2002/7.tif"_s, "picture");
  InitOriginalStore();
  server->TakeCommands();
  AddOriginal(1, u"7"_s, u"2002"_s);
  AddOriginal(1, u"../8"_s, u"2002"_s);
  EXPECT_THROW(DeleteOriginals(OfRecord(1)), DataError);
  EXPECT_THAT(server->TakeCommands(), IsEmpty());
  EXPECT_EQ(Rows(), 2);
}

}  // namespace folvane::test
