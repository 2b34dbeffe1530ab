#include "forms/EntryLayout.h"
#include "forms/FormsFixture.h"
#include "forms/LengthGuard.h"
#include "forms/RecordBinding.h"

namespace folvane::test {
namespace {

/// What records of other programs hold and no control takes in as it is.
QStringList AwkwardValues() {
  return {u"甲\u00a0乙"_s,
          u"甲\u2028乙\u2029丙"_s,
          u"一\r二"_s,
          u"一\n二\r\n三"_s,
          u"\t甲\t\v\f"_s,
          u"  甲  "_s,
          u"\u3000甲\u3000"_s,
          u"甲"_s + QChar(u'\0') + u"乙"_s,
          u"甲"_s + QChar(0xd800) + u"乙"_s + QChar(0xdc00),
          u"\ufffc\ufdd0\ufdd1\ufeff"_s,
          u"007"_s,
          u"2.60"_s,
          u"1,234"_s,
          u"2002/3/4"_s,
          u"20020304"_s,
          u"2002-03-04 10:11:12"_s,
          u"二〇〇二年"_s,
          u"国发(1985)49号"_s,
          u"国发"_s,
          u"比限长得多的一段文字"_s};
}

const int kControlKinds[] = {ControlKind::Txt,   ControlKind::Cmb,     ControlKind::DTP,      ControlKind::F_FondsNo,
                             ControlKind::F_Aec, ControlKind::F_Organ, ControlKind::DTP_Arch, ControlKind::Txt_MLine};

/// A record of each awkward value, shown by a guarded field of one kind with another field beside it.
class ShownValue : public FormsTest, public testing::WithParamInterface<int> {
 protected:
  ShownValue() {
    Native(u"Create Table Lwdj(ArchiveID varchar(20) primary key, Note text, Title varchar(40))"_s);
    records_.Open(u"Select * From Lwdj"_s, Shared().Connection);
    for (const QString& value : AwkwardValues()) {
      records_.AddNew();
      records_[u"Note"_s].SetValue(value);
      records_.Update();
    }
    records_.MoveFirst();
    for (const auto& [kind, column] : {std::pair{GetParam(), u"Note"_s}, std::pair{int(ControlKind::Txt), u"Title"_s}})
      fields_.push_back(NewField({kind, 1, column, u"数值型"_s, column, LimitText(u"12"_s), u"'密级'"_s}, &Window()));
    binding_.SetSource(&records_);
    for (const auto& field : fields_) {
      field->Widget().show();
      new LengthGuard(*field);
      binding_.Add(*field);
    }
    Show();
  }
  ~ShownValue() override { binding_.Clear(); }

  EntryField& Note() { return *fields_[0]; }
  EntryField& Title() { return *fields_[1]; }

  template <class Steps>
  void OnEachRecord(Steps steps) {
    for (const QString& value : AwkwardValues()) {
      SCOPED_TRACE(value.toStdString());
      binding_.ShowRow();
      steps();
      EXPECT_EQ(records_[u"Note"_s].Text(), value);
      records_.MoveNext();
    }
  }
  void WalkThroughWithKeys() {
    Note().Focus();
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_End, Qt::Key_Shift, Qt::Key_Return, Qt::Key_F5, Qt::Key_Meta})
      Press(Note().Widget(), key);
    Press(Title().Widget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::sendKeyEvent(QTest::Release, Note().Widget().focusProxy() ? Note().Widget().focusProxy() : &Note().Widget(),
                        Qt::Key_Tab, QString(), Qt::NoModifier);
    Title().Focus();
  }

  Recordset records_;
  std::vector<std::unique_ptr<EntryField>> fields_;
  RecordBinding binding_;
};
INSTANTIATE_TEST_SUITE_P(Kinds, ShownValue, testing::ValuesIn(kControlKinds),
                         [](const auto& kind) { return ControlArrayName(kind.param).toStdString(); });

TEST_P(ShownValue, IsNoChangeAndIsNeverWritten) {
  QSignalSpy changes(&Note(), &EntryField::Changed);
  OnEachRecord([&] {
    WalkThroughWithKeys();
    binding_.Store();
    binding_.StoreShown();
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(records_.EditMode(), EditModeKind::None);
  });
}

TEST_P(ShownValue, OutlivesAChangeOfAnotherField) {
  OnEachRecord([&] {
    Retype(Title().Widget(), u"7"_s);
    Note().Focus();
    binding_.StoreShown();
    EXPECT_EQ(records_[u"Title"_s].Text(), u"7"_s);
  });
}

TEST_P(ShownValue, IsLeftAloneWhenAChangeIsTakenBack) {
  OnEachRecord([&] {
    const QString shown = Note().Text();
    Note().Focus();
    Note().CaretToEnd();
    Type(Note().Widget(), u"1"_s);
    Note().SetText(shown);
    binding_.Store();
    EXPECT_EQ(records_.EditMode(), EditModeKind::None);
  });
}

class ShownText : public FormsTest {};

TEST_F(ShownText, IsAnsweredAsItIsStored) {
  for (const int kind : {ControlKind::Txt, ControlKind::Cmb, ControlKind::F_Organ, ControlKind::Txt_MLine}) {
    const auto field = ShownField(kind);
    QSignalSpy changes(field.get(), &EntryField::Changed);
    for (const QString& value : AwkwardValues()) {
      field->Show(value);
      EXPECT_EQ(field->Text(), value) << kind;
      EXPECT_EQ(field->Widget().property("text").toString(), value) << kind;
    }
    EXPECT_EQ(changes.count(), 0);
  }
}

TEST_F(ShownText, KeepsWhatIsNotTouchedByTyping) {
  const auto field = ShownField(ControlKind::Txt_MLine);
  field->Show(u"甲\u00a0乙\u2028丙\t"_s);
  field->CaretToEnd();
  Type(field->Widget(), u"丁"_s);
  EXPECT_EQ(field->Text(), u"甲\u00a0乙\u2028丙\t丁"_s);
}

}  // namespace
}  // namespace folvane::test
