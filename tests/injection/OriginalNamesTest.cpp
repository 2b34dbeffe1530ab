// Hostile names of files that become originals, in a directory and on an FTP server.
#include <QDirIterator>
#include <QTreeView>

#include <folvane/HostServices.h>

#include "components/originals/FrmAddOriginals.h"
#include "components/originals/OriginalNames.h"
#include "injection/Watched.h"
#include "originalswork/WorkFixture.h"
#include "support/FtpServer.h"

namespace folvane::test {
namespace {
using namespace originals;

/// The stores in which originals of a record lie: beside each there is a tree that nothing may touch.
class HostileNamesTest : public WorkTest {
 protected:
  void SetUp() override {
    WorkTest::SetUp();
    canaries_.emplace(Database(), program_);
  }
  void TearDown() override {
    canaries_.reset();
    Shared().hConnection.reset();
    WorkTest::TearDown();
  }
  OriginalsRequest OnServer(FtpServer& server) {
    OriginalsRequest request = Request();
    request.databaseKind = Shared().DatabaseKind = u"SQL SERVER"_s;
    request.storeRoot = Shared().OriginalRoot = u"docs"_s;
    request.ftp = Shared().hConnection = std::make_shared<FtpConnection>(server.Login());
    return request;
  }
  /// All files below the directory of the program, but for those that a test put there.
  QStringList FilesOutsideStore() const {
    QStringList files;
    QDirIterator each(program_.Path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (each.hasNext())
      if (const QString file = QDir(program_.Path()).relativeFilePath(each.next()); !file.startsWith(u"Data/"_s))
        files << file;
    files.sort();
    return files;
  }
  /// Adds a file under each name, renames it to the next, and deletes it. The name is kept exactly, or fitted as the
  /// rows of originals have them, and the store has one file the more, then the less.
  void AddRenameDelete(const OriginalsRequest& request, const std::function<QStringList()>& stored) {
    const QStringList before = stored();
    const QString page = Source(u"page.txt"_s, "page");
    const QStringList outside = FilesOutsideStore();
    for (const QString& text : HostileTexts()) {
      SCOPED_TRACE(text.left(80).toStdString());
      RecordOriginals originals(request);
      const NameAndType parts = SplitFileName(text);
      const Original added = originals.Add({FitName(parts.name), parts.type, page});
      EXPECT_TRUE(originals.Read().back().name == FitName(parts.name) || !text.isValidUtf16());
      EXPECT_EQ(stored().size(), before.size() + 1);
      originals.Rename(added, text);
      const QString kept = originals.Read().back().name;
      EXPECT_TRUE(kept == FitName(text) || !text.isValidUtf16()) << kept.toStdString();
      EXPECT_FALSE(originals.Delete(added));
      EXPECT_EQ(stored(), before);
      EXPECT_EQ(FilesOutsideStore(), outside);
    }
    EXPECT_EQ(RowCount(), 0);
  }

  MessageBoxes boxes_;
  std::optional<Canaries> canaries_;
};
FOLVANE_ON_EACH_DATABASE(HostileNamesTest);

}  // namespace

TEST_P(HostileNamesTest, StayNamesInADirectory) {
  AddRenameDelete(Request(), [this] {
    QStringList files;
    for (const StoredFile& file : OpenOriginalFiles(Request())->List()) files << file.name;
    return files;
  });
}

TEST_P(HostileNamesTest, StayNamesOnAServer) {
  FtpServer server;
  server.Write(u"canary.txt"_s, "alive");
  server.Write(u"docs/readme.txt"_s, "no original");
  AddRenameDelete(OnServer(server), [&] { return server.Files(); });
  EXPECT_EQ(server.Read(u"canary.txt"_s), QByteArray("alive"));
}

TEST_P(HostileNamesTest, AnExportStaysInItsFolder) {
  QDir().mkpath(program_.Path(u"out"_s));
  const Original added = Added(u"page.txt"_s);
  const QStringList before = FilesOutsideStore();
  QStringList names;
  for (const QString& text : HostileTexts()) {
    const QString name = ExportName(SplitFileName(FitName(text)), names);
    names << name;
    Originals().Export(added, program_.Path(u"out/"_s + name));
    EXPECT_TRUE(program_.Has(u"out/"_s + name)) << name.toStdString();
    EXPECT_EQ(QDir::cleanPath(program_.Path(u"out/"_s + name)), program_.Path(u"out/"_s + name));
  }
  EXPECT_EQ(FilesOutsideStore().size(), before.size() + names.size());
}

TEST_P(HostileNamesTest, AreShownAsTheyAreAndNoMarkup) {
  for (const QString& text : HostileLines()) {
    design_->Run(u"delete from Original_Text"_s);
    RecordOriginals originals = Originals();
    originals.Add({FitName(text), u".txt"_s, Source(u"page.txt"_s, "page")});
    WithWindow(u"frmOriginals"_s, [&](QWidget& window) {
      ExpectNoMarkup(window, "originals");
      EXPECT_EQ(Find<QTreeView>(window, u"LvOriginals"_s).model()->index(0, 0).data().toString(), FitName(text));
    });
    EXPECT_TRUE(Services().handleOriginals(Request()));
    WithWindow(u"frmAddOriginals"_s, [&](QWidget& window) { ExpectNoMarkup(window, "add"); });
    boxes_.Answer(6);  // leaves without adding
    FrmAddOriginals window(nullptr, originals);
    window.Offer({{FitName(text), u".txt"_s, program_.Path(u"in/page.txt"_s)}});
    window.exec();
  }
}

}  // namespace folvane::test
