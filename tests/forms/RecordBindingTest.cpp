#include <folvane/DataError.h>

#include "forms/EntryLayout.h"
#include "forms/FormsFixture.h"
#include "forms/RecordBinding.h"

namespace folvane::test {
namespace {

/// Two records with a title, a number and a date, each bound to a field.
class RecordBindingTest : public FormsTest {
 protected:
  RecordBindingTest() {
    Native(
        u"Create Table Lwdj(ArchiveID varchar(20) primary key, Title varchar(40), Quantity integer, FileDate date)"_s);
    Native(u"Insert Into Lwdj Values('1','甲',3,'2002-03-04'),('2','乙',null,null)"_s);
    records_.Open(u"Select * From Lwdj Order By ArchiveID"_s, Shared().Connection);
    title_ = Bound(ControlKind::Txt, u"Title"_s);
    quantity_ = Bound(ControlKind::Txt, u"Quantity"_s);
    date_ = Bound(ControlKind::DTP, u"FileDate"_s);
    binding_.SetSource(&records_);
    for (EntryField* field : {title_.get(), quantity_.get(), date_.get()}) binding_.Add(*field);
    Show();
    title_->Focus();
  }
  ~RecordBindingTest() override { binding_.Clear(); }

  std::unique_ptr<EntryField> Bound(int controlType, const QString& column) {
    auto field = NewField({controlType, ++count_, column, {}, column, {}, {}}, &Window());
    field->Widget().setGeometry(20, 40 * count_, 150, 24);
    field->Widget().show();
    return field;
  }
  QStringList Shown() const { return {title_->Text(), quantity_->Text(), date_->Text()}; }

  Recordset records_;
  std::unique_ptr<EntryField> title_, quantity_, date_;
  RecordBinding binding_;

