#include <folvane/DataError.h>

#include "EntryFixture.h"
#include "entry/RecordSave.h"
#include "shell/Messages.h"

namespace folvane::test {
namespace {

/// A form without a screen: it shows what it is told to and remembers what it was asked to do.
class PaperForm : public FormToSave {
 public:
  ShownFields Shown() const override { return fields; }
  void StoreTyped() override { Store(); }
  void StoreShown() override { Store(); }
  void Refresh() override { acts << u"refresh"_s; }
  void ClearText(const ControlId& control) override { FieldOf(control).text.clear(); }
  void KeepComboTexts() override { acts << u"keep"_s; }
  void FocusOn(const ControlId& control, bool marked) override {
    focused = control;
    wasMarked = marked;
  }
  int Say(const MessageRequest& message) override {
    said.push_back(message);
    if (whileAsked) whileAsked();
    return answers.isEmpty() ? int(Answer::Ok) : answers.takeFirst();
  }
  void ShowWork(const QString& text) override { work = text; }
  void ShowNote(const QString& text) override { note = text; }
  void WhileBusy(const std::function<void()>& busy) override { busy(); }
  void ShowSaved() override { acts << u"saved"_s; }

  ShownField& FieldOf(const ControlId& control) {
    return *std::find_if(fields.begin(), fields.end(), [&](const ShownField& each) { return each.control == control; });
  }
  /// What stands in the fields goes into the record, where it is another than there.
  void Store() {
    Recordset& records = Shared().CurrentRecords;
    if (records.AbsolutePosition() < 1) return;
    for (const ShownField& field : fields) {
      if (records[field.dataField].Text() != field.text) records[field.dataField].SetValue(field.text);
    }
  }

  ShownFields fields;
  QList<int> answers;
  std::function<void()> whileAsked;
  std::vector<MessageRequest> said;
  QStringList acts;
  QString work, note;
  ControlId focused;
  bool wasMarked = false;
};

const ControlId kTitleBox{ControlKind::Txt, 1}, kNumberBox{ControlKind::Txt, 2};
const QString kReason = u"当前数据保存失败，原因在于："_s;

class RecordSaveTest : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    Run(u"insert into Lwdj (ArchiveID,Amaintitle,DocNo) values ('1','一','甲'),('2','二','乙')"_s);
    AddField(kTitleBox, u"Amaintitle"_s, u"题名"_s);
    AddField(kNumberBox, u"DocNo"_s, u"文号"_s);
    other_ = Database().Connect();
  }
  void AddField(const ControlId& control, const QString& column, const QString& caption) {
    form_.fields.push_back({control, column, caption, u"限长50个字符"_s, {}});
    LayoutRow row;
    row.control = control;
    row.dataField = column;
    row.caption = caption;
    layout_.rows.push_back(row);
    Run(u"insert into DynamicWindows (TableName,FieldName,ChnFieldName) values ('Lwdj','%1','%2')"_s.arg(column,
                                                                                                         caption));
  }
  /// Opens the records on the first, with the form as it shows that.
  RecordLifecycle& Open() {
    lifecycle_.emplace(OpenRecords(), LifecycleStart{layout_, {{}}, {u"Lwdj"_s, RegFormula::None, {}, {}, true}}, 1);
    for (ShownField& field : form_.fields)
      if (lifecycle_->HasRow()) field.text = Shared().CurrentRecords[field.dataField].Text();
    return *lifecycle_;
  }
  void Edit(const ControlId& control, const QString& text) {
    if (!lifecycle_) Open();
    lifecycle_->NoteChange();
    form_.FieldOf(control).text = text;
  }
  bool Save() { return RecordSave(form_, *lifecycle_, {rights_, true, u"著录"_s}).Run(); }
  void OtherRuns(const QString& statement) { other_->Execute(statement); }
  QString Stored(const QString& column, const QString& key = u"1"_s) {
    return Value(u"select %1 from Lwdj where ArchiveID = '%2'"_s.arg(column, key));
  }
  QString Said() const { return form_.said.empty() ? QString() : form_.said.back().text; }

