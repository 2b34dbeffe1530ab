#include <QDir>

#include <folvane/DataError.h>

#include "RecordRoad.h"

namespace folvane::test {
namespace {

/// What goes wrong outside the database, in the files beside the program and in what users have set up.
class EntryErrorsTest : public RecordRoad {
 protected:
  void SetUp() override {
    RecordRoad::SetUp();
    AddRecords(1);
    DesignTitle();
  }
  /// A folder in the place of a file: nobody can read that, whatever his rights.
  void MakeUnreadable(const QString& file) { ASSERT_TRUE(QDir(program_.Path()).mkdir(file)); }
  /// The kind of error that the opener of the window gets.
  DataErrorKind KindThatOpeningThrows() {
    OpenRecords();
    FrmInput& window = DefaultInstance<FrmInput>::Get();
    window.CurrTable = u"Lwdj"_s;
    window.Context = {u"收文登记"_s, &parameters_, {}, {}};
    try {
      window.Open();
    } catch (const DataError& error) {
      EXPECT_FALSE(window.isVisible());
      EXPECT_FALSE(error.Message().isEmpty());
      return error.Kind();
    }
    return DataErrorKind::Other;
  }
};

TEST_P(EntryErrorsTest, GivesItsOpenerAnUnreadableFileOfNumberRules) {
  MakeUnreadable(u"RegIDFormula.Ini"_s);
  EXPECT_EQ(KindThatOpeningThrows(), DataErrorKind::File);
}

TEST_P(EntryErrorsTest, GivesItsOpenerAnUnreadableFileOfWideFields) {
  MakeUnreadable(u"SBC.Ini"_s);
  EXPECT_EQ(KindThatOpeningThrows(), DataErrorKind::File);
}

TEST_P(EntryErrorsTest, GivesItsOpenerANumberRuleThatIsNoNumber) {
  program_.Write(u"RegIDFormula.Ini"_s, "[RegFormula]\r\nLwdj=two\r\n");
  EXPECT_EQ(KindThatOpeningThrows(), DataErrorKind::Conversion);
}

TEST_P(EntryErrorsTest, OpensAgainOnceTheFileIsInOrder) {
  program_.Write(u"RegIDFormula.Ini"_s, "[RegFormula]\r\nLwdj=two\r\n");
  EXPECT_EQ(KindThatOpeningThrows(), DataErrorKind::Conversion);
  program_.Write(u"RegIDFormula.Ini"_s, "[RegFormula]\r\nLwdj=0\r\n");
  Reopen([](const Input& input) { EXPECT_EQ(input.Text(u"Txt(1)"_s), u"题名1"_s); });
}

TEST_P(EntryErrorsTest, PassesOverAProofingRuleWithABrokenPattern) {
  Run(u"insert into SaveCollect (TableName,CenterControlIndex,FieldName,ControlIndex,ControlType,ChnFieldName,Relation,"
      "CollectValue,CustomFormat) values ('Lwdj',0,'Amaintitle',1,1,'题名','只能是','自定义格式','A[1-')"_s);
  InWindow([](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"新题"_s);
    EXPECT_TRUE(input.Form().SaveData());
  });
  EXPECT_TRUE(boxes_.Requests().empty());
  EXPECT_EQ(Stored(u"Amaintitle"_s), u"新题"_s);
}

TEST_P(EntryErrorsTest, TellsThatADateBoxStandsOnNoDateAndTakesTheNewRecordBack) {
  Design({u"Pages"_s, u"页数"_s, ControlKind::DTP});
  InWindow([&](const Input& input) {
    input.Do(u"AddNewRecord"_s);
    EXPECT_EQ(boxes_.Requests().size(), 1u);
    EXPECT_TRUE(input.KeyOn(u"CancelRecord"_s));
    input.Do(u"CancelRecord"_s);
    EXPECT_FALSE(input.KeyOn(u"CancelRecord"_s));
  });
  EXPECT_EQ(boxes_.Requests().size(), 1u);
  EXPECT_EQ(Shared().CurrentRecords.PendingCount(), 0);
}

TEST_P(EntryErrorsTest, PassesOverANumberThatIsTooGreatWhileItIsTyped) {
  Formula(RegFormula::DocNo);
  Flag(u"UseSpecialSign"_s, true);
  Design({u"DocNo"_s, u"文号"_s});
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(2)"_s, u"〔2002〕99999999999999999999号"_s);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"〔2002〕99999999999999999999号"_s);
    EXPECT_TRUE(boxes_.Requests().empty());
    input.Form().CancelEdit();
  });
}

FOLVANE_ON_EACH_DATABASE(EntryErrorsTest);

}  // namespace
}  // namespace folvane::test