 private:
  int count_ = 0;
};

TEST_F(RecordBindingTest, ShowsTheCurrentRow) { EXPECT_EQ(Shown(), (QStringList{u"甲"_s, u"3"_s, u"2002-03-04"_s})); }

TEST_F(RecordBindingTest, ShowsTheRowThatTheRecordSetHasMovedToInSilence) {
  QSignalSpy changes(title_.get(), &EntryField::Changed);
  records_.MoveNext();
  binding_.ShowRow();
  EXPECT_EQ(Shown(), (QStringList{u"乙"_s, QString(), QString()}));
  EXPECT_EQ(changes.count(), 0);
}

TEST_F(RecordBindingTest, ShowsNothingWithoutARow) {
  records_.MoveLast();
  records_.MoveNext();
  binding_.ShowRow();
  EXPECT_EQ(Shown(), (QStringList{QString(), QString(), QString()}));
}

TEST_F(RecordBindingTest, PutsWhatWasTypedIntoTheRowAsTheFieldIsLeft) {
  Retype(title_->Widget(), u"新题"_s);
  EXPECT_EQ(records_[u"Title"_s].Text(), u"甲"_s);
  quantity_->Focus();
  EXPECT_EQ(records_[u"Title"_s].Text(), u"新题"_s);
  EXPECT_EQ(records_.EditMode(), EditModeKind::InProgress);
}

TEST_F(RecordBindingTest, PutsTheFieldInHandIntoTheRowOnDemand) {
  Retype(date_->Widget(), u"2003/5/6"_s);
  binding_.Store();
  EXPECT_EQ(records_[u"FileDate"_s].Text(), u"2003-05-06"_s);
}

TEST_F(RecordBindingTest, StoresNullForADateThatWasTakenAway) {
  Press(date_->Widget(), Qt::Key_Delete);
  binding_.Store();
  EXPECT_TRUE(records_[u"FileDate"_s].IsNull());
}

TEST_F(RecordBindingTest, StoresAllThatIsSeenOnDemand) {
  title_->SetText(u"由程序"_s);
  binding_.StoreShown();
  EXPECT_EQ(records_[u"Title"_s].Text(), u"由程序"_s);
}

TEST_F(RecordBindingTest, StoresNothingOfADisplayFormat) {
  records_[u"Title"_s].SetValue(u"2.6"_s);
  auto number = NewField({ControlKind::Txt, 9, u"Title"_s, u"数值型"_s, {}, {}, {}}, &Window());
  binding_.Add(*number);
  ASSERT_EQ(number->Text(), u"3"_s);
  binding_.Refresh();
  binding_.StoreShown();
  EXPECT_EQ(records_[u"Title"_s].Text(), u"2.6"_s);
  binding_.Clear();
}

TEST_F(RecordBindingTest, StoresNothingWhereTheRowIsOnlyRead) {
  binding_.SetReadOnly(true);
  Retype(title_->Widget(), u"新题"_s);
  quantity_->Focus();
  EXPECT_EQ(title_->Text(), u"甲"_s);
  EXPECT_EQ(records_.EditMode(), EditModeKind::None);
}

TEST_F(RecordBindingTest, StoresNothingThatNobodyTyped) {
  title_->SetText(u"由程序"_s);
  quantity_->Focus();
  title_->Focus();
  binding_.Store();
  EXPECT_EQ(records_[u"Title"_s].Text(), u"甲"_s);
  EXPECT_EQ(records_.EditMode(), EditModeKind::None);
}

TEST_F(RecordBindingTest, ShowsWhatTheRowMadeOfAValue) {
  Retype(quantity_->Widget(), u"007"_s);
  title_->Focus();
  EXPECT_EQ(quantity_->Text(), u"7"_s);
}

TEST_F(RecordBindingTest, ShowsTheErrorOfAValueThatDoesNotFitAndKeepsTheText) {
  MessageBoxes boxes;
  Retype(quantity_->Widget(), u"多"_s);
  title_->Focus();
  EXPECT_EQ(boxes.Requests().size(), 1u);
  EXPECT_EQ(quantity_->Text(), u"多"_s);
  EXPECT_THROW(binding_.Store(), DataError);
  EXPECT_TRUE(quantity_->Widget().hasFocus());
  Retype(quantity_->Widget(), u"8"_s);
  binding_.Store();
  EXPECT_EQ(records_[u"Quantity"_s].Text(), u"8"_s);
}

TEST_F(RecordBindingTest, RefreshesWhatAProgramChangedButNotWhatIsBeingTyped) {
  Retype(title_->Widget(), u"新"_s);
  records_[u"Quantity"_s].SetValue(9);
  records_[u"Title"_s].SetValue(u"由程序"_s);
  binding_.Refresh();
  EXPECT_EQ(Shown(), (QStringList{u"新"_s, u"9"_s, u"2002-03-04"_s}));
  binding_.ShowRow();
  EXPECT_EQ(title_->Text(), u"由程序"_s);
}

TEST_F(RecordBindingTest, TouchesOnlyControlsThatDiffer) {
  auto& box = static_cast<QLineEdit&>(title_->Widget());
  box.selectAll();
  binding_.ShowRow();
  EXPECT_EQ(box.selectedText(), u"甲"_s);
}

TEST_F(RecordBindingTest, ShowsAnotherRecordSet) {
  Recordset other;
  other.Open(u"Select * From Lwdj Where ArchiveID='2'"_s, Shared().Connection);
  binding_.SetSource(&other);
  EXPECT_EQ(title_->Text(), u"乙"_s);
  Retype(title_->Widget(), u"丙"_s);
  binding_.Store();
  EXPECT_EQ(other[u"Title"_s].Text(), u"丙"_s);
  EXPECT_EQ(records_[u"Title"_s].Text(), u"甲"_s);
  binding_.SetSource(nullptr);
  EXPECT_EQ(title_->Text(), QString());
}

TEST_F(RecordBindingTest, RefusesAFieldThatTheRecordSetLacks) {
  const auto stray = Bound(ControlKind::Txt, u"Missing"_s);
  EXPECT_THROW(binding_.Add(*stray), DataError);
  binding_.ShowRow();  // and is none the worse for it
}

}  // namespace
}  // namespace folvane::test