  PaperForm form_;
  EntryLayout layout_;
  EntryRights rights_{u"Lwdj"_s, {}, {}};
  std::optional<RecordLifecycle> lifecycle_;
  std::shared_ptr<folvane::Connection> other_;
};

TEST_P(RecordSaveTest, WritesWhatTheFormShows) {
  Edit(kTitleBox, u"新题"_s);
  EXPECT_TRUE(Save());
  EXPECT_EQ(Stored(u"Amaintitle"_s), u"新题"_s);
  EXPECT_EQ(form_.acts, (QStringList{u"refresh"_s, u"keep"_s, u"saved"_s}));
  EXPECT_TRUE(form_.said.empty());
  EXPECT_EQ(lifecycle_->State(), RecordState::Browse);
}

TEST_P(RecordSaveTest, DoesNothingWhileNothingIsEdited) {
  Open();
  EXPECT_TRUE(Save());
  EXPECT_EQ(TakeStatements(), QStringList());
  EXPECT_TRUE(form_.acts.isEmpty());
}

TEST_P(RecordSaveTest, SendsTheUserToAddOnAnEmptyRecordSet) {
  Run(u"delete from Lwdj"_s);
  Open();
  EXPECT_TRUE(Save());
  EXPECT_EQ(Said(), u"请先按添加按钮！"_s);
  EXPECT_EQ(form_.said[0].title, u"提示"_s);
  EXPECT_EQ(form_.said[0].flags, 0);
}

TEST_P(RecordSaveTest, GoesToTheRequiredFieldThatIsEmpty) {
  layout_.RequiredList = {{}, kNumberBox};
  Edit(kNumberBox, QString());
  EXPECT_FALSE(Save());
  EXPECT_EQ(Said(), kReason + u"“文号”字段值不能为空！请输入数据！"_s);
  EXPECT_EQ(form_.said[0].flags, MessageFlag::Information);
  EXPECT_EQ(form_.said[0].title, u"著录"_s);
  EXPECT_EQ(form_.focused, kNumberBox);
  EXPECT_FALSE(form_.wasMarked);
  EXPECT_EQ(form_.work, u"准备就绪"_s);
  EXPECT_EQ(Stored(u"DocNo"_s), u"甲"_s);
}

TEST_P(RecordSaveTest, MarksTheWholeOfADateThatIsNone) {
  const ControlId date{ControlKind::DTP_Arch, 1};
  AddField(date, u"CreatedDate"_s, u"日期"_s);
  Edit(date, u"20021301"_s);
  EXPECT_FALSE(Save());
  EXPECT_EQ(form_.focused, date);
  EXPECT_TRUE(form_.wasMarked);
}

TEST_P(RecordSaveTest, LetsNobodySaveOutsideHisRights) {
  rights_ = {u"Lwdj"_s, u"(Lwdj.DocNo='甲')"_s, u"文号为甲"_s};
  Run(u"insert into UserPopedomScopeDetails (PopTableName,UserId,FieldName) values ('Lwdj','7','DocNo')"_s);
  Edit(kNumberBox, u"丙"_s);
  EXPECT_FALSE(Save());
  EXPECT_EQ(Said(), kReason + u"您输入的数据与您的权限不符！\r\n文号为甲"_s);
  EXPECT_EQ(form_.focused, ControlId());
  EXPECT_TRUE(form_.acts.isEmpty());
}

TEST_P(RecordSaveTest, LooksAtNoRightsOfOneWhoMayNotEdit) {
  rights_ = {u"Lwdj"_s, u"(Lwdj.DocNo='甲')"_s, u"文号为甲"_s};
  Run(u"insert into UserPopedomScopeDetails (PopTableName,UserId,FieldName) values ('Lwdj','7','DocNo')"_s);
  Edit(kNumberBox, u"丙"_s);
  EXPECT_TRUE(RecordSave(form_, *lifecycle_, {rights_, false, u"著录"_s}).Run());
  EXPECT_EQ(Stored(u"DocNo"_s), u"丙"_s);
}

