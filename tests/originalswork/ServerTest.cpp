// The component over a store on a real server.
#include <folvane/FtpConnection.h>

#include "components/originals/StoreCheck.h"
#include "originalswork/WorkFixture.h"
#include "support/FtpServer.h"

namespace folvane::test {
namespace {
using namespace originals;

class ServerOriginalsTest : public WorkTest {
 protected:
  void SetUp() override {
    WorkTest::SetUp();
    Shared().DatabaseKind = u"SQL SERVER"_s;
    Shared().OriginalRoot = u"docs"_s;
    Shared().hConnection = std::make_shared<FtpConnection>(server_.Login());
  }
  void TearDown() override {
    Shared().hConnection.reset();
    WorkTest::TearDown();
  }
  RecordOriginals OnServer() {
    OriginalsRequest request = Request();
    request.databaseKind = Shared().DatabaseKind;
    request.storeRoot = Shared().OriginalRoot;
    request.ftp = Shared().hConnection;
    return RecordOriginals(request);
  }

  FtpServer server_;
};
FOLVANE_ON_EACH_DATABASE(ServerOriginalsTest);

TEST_P(ServerOriginalsTest, AddsReadsAndDeletes) {
  auto originals = OnServer();
  const Original added = originals.Add(FileToAdd::At(Source(u"正文.txt"_s, "on the server")));
  EXPECT_TRUE(server_.Has(added.filePath + u'/' + added.id + added.type));
  QBuffer content;
  content.open(QIODevice::WriteOnly);
  originals.Fetch(added, content);
  EXPECT_EQ(content.data(), "on the server");
  EXPECT_FALSE(originals.Delete(added)) << "nothing stays behind";
  EXPECT_EQ(server_.Files(), QStringList());
  EXPECT_EQ(RowCount(), 0);
}

TEST_P(ServerOriginalsTest, AFailureLeavesNeitherFileNorRow) {
  auto originals = OnServer();
  originals.Store();
  const QString path = Source(u"正文.txt"_s, QByteArray(10'000, 'x'));
  for (const QString& rule : {u"refuse STOR 550"_s, u"full 100"_s}) {
    server_.SetRules(rule);
    EXPECT_NE(ErrorOf([&] { originals.Add(FileToAdd::At(path)); }), QString()) << rule.toStdString();
    server_.SetRules({});
    EXPECT_EQ(server_.Files(), QStringList()) << rule.toStdString();
  }
  EXPECT_EQ(RowCount(), 0);
  const LockedStatement locked(*Connected(), 3);
  EXPECT_NE(ErrorOf([&] { originals.Add(FileToAdd::At(path)); }), QString());
  EXPECT_EQ(server_.Files(), QStringList()) << "taken back when the row is refused";
}

TEST_P(ServerOriginalsTest, TheCheckFindsWhatDoesNotBelongTogether) {
  auto originals = OnServer();
  originals.Add(FileToAdd::At(Source(u"a.txt"_s, "a")));
  const Original second = originals.Add(FileToAdd::At(Source(u"b.txt"_s, "b")));
  server_.Write(u"docs/lost.txt"_s, "x");
  originals.Store().Remove(second.Place());
  const auto findings =
      CheckStore(*Connected(), originals.Store(), [](const QString&, qint64, qint64) { return true; });
  ASSERT_TRUE(findings);
  EXPECT_EQ(findings->missingFiles.size(), 1u) << findings->Text().toStdString();
  EXPECT_EQ(findings->unknownFiles.size(), 1u) << findings->Text().toStdString();
}

}  // namespace
}  // namespace folvane::test
