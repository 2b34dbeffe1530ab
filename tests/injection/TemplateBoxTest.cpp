// Hostile texts in the report designer: the template is kept as it was typed, and neither its pages nor what is told of
// it reach anything.
#include <QPlainTextEdit>

#include "components/reports/ReportDesigner.h"
#include "injection/Watched.h"
#include "reportengine/EngineFixture.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {

class TemplateBoxTest : public EngineTest {
 protected:
  /// Saves a template whatever is wrong with it, and opens it again. Answers what was typed.
  QString Save(const QString& text) {
    MessageBoxes boxes;
    boxes.Answer(6);
    QString typed;
    InDesigner([&](QWidget& window) {
      PasteInto(window, u"TxtTemplate"_s, text);
      typed = Template(window);
      FindAction(window, u"TlbDesigner"_s, u"CmdSave"_s).trigger();
      EXPECT_TRUE(TextIn(window, u"LblState"_s).startsWith(u"模板已保存。"_s));
      ExpectNoMarkup(window, "report designer");
    });
    InDesigner([&](QWidget& window) {
      EXPECT_EQ(Template(window), typed);
      ExpectNoMarkup(window, "report designer again");
    });
    EXPECT_TRUE(typed.contains(text));
    return typed;
  }
  static QString Template(const QWidget& window) {
    return Find<QPlainTextEdit>(window, u"TxtTemplate"_s).toPlainText();
  }
  void InDesigner(const WindowSteps& steps) {
    WithWindow(u"ReportDesigner"_s, steps);
    reports::DesignReport(Request(u"Lwdj"_s, u"RegID = 1"_s, u"55"_s));
  }
};
FOLVANE_ON_EACH_DATABASE(TemplateBoxTest);

}  // namespace

TEST_P(TemplateBoxTest, ATemplateIsKeptAsTyped) {
  {
    const Canaries canaries(Database(), program_);
    const Box box{"template", [this](const QString& text) { return Save(text); },
                  [this] { return QString::fromUtf8(program_.Read(u"Reports/55.html"_s)); },
                  [this] { QFile::remove(program_.Path(u"Reports/55.html"_s)); }};
    TryBox(Database(), box, SomeHostileLines(), [] { return false; });
  }
  Database().Native(u"drop table Canary"_s);
}

}  // namespace folvane::test