TEST_P(RecordSaveTest, PutsMultiLineTextsOnOneLineAndTellsOfIt) {
  const ControlId lines{ControlKind::Txt_MLine, 1};
  AddField(lines, u"FileStatus"_s, u"状态"_s);
  Edit(lines, u" 甲\n乙 "_s);
  EXPECT_TRUE(Save());
  EXPECT_EQ(Stored(u"FileStatus"_s), u"甲乙"_s);
  EXPECT_EQ(form_.note, u"已去掉“状态”中的换行和首尾空格"_s);
}

TEST_P(RecordSaveTest, ClearsTheTextThatBreaksARuleAfterItHasKeptTheComboTexts) {
  Run(u"insert into SaveCollect (TableName,CenterControlIndex,FieldName,ControlIndex,ControlType,ChnFieldName,Relation,"
      "CollectValue) values ('Lwdj',0,'DocNo',2,1,'文号','只能是','数字')"_s);
  Edit(kNumberBox, u"丙"_s);
  EXPECT_FALSE(Save());
  EXPECT_EQ(form_.said.back().title, u"校对提示"_s);
  EXPECT_EQ(form_.said.back().flags, MessageFlag::Information);
  EXPECT_EQ(form_.FieldOf(kNumberBox).text, QString());
  EXPECT_EQ(Shared().CurrentRecords[u"DocNo"_s].Text(), QString());
  EXPECT_EQ(form_.acts, (QStringList{u"refresh"_s, u"keep"_s}));
}

TEST_P(RecordSaveTest, GoesToTheFieldThatTheDatabaseRefuses) {
  Run(u"create unique index OneNumber on Lwdj (DocNo)"_s);
  Edit(kNumberBox, u"乙"_s);
  EXPECT_FALSE(Save());
  EXPECT_EQ(Said(), kReason + u"字段“文号”的值“乙”已经存在。"_s);
  EXPECT_EQ(form_.said[0].flags, MessageFlag::Critical);
  EXPECT_EQ(form_.said[0].note, u"您输入的内容仍保留在界面上。"_s);
  EXPECT_EQ(form_.focused, kNumberBox);
  EXPECT_EQ(lifecycle_->State(), RecordState::Modify);
}

TEST_P(RecordSaveTest, PassesOnAnErrorThatIsAboutNoField) {
  Refuse(u"Lwdj"_s, u"update"_s, u"new.ArchiveID = '1'"_s);
  Edit(kTitleBox, u"新题"_s);
  EXPECT_THROW(Save(), DataError);
  EXPECT_TRUE(form_.said.empty());
  EXPECT_EQ(Stored(u"Amaintitle"_s), u"一"_s);
}

TEST_P(RecordSaveTest, TakesAnotherKeyForANewRecordWhoseKeyIsTaken) {
  FixRandom({0.25, 0.5, 0.75});
  Open().StartNewRecord(false);
  const QString taken = Shared().CurrentRecords[u"ArchiveID"_s].Text();
  Run(u"insert into Lwdj (ArchiveID,Amaintitle) values ('%1','对方')"_s.arg(taken));
  for (ShownField& field : form_.fields) field.text = u"我的"_s;
  form_.answers = {Answer::No, Answer::Yes};
  EXPECT_FALSE(Save());
  EXPECT_TRUE(Said().endsWith(u"\r\n是否换用新的关键字再次保存？"_s));
  EXPECT_EQ(lifecycle_->State(), RecordState::Add);
  EXPECT_TRUE(Save());
  EXPECT_NE(lifecycle_->CurrentKey(), taken);
  EXPECT_EQ(Value(u"select count(*) from Lwdj where Amaintitle in ('我的','对方')"_s), u"2"_s);
}

