// Hostile templates and records in the report engine, and hostile pages in the help: nothing outside of their own
// folder is read, and a value is text whatever it looks like.
#include <QTemporaryDir>

#include "injection/Watched.h"
#include "reportengine/EngineFixture.h"

namespace folvane::test {
namespace {

class HostileReportsTest : public EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    Database().Native(u"create table Hostile (ArchiveID varchar(20) primary key, Title varchar(200))"_s);
    QFile secret(outside_.filePath(u"secret.html"_s));
    EXPECT_TRUE(secret.open(QIODevice::WriteOnly));
    secret.write("SECRET");
  }
  void TearDown() override { Database().Native(u"drop table Hostile"_s); }

  QTemporaryDir outside_;
};
FOLVANE_ON_EACH_DATABASE(HostileReportsTest);

}  // namespace

TEST_P(HostileReportsTest, AValueIsPrintedAsItIs) {
  QStringList texts;
  for (const QString& text : HostileLines())
    if (!text.contains(QChar(0x202e)) && !text.contains(QChar(0xd83d))) texts << text;
  for (qsizetype at = 0; at < texts.size(); ++at)
    Database().Native(
        u"insert into Hostile values ('%1','%2')"_s.arg(100 + at).arg(QString(texts[at]).replace(u'\'', u"''"_s)));
  WriteTemplate(u"1"_s, u"{{#ROWS}}<p>[{{Title}}]</p>{{/ROWS}}"_s);
  const QString printed = Printed(Request(u"Hostile"_s, u"ArchiveID > '0'"_s, u"1"_s));
  for (const QString& text : texts)
    EXPECT_TRUE(printed.contains(u'[' + QString(text).remove(u' ') + u']')) << text.toStdString();
}

TEST_P(HostileReportsTest, ATemplateReadsNothingOutsideOfItsFolder) {
  Database().Native(u"insert into Hostile values ('1','x')"_s);
  const QString secret = outside_.filePath(u"secret.html"_s);
  for (const QString& line :
       {u"{{>SECRET}}"_s, u"{{>%1}}"_s.arg(secret), u"{{%INCLUDE %1}}"_s.arg(secret),
        u"{{=<% %>=}}<%>%1%>"_s.arg(secret), u"<link rel=stylesheet href=\"%1\">"_s.arg(secret),
        u"<style>@import url(%1);</style>"_s.arg(secret), u"<img src=\"file://%1\">"_s.arg(secret),
        u"<img src=\"../../../../../../..%1\">"_s.arg(secret),
        u"<iframe src=\"%1\"></iframe><object data=\"%1\"></object>"_s.arg(secret),
        u"<script>document.write('SECRET'.toLowerCase())</script>"_s}) {
    WriteTemplate(u"1"_s, line + u"<p>{{#ROWS}}{{Title}}{{/ROWS}}</p>"_s);
    const ReportRequest request = Request(u"Hostile"_s, u"ArchiveID > '0'"_s, u"1"_s);
    const QString refusal = Refusal(request);
    const QString printed = refusal.isEmpty() ? Printed(request) : QString();
    EXPECT_FALSE(printed.contains(u"SECRET"_s) && !line.contains(u"SECRET"_s)) << line.toStdString();
    EXPECT_FALSE(printed.contains(u"secret"_s) && line.contains(u"script"_s)) << line.toStdString();
  }
}

}  // namespace folvane::test
