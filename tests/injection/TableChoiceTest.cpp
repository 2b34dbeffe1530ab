// Hostile captions of tables where the table to merge from is chosen.
#include <QComboBox>

#include "archiving/FrmSearchResultFixture.h"
#include "archiving/FrmSelTbl.h"
#include "injection/Watched.h"

namespace folvane::test {
namespace {

class TableChoiceTest : public FrmSearchResultTest {
 protected:
  static QString Captioned(const QString& caption) {
    return u"update DynamicWindows set ChnTableName='%1' where TableName='Lwdj'"_s.arg(
        QString(caption).replace(u'\'', u"''"_s));
  }
  /// Chooses the table of that caption. Answers the table that is searched then.
  static QString ChosenBy(const QString& caption) {
    QString table;
    const LoadedWindow<FrmSelTbl> window;
    window->TargetID = Key(1);
    WithWindow(u"FrmSelTbl"_s, [&](QWidget& shown) {
      auto& captions = Find<QComboBox>(shown, u"CboChnTable"_s);
      ExpectNoMarkup(shown, "choice");
      WithWindow(u"FrmSearchResult"_s, [&](QWidget& result) {
        table = static_cast<FrmSearchResult&>(result).CurrTable;
        ExpectNoMarkup(result, "search");
        result.close();
      });
      captions.setCurrentIndex(captions.findText(caption));
    });
    window->Open();
    return table;
  }
};
FOLVANE_ON_EACH_DATABASE(TableChoiceTest);

}  // namespace

TEST_P(TableChoiceTest, ATableOfAnyCaptionIsOfferedAndSearched) {
  const Canaries canaries(Database(), program_);
  QString chosen;
  const Box box{"table",
                [&](const QString& text) {
                  Database().Native(Captioned(text));
                  chosen = ChosenBy(text);
                  return u"Lwdj"_s;
                },
                [&] { return chosen; }, [this] { Database().Native(Captioned(u"来文登记"_s)); }};
  TryBox(Database(), box, SomeHostileLines(), [] { return false; });
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

}  // namespace folvane::test
