// Hostile texts where the designer names tables and classes, and in what its pages of forms and transfers show.
#include "design/Shape.h"
#include "design/TableEdits.h"
#include "designer/FormPage.h"
#include "designer/NewTableDialog.h"
#include "designer/PlacePage.h"
#include "designer/TransfersPage.h"
#include "injection/PageBoxes.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

template <class Page>
class PlaceBoxesTest : public PageBoxesTest<Page> {
 protected:
  /// Types into a box of the page, leaves it and writes.
  QString Enter(const QString& box, const QString& text) {
    const QString typed = PasteInto(this->Shown(), box, text).trimmed();
    Press(Find(this->Shown(), box), Qt::Key_Return);
    this->Write();
    return typed;
  }
  void TryLine(const Box& box) {
    TryBox(this->Database(), box, FewHostileLines(), [this] { return this->WasTold(); });
  }
};

class TableBoxesTest : public PlaceBoxesTest<designer::TablePage> {
 protected:
  void AddTable() {
    session_->Change(u"x"_s, [](Design& design) {
      design.tables.push_back(design::NewTable(u"Htdj"_s, u"合同登记"_s, design.tables[0].classId, nullptr));
    });
    Shown().SetTable(u"Htdj"_s);
  }
  /// The name and caption of a table besides those of before, "" when there is none.
  QStringList Added() {
    const Design stored = Read();
    for (const Design::Table& table : stored.tables)
      if (!design::FindNamed(before_.tables, table.name)) return {table.name, table.caption};
    return {{}, {}};
  }
  /// Makes a table by the dialog, and writes it. Answers name and caption as they stood there at the end.
  QStringList InDialog(const QString& box, const QString& text) {
    designer::NewTableDialog dialog(*session_, before_.tables[0].classId, nullptr);
    dialog.show();
    PasteInto(dialog, u"TxtCaption"_s, u"合同登记"_s);
    PasteInto(dialog, u"TxtName"_s, u"Htdj"_s);
    PasteInto(dialog, box, text);
    const QStringList typed{TextIn(dialog, u"TxtName"_s).trimmed(), TextIn(dialog, u"TxtCaption"_s).trimmed()};
    Click(Find(dialog, u"CmdOK"_s));
    ExpectNoMarkup(dialog, "new table");
    if (dialog.isVisible()) refused_ = TextIn(dialog, u"LblMessage"_s);
    Write();
    return typed;
  }
};
FOLVANE_ON_EACH_DATABASE(TableBoxesTest);

using ClassBoxesTest = PlaceBoxesTest<designer::ClassPage>;
FOLVANE_ON_EACH_DATABASE(ClassBoxesTest);

/// A page that shows what others have called things.
template <class Page>
class ShownNamesTest : public PageBoxesTest<Page> {
 protected:
  void ExpectPlainNames() {
    for (const QString& text : HostileLines()) {
      SCOPED_TRACE(text.toStdString());
      this->session_->Change(u"x"_s, [&](Design& design) {
        for (Design::Table& table : design.tables) {
          table.caption = text;
          for (Design::Field& field : table.fields) field.caption = text;
        }
        for (Design::TransferMap& map : design.transfers)
          for (Design::TransferLink& link : map.links) link.caption = text;
      });
      this->Shown().SetTable(u"Lwdj"_s);
      QApplication::processEvents();
      ExpectNoMarkup(this->Shown(), "page");
    }
  }
};
using FormNamesTest = ShownNamesTest<designer::FormPage>;
FOLVANE_ON_EACH_DATABASE(FormNamesTest);
using TransferNamesTest = ShownNamesTest<designer::TransfersPage>;
FOLVANE_ON_EACH_DATABASE(TransferNamesTest);

}  // namespace

TEST_P(TableBoxesTest, TheCaptionOfATableIsKeptAsTyped) {
  Shown().SetTable(u"Lwdj"_s);
  TryLine({"caption", [this](const QString& text) { return Enter(u"TxtTableCaption"_s, text); },
           [this] {
             Design stored = Read();
             return TableOf(stored, u"Lwdj"_s).caption;
           },
           [this] { TakeBack(); }});
}

TEST_P(TableBoxesTest, ATableHasTheNameThatWasTypedOrItIsTold) {
  TryLine({"name",
           [this](const QString& text) {
             AddTable();
             return Enter(u"TxtTableName"_s, text);
           },
           [this] { return Added()[0]; }, [this] { TakeBack(); }});
}

TEST_P(TableBoxesTest, ANewTableHasTheNameAndCaptionThatWereTypedOrItIsTold) {
  TryLine({"new name", [this](const QString& text) { return InDialog(u"TxtName"_s, text)[0]; },
           [this] { return Added()[0]; }, [this] { TakeBack(); }});
  TryLine({"new caption", [this](const QString& text) { return InDialog(u"TxtCaption"_s, text)[1]; },
           [this] { return Added()[1]; }, [this] { TakeBack(); }});
}

TEST_P(ClassBoxesTest, TheNameOfAClassIsKeptAsTyped) {
  const int id = before_.classes.back().id;
  Shown().SetClass(id);
  TryLine({"class", [this](const QString& text) { return Enter(u"TxtClassName"_s, text); },
           [this] { return Read().classes.back().name; }, [this] { TakeBack(); }});
}

TEST_P(FormNamesTest, CaptionsAreNoMarkupOnTheForm) { ExpectPlainNames(); }

TEST_P(TransferNamesTest, CaptionsAreNoMarkupAmongTheTransfers) { ExpectPlainNames(); }

}  // namespace folvane::test
