#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QUrl>
#include <gtest/gtest.h>

#include "components/reports/ReportDocument.h"

namespace folvane::reports::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class ReportDocumentTest : public testing::Test {
 protected:
  ReportDocumentTest() : document_(Made(u"Reports"_s)) {
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    Made(u"ReportsElsewhere"_s);
    for (const char* path : {"Reports/seal.png", "outside.png", "ReportsElsewhere/seal.png"})
      picture.save(folder_.filePath(QString::fromLatin1(path)));
  }

  bool Gives(const QUrl& picture) { return document_.resource(QTextDocument::ImageResource, picture).isValid(); }
  QString Made(const QString& name) {
    QDir(folder_.path()).mkpath(name);
    return folder_.filePath(name);
  }

  QTemporaryDir folder_;
  ReportDocument document_;
};

TEST_F(ReportDocumentTest, HasThePicturesBesideTheTemplates) {
  EXPECT_TRUE(Gives(QUrl(u"seal.png"_s)));
  EXPECT_TRUE(Gives(QUrl::fromLocalFile(folder_.filePath(u"Reports/seal.png"_s))));
}

TEST_F(ReportDocumentTest, ReadsNoOtherFile) {
  EXPECT_FALSE(Gives(QUrl(u"../outside.png"_s)));
  EXPECT_FALSE(Gives(QUrl(u"../ReportsElsewhere/seal.png"_s)));
  EXPECT_FALSE(Gives(QUrl::fromLocalFile(folder_.filePath(u"outside.png"_s))));
  EXPECT_FALSE(Gives(QUrl(folder_.filePath(u"outside.png"_s))));
  EXPECT_FALSE(Gives(QUrl(u":/icons/print.svg"_s)));
  EXPECT_FALSE(Gives(QUrl(u"http://127.0.0.1/seal.png"_s)));
}

TEST_F(ReportDocumentTest, FollowsNoLinkOutOfTheFolder) {
  QFile::link(folder_.filePath(u"outside.png"_s), folder_.filePath(u"Reports/link.png"_s));
  EXPECT_FALSE(Gives(QUrl(u"link.png"_s)));
}

}  // namespace
}  // namespace folvane::reports::test