TEST_P(RecordSaveTest, WritesOverAnotherClerkOnlyWhenTheUserHasSeenWhat) {
  Edit(kTitleBox, u"我的"_s);
  OtherRuns(u"Update Lwdj Set Amaintitle='对方' Where ArchiveID='1'"_s);
  form_.answers = {Answer::Yes, Answer::No, Answer::Yes, Answer::Yes};
  EXPECT_FALSE(Save());
  ASSERT_EQ(form_.said.size(), 2u);
  EXPECT_EQ(form_.said[0].text, kReason +
                                    u"该记录已被其他用户修改！\r\n您输入的内容仍保留在界面上，没有写入数据库。\r\n"
                                    "是否查看对方保存的数据？"_s);
  EXPECT_EQ(form_.said[0].flags, MessageFlag::YesNo + MessageFlag::Warning);
  EXPECT_TRUE(Said().contains(u"题名：对方（您的内容：我的）"_s));
  EXPECT_EQ(form_.said[1].flags, MessageFlag::YesNo + MessageFlag::Question + MessageFlag::SecondIsDefault);
  EXPECT_EQ(Stored(u"Amaintitle"_s), u"对方"_s);
  EXPECT_TRUE(Save());
  EXPECT_EQ(Stored(u"Amaintitle"_s), u"我的"_s);
}

TEST_P(RecordSaveTest, AsksAgainWhenTheRecordIsChangedWhileTheQuestionStands) {
  Edit(kTitleBox, u"我的"_s);
  OtherRuns(u"Update Lwdj Set Amaintitle='对方' Where ArchiveID='1'"_s);
  form_.whileAsked = [&] {
    if (form_.said.size() == 2) OtherRuns(u"Update Lwdj Set Amaintitle='第三人' Where ArchiveID='1'"_s);
  };
  form_.answers = {Answer::Yes, Answer::Yes, Answer::No};
  EXPECT_FALSE(Save());
  EXPECT_EQ(form_.said.size(), 3u);
  EXPECT_EQ(Stored(u"Amaintitle"_s), u"第三人"_s);
}

TEST_P(RecordSaveTest, PassesOnThatTheDatabaseWroteNothingThoughNobodyElseDid) {
  Edit(kTitleBox, u"我的"_s);
  if (OnSqlite()) {
    Run(u"create trigger Ignore before update on Lwdj begin select raise(ignore); end"_s);
  } else {
    Run(u"create function Ignore() returns trigger language plpgsql as 'begin return null; end'"_s);
    Run(u"create trigger Ignore before update on Lwdj for each row execute function Ignore()"_s);
  }
  try {
    Save();
    ADD_FAILURE() << "it was saved";
  } catch (const DataError& error) {
    EXPECT_EQ(error.Kind(), DataErrorKind::Conflict);
  }
  EXPECT_TRUE(form_.said.empty());
  EXPECT_EQ(Stored(u"Amaintitle"_s), u"一"_s);
  EXPECT_EQ(lifecycle_->State(), RecordState::Modify);
}

TEST_P(RecordSaveTest, TellsOfANumberThatAnotherRecordHasGotMeanwhile) {
  lifecycle_.emplace(OpenRecords(),
                     LifecycleStart{layout_, {{}}, {u"Lwdj"_s, RegFormula::BrowserCondition, {}, {}, true}}, 1);
  lifecycle_->StartNewRecord(false);
  OtherRuns(u"Update Lwdj Set RegID = 1 Where ArchiveID = '2'"_s);
  EXPECT_TRUE(Save());
  EXPECT_EQ(form_.note, u"登记号 1 已有另一条记录使用，请核对"_s);
  EXPECT_TRUE(form_.said.empty());
  lifecycle_->StartNewRecord(false);
  EXPECT_TRUE(Save());
  EXPECT_EQ(form_.note, QString());
}

TEST_P(RecordSaveTest, TellsThatTheRecordIsGone) {
  Edit(kTitleBox, u"我的"_s);
  OtherRuns(u"Delete From Lwdj Where ArchiveID='1'"_s);
  EXPECT_FALSE(Save());
  EXPECT_EQ(Said(), kReason +
                        u"该记录已被其他用户删除！\r\n您输入的内容仍保留在界面上，没有写入数据库。\r\n"
                        "请抄录需要的内容后取消本次操作。"_s);
  EXPECT_EQ(form_.said[0].flags, MessageFlag::Warning);
}

FOLVANE_ON_EACH_DATABASE(RecordSaveTest);

}  // namespace
}  // namespace folvane::test
