// Hostile captions in the windows of orders: the list's, the keyboard's, and the grouping of the list.
#include <optional>

#include "entry/FrmKeyOrder.h"
#include "entry/KeyOrderFixture.h"
#include "injection/Watched.h"
#include "query/FrmOrderBy.h"
#include "query/FrmReadOrder.h"
#include "query/QueryFixture.h"
#include "records/YearFormula.h"

namespace folvane::test {
namespace {

QString WithCaption(const QString& field, const QString& caption) {
  return u"update DynamicWindows set ChnFieldName='%1' where FieldName='"_s.arg(
             QString(caption).replace(u'\'', u"''"_s)) +
         field + u'\'';
}

class KeyboardOrderTest : public KeyOrderFixture {
 protected:
  /// Moves the first field, of that caption, behind the second.
  void MoveFirst(const QString& caption) {
    FrmKeyOrder window;
    window.CurrTable = u"Lwdj"_s;
    WithWindow(u"FrmKeyOrder"_s, [&](QWidget& shown) {
      EXPECT_EQ(ColumnOf(shown, u"LstFieldList"_s).value(0), caption);
      ClickRow(shown, u"LstFieldList"_s, 0);
      Click(shown, u"ImgDown"_s);
      EXPECT_EQ(ColumnOf(shown, u"LstFieldList"_s).value(1), caption);
      ExpectNoMarkup(shown, "keyboard");
      Click(shown, u"CmdOK"_s);
      EXPECT_FALSE(shown.isVisible());
    });
    window.Open();
  }

  const TempProgramDirectory program_;
  MessageBoxes boxes_;
};
FOLVANE_ON_EACH_DATABASE(KeyboardOrderTest);

class ListOrdersTest : public QueryTest {
 protected:
  /// Chooses the field of that caption in the window of the list's order. Answers the order.
  QString Ordered(const QString& caption, const QString& old = {}) {
    FrmOrderBy window;
    window.TableName = u"Lwdj"_s;
    window.OldOrder = old;
    WithWindow(u"FrmOrderBy"_s, [&](QWidget& shown) {
      if (old.isEmpty()) {  // nothing is chosen yet
        ClickRow(shown, u"LV1"_s, int(ColumnOf(shown, u"LV1"_s).indexOf(caption)));
        Click(shown, u"CmdSort(2)"_s);
      }
      EXPECT_EQ(ColumnOf(shown, u"LV2"_s), QStringList{caption});
      ExpectNoMarkup(shown, "order");
      Click(shown, u"CmdOK"_s);
    });
    window.Open();
    EXPECT_EQ(window.ReturnSqlChn, caption + u"(升序)"_s);
    return window.ReturnSql;
  }
  /// Groups the list by the field of that caption. Answers what stands in the file then.
  QString Grouped(const QString& caption) {
    FrmReadOrder window;
    window.vsFlag = 1;
    WithWindow(u"FrmReadOrder"_s, [&](QWidget& shown) {
      Find<QComboBox>(shown, u"CboChnTable"_s).setCurrentIndex(0);
      ClickRow(shown, u"ListView1"_s, int(ColumnOf(shown, u"ListView1"_s).indexOf(caption)));
      Click(shown, u"CmdAdd"_s);
      EXPECT_EQ(ColumnOf(shown, u"ListView2"_s), QStringList{caption});
      ClickRow(shown, u"ListView2"_s, 0);
      ExpectNoMarkup(shown, "grouping");
      Click(shown, u"CmdOK"_s);
      shown.close();
    });
    window.Open();
    return QString::fromUtf8(program_.Read(u"YearFormula.Ini"_s)).trimmed().section(u'=', -1);
  }

  const TempProgramDirectory program_;
  MessageBoxes boxes_;
};
FOLVANE_ON_EACH_DATABASE(ListOrdersTest);

}  // namespace

TEST_P(KeyboardOrderTest, AFieldIsMovedWhateverItsCaption) {
  const Canaries canaries(Database(), program_);
  const Box box{"keyboard",
                [this](const QString& text) {
                  Run(WithCaption(u"DocNo"_s, text));
                  MoveFirst(text);
                  return u"2134"_s;
                },
                [this] { return OrderOf(u"DocNo"_s) + OrderOf(u"RegID"_s) + u"34"_s; },
                [this] {
                  Run(WithCaption(u"DocNo"_s, u"文号"_s));
                  Run(u"update SaveControls set KeyOrder=1 where DataField='DocNo'"_s);
                  Run(u"update SaveControls set KeyOrder=2 where DataField='RegID'"_s);
                  Run(u"update SaveControls set KeyOrder=4 where DataField='Amaintitle'"_s);
                }};
  TryBox(Database(), box, HostileLines(), [] { return false; });
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

TEST_P(ListOrdersTest, AListIsOrderedByTheFieldWhateverItsCaption) {
  const Canaries canaries(Database(), program_);
  const Box box{"order",
                [this](const QString& text) {
                  Run(WithCaption(u"DocNo"_s, text));
                  EXPECT_EQ(Ordered(text, Ordered(text)), u"DocNo Asc"_s);
                  return u"DocNo Asc"_s;
                },
                [this] { return Value(u"select OrderStr from FindCirOrder where UserID=7"_s); },
                [this] {
                  Run(u"delete from FindCirOrder"_s);
                  Run(WithCaption(u"DocNo"_s, u"文号"_s));
                }};
  TryBox(Database(), box, HostileLines(), [] { return false; });
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

TEST_P(ListOrdersTest, AListIsGroupedByTheFieldWhateverItsCaption) {
  const Canaries canaries(Database(), program_);
  ReadYearFormula(u"Lwdj"_s);
  QString grouped;
  const Box box{"grouping",
                [&](const QString& text) {
                  Run(WithCaption(u"DocNo"_s, text));
                  grouped = Grouped(text);
                  return u"DocNo"_s;
                },
                [&] { return grouped; }, [this] { Run(WithCaption(u"DocNo"_s, u"文号"_s)); }};
  TryBox(Database(), box, SomeHostileLines(), [] { return false; });
}

}  // namespace folvane::test
