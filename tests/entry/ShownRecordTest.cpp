#include <QPlainTextEdit>

#include "InputFixture.h"
#include "shell/Messages.h"

namespace folvane::test {
namespace {

/// Records with texts of other programs, in a column for each kind of control.
class ShownRecordTest : public InputTest {
 protected:
  void SetUp() override {
    InputTest::SetUp();
    AddRecords(int(values_.size()));
    for (const int kind : {ControlKind::Txt, ControlKind::Cmb, ControlKind::DTP, ControlKind::F_FondsNo,
                           ControlKind::F_Aec, ControlKind::F_Organ, ControlKind::DTP_Arch, ControlKind::Txt_MLine}) {
      const QString column = u"Kind%1"_s.arg(kind);
      columns_ << column;
      Run(u"alter table Lwdj add column "_s + column + u" varchar(60)"_s);
      Design({column, u"栏%1"_s.arg(kind), kind, 1, u"数值型"_s, 6});
      for (int number = 1; number <= values_.size(); ++number) Put(column, number, values_[number - 1]);
    }
    Design({u"Amaintitle"_s, u"题名"_s, ControlKind::Txt, 2});
  }

  void Put(const QString& column, int number, const QString& text) {
    Run(u"update Lwdj set %1 = '%2' where ArchiveID = '%3'"_s.arg(column, text, Key(number)));
  }
  QStringList Stored(int number) {
    QStringList stored;
    for (const QString& column : columns_)
      stored << Value(u"select %1 from Lwdj where ArchiveID = '%2'"_s.arg(column, Key(number)));
    return stored;
  }
  QStringList Put(int number) const { return QStringList(columns_.size(), values_[number - 1]); }

  /// Goes through all fields without typing.
  void LookAtAll(const Input& input) {
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_F5, Qt::Key_End}) {
      input.Control(u"Txt(1)"_s).setFocus();
      for (int i = 0; i < columns_.size(); ++i) Press(*input.Window().focusWidget(), key);
    }
    for (const QString& name : {u"Cmb(1)"_s, u"DTP(1)"_s, u"F_FondsNo(1)"_s, u"F_Organ(1)"_s, u"DTP_Arch(1)"_s}) {
      auto& combo = Find<QComboBox>(input.Window(), name);
      combo.setFocus();
      combo.showPopup();
      combo.hidePopup();
    }
  }

  const QStringList values_{u"甲\u00a0乙"_s, u"甲\u2028乙"_s, u"一\r二"_s,    u"一\n二\r\n三"_s,        u"  甲\t "_s,
                            u"007"_s,        u"2.60"_s,       u"2002/03/4"_s, u"比限长得多的一段文字"_s};
  QStringList columns_;
};

TEST_P(ShownRecordTest, IsNotChangedByLookingAtIt) {
  InWindow([&](const Input& input) {
    for (int number = 1; number <= values_.size(); ++number) {
      LookAtAll(input);
      EXPECT_EQ(input.Position(), u"当前记录：第%1条/共%2条"_s.arg(number).arg(values_.size()));
      input.Do(u"Next_R"_s);
    }
    input.Window().close();
    EXPECT_FALSE(input.Window().isVisible());
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
  for (int number = 1; number <= values_.size(); ++number) EXPECT_EQ(Stored(number), Put(number));
}

TEST_P(ShownRecordTest, KeepsAllOtherFieldsWhenOneIsSaved) {
  InWindow([&](const Input& input) {
    for (int number = 1; number <= values_.size(); ++number) {
      QStringList expected = Put(number);
      expected.last() = QString(expected.last()).remove(u'\r').remove(u'\n');
      if (number == 5) expected.last() = u"甲\t"_s;
      LookAtAll(input);
      input.Retype(u"Txt(2)"_s, u"新题"_s);
      LookAtAll(input);
      EXPECT_TRUE(input.Form().SaveData());
      EXPECT_EQ(Stored(number), expected);
      input.Do(u"Next_R"_s);
    }
  });
}

TEST_P(ShownRecordTest, SaysWhichTextsASaveHasPutOnOneLine) {
  InWindow([&](const Input& input) {
    input.Do(u"Next_R"_s);
    input.Do(u"Next_R"_s);
    input.Retype(u"Txt(2)"_s, u"新题"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(input.Work(), u"准备就绪"_s);
    EXPECT_EQ(input.Text(u"Note"_s), u"已去掉“栏10”中的换行和首尾空格"_s);
    input.Do(u"First_R"_s);
    EXPECT_EQ(input.Text(u"Note"_s), QString());
    input.Retype(u"Txt(2)"_s, u"新题"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(input.Text(u"Note"_s), QString());
  });
}

TEST_P(ShownRecordTest, KeepsWhatWasNotTypedOverInATextOfSeveralLines) {
  InWindow([&](const Input& input) {
    Find<QPlainTextEdit>(input.Window(), u"Txt_MLine(1)"_s).moveCursor(QTextCursor::End);
    Type(input.Control(u"Txt_MLine(1)"_s), u"丙"_s);
    boxes_.Answer(Answer::Yes);
  });
  EXPECT_EQ(Stored(1).last(), u"甲\u00a0乙丙"_s);
}

FOLVANE_ON_EACH_DATABASE(ShownRecordTest);

}  // namespace
}  // namespace folvane::test
