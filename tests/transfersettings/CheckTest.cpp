#include "design/transfer/Conversion.h"
#include "design/transfer/FormatCheck.h"
#include "design/transfer/SetCheck.h"
#include "transfersettings/SettingsFixture.h"

// What is found wrong in the settings.
namespace folvane::test {
namespace {
using namespace transfer;
using testing::HasSubstr;

class CheckTest : public SettingsTest {
 protected:
  TransferSettings& Read() {
    settings_ = std::make_unique<TransferSettings>(Connected());
    return *settings_;
  }
  std::string Set(std::size_t set) { return Say(CheckSet(settings_->Now(), set, settings_->Tables())); }
  std::string Link(std::size_t link) {
    return Say(CheckLink(settings_->Now(), settings_->Now().sets[0], link, settings_->Tables()));
  }
  /// What a link between these two would have.
  std::string Linked(const QString& source, const QString& destination) {
    Read();
    return Link(settings_->Link(0, source, destination));
  }
  std::string Format(const QString& table = u"Wenshu"_s) {
    return Say(CheckFormat(settings_->FormatOf(table), settings_->Tables()));
  }
  std::string Part(std::size_t part) {
    return Say(CheckPart(settings_->FormatOf(u"Wenshu"_s), part, settings_->Tables()));
  }
  NumberFormat Wenshu() { return settings_->FormatOf(u"Wenshu"_s); }
  /// The gravest first, "E" for an error, "W" for a warning, "N" for a note in front.
  static std::string Say(const Findings& findings) {
    return QStringLiteral("-NWE")[int(WorstOf(findings))].toLatin1() + TextOf(findings).toStdString();
  }

  std::unique_ptr<TransferSettings> settings_;
};
FOLVANE_ON_EACH_DATABASE(CheckTest);

TEST_P(CheckTest, AValueThatIsCutIsToldWithBothLengths) {
  EXPECT_EQ(Linked(u"Amaintitle"_s, u"Amaintitle"_s), "W最长 200 字节，目标只有 60 字节，多出的会被截去");
  EXPECT_EQ(Linked(u"Unit"_s, u"Author"_s), "-");
  EXPECT_EQ(Linked(u"Memo"_s, u"Author"_s), "W不限长度，目标只有 60 字节，多出的会被截去");
}

TEST_P(CheckTest, ATextThatBecomesANumberOrADateIsToldUnlessTheDesignCallsItOne) {
  EXPECT_EQ(Linked(u"Pages"_s, u"Quantity"_s), "-");  // a text of numbers, says the design
  EXPECT_EQ(Linked(u"Unit"_s, u"Quantity"_s), "W文本转为数字，不是数字的值归档时会中断询问");
  EXPECT_EQ(Linked(u"SignDate"_s, u"Quantity"_s), "W日期不能转为数字，归档时会中断询问");
  EXPECT_EQ(Linked(u"SignDate"_s, u"SignDate"_s), "-");
  EXPECT_EQ(Linked(u"Unit"_s, u"SignDate"_s), "W文本转为日期，不是日期的值归档时会中断询问");
}

TEST_P(CheckTest, NumbersAndDatesAreMeasuredAsTheTextsThatTheyBecome) {
  design_->Run(u"alter table Lwdj add column Big integer"_s);
  design_->Run(u"alter table Wenshu add column Few varchar(8)"_s);
  design_->Run(u"alter table Wenshu add column Small smallint"_s);
  EXPECT_THAT(Linked(u"Big"_s, u"Few"_s), HasSubstr("目标只有 8 字节"));
  EXPECT_EQ(Linked(u"Big"_s, u"Author"_s), "-");
  EXPECT_EQ(Linked(u"Big"_s, u"Small"_s), "W较大的数可能超出目标字段的范围，归档会失败");
}

TEST_P(CheckTest, AValueThatAColumnOfFractionsRefusesEndsTheTransfer) {
  design_->Run(u"alter table Wenshu add column Weight double precision"_s);
  EXPECT_EQ(Linked(u"Unit"_s, u"Weight"_s), "W不能转换的值会使归档失败");
  EXPECT_EQ(Linked(u"Pages"_s, u"Weight"_s), "-");
}

TEST_P(CheckTest, TypesAreToldInWords) {
  TransferSettings settings(Connected());
  const BusinessTable& table = settings.Tables().Get(u"Wenshu"_s);
  EXPECT_EQ(TypeInWords(*table.Find(u"amaintitle"_s)), u"文本 60"_s);
  EXPECT_EQ(TypeInWords(*table.Find(u"ItemNo"_s)), u"整数"_s);
  EXPECT_EQ(TypeInWords(*table.Find(u"SignDate"_s)), u"日期"_s);
  EXPECT_EQ(TypeInWords(*settings.Tables().Get(u"Lwdj"_s).Find(u"Memo"_s)), u"长文本"_s);
}

TEST_P(CheckTest, AFieldThatIsGoneIsMarkedOnEitherSide) {
  AddField(u"1"_s, u"Lost"_s, u"Author"_s, u"丢失"_s);
  AddField(u"1"_s, u"Unit"_s, u"Gone"_s, u"责任者"_s);
  design_->Run(u"alter table Lwdj drop column Pages"_s);  // the design still has it
  Read();
  EXPECT_EQ(Link(1), "E来源表中没有字段“Pages”，归档会失败");
  EXPECT_EQ(Link(2), "E来源表中没有字段“Lost”，归档会失败");
  EXPECT_EQ(Link(3), "E目标表中没有字段“Gone”，归档会失败");
  EXPECT_THAT(Set(0), HasSubstr("3 个字段对应有错误"));
}

TEST_P(CheckTest, ADestinationThatIsFilledTwiceIsMarked) {
  AddField(u"1"_s, u"Amaintitle"_s, u"amaintitle"_s, u"题名"_s);
  AddField(u"1"_s, u"Unit"_s, u"Quantity"_s, u"责任者"_s);
  Read();
  EXPECT_THAT(Link(0), HasSubstr("与第 3 行重复"));
  EXPECT_EQ(Link(1), "W目标字段在第 4 行已有对应，后一个值覆盖前一个");
}

TEST_P(CheckTest, AFieldThatTheTransferGivesIsMarked) {
  EXPECT_EQ(Linked(u"Unit"_s, u"ArchiveID"_s).substr(0, 1), "E");
  EXPECT_THAT(Linked(u"Unit"_s, u"FondsNo"_s), HasSubstr("由归档参数给出"));
  EXPECT_THAT(Linked(u"Unit"_s, u"ArchNo"_s), HasSubstr("档号由归档时组成"));
  EXPECT_THAT(Linked(u"Pages"_s, u"ItemNo"_s), HasSubstr("顺序号由归档时编排"));
}

TEST_P(CheckTest, TheCounterOfPagesIsThatOfThePlaceInTheVolume) {
  design_->Run(u"alter table Wenshu add column PageNo integer"_s);
  design_->Run(u"alter table Wenshu add column DocOrder integer"_s);
  design_->Run(u"update ArchiveNo_Format set FieldName = 'PageNo' where FieldName = 'ItemNo'"_s);
  EXPECT_THAT(Linked(u"Pages"_s, u"DocOrder"_s), HasSubstr("顺序号由归档时编排"));
  EXPECT_THAT(Linked(u"Pages"_s, u"PageNo"_s), HasSubstr("页号由归档时编排"));
}

TEST_P(CheckTest, ATableThatIsMissingOrUnknownIsMarked) {
  AddPair(u"2"_s, u"Nothing"_s, u"Wenshu"_s);
  AddPair(u"3"_s, u"Lwdj; drop table Lwdj"_s, u"Wenshu"_s);
  AddPair(u"4"_s, u"Lwdj"_s, u"<null>"_s);
  AddPair(u"5"_s, u"Plain"_s, u"Wenshu"_s);
  design_->Run(u"create table Plain (ArchiveID varchar(20))"_s);
  Read();
  EXPECT_THAT(Set(1), HasSubstr("数据库中没有来源表“Nothing”"));
  EXPECT_THAT(Set(2), HasSubstr("数据库中没有来源表"));
  EXPECT_THAT(Set(3), HasSubstr("没有填写目标表"));
  EXPECT_THAT(Set(4), HasSubstr("设计表中没有登记来源表“Plain”"));
}

TEST_P(CheckTest, PairsThatAreInEachOthersWayAreMarked) {
  AddPair(u"2"_s, u"lwdj"_s, u"Wenshu"_s);
  AddPair(u"3"_s, u"Lwdj"_s, u"Anjuan"_s);
  AddPair(u"4"_s, u"Anjuan"_s, u"Anjuan"_s);
  Read();
  EXPECT_THAT(Set(1), HasSubstr("与第 1 项重复，归档会失败"));
  EXPECT_THAT(Set(2), HasSubstr("来源表已在第 1 项中"));
  EXPECT_THAT(Set(2), HasSubstr("目标表没有档号格式，不能归档"));
  EXPECT_THAT(Set(3), HasSubstr("来源表与目标表相同"));
  EXPECT_THAT(Set(3), HasSubstr("还没有字段对应"));
}

TEST_P(CheckTest, PairsWithoutANumberOfTheirOwnAreMarked) {
  design_->DropKey(u"DataTransfer_Ini"_s);
  AddPair(u"1"_s, u"Anjuan"_s, u"Wenshu"_s);
  AddPair(u"<null>"_s, u"Anjuan"_s, u"Lwdj"_s);
  AddField(u"9"_s, u"Unit"_s, u"Author"_s, QString());
  Read();
  EXPECT_THAT(Set(0), HasSubstr("编号 1 与第 2 项相同"));
  EXPECT_THAT(Set(2), HasSubstr("没有编号"));
  EXPECT_THAT(Set(3), HasSubstr("1 个字段对应没有所属的来源表和目标表（编号 9）"));
}

TEST_P(CheckTest, ANumberThatDoesNotFitItsFieldIsMarked) {
  Read();
  EXPECT_EQ(Format(), "-");
  NumberFormat format = Wenshu();
  format.parts[2].length = u"25"_s;  // 4-4-25, of 30
  EXPECT_THAT(Say(CheckFormat(format, TransferSettings(Connected()).Tables())), HasSubstr("档号最长 35 字节"));
}

TEST_P(CheckTest, WhereTheNumberIsStoredIsChecked) {
  Read();
  TransferSettings settings(Connected());
  const auto say = [&](const QString& store, const QString& folder) {
    NumberFormat format = Wenshu();
    format.storeField = store;
    format.folderField = folder;
    return Say(CheckFormat(format, settings.Tables()));
  };
  EXPECT_EQ(say(QString(), QString()), "N没有选择档号字段，归档时不组成档号");
  EXPECT_EQ(say(u"Lost"_s, u"(无)"_s), "E表中没有档号字段“Lost”，归档会失败");
  EXPECT_EQ(say(u"ArchNo"_s, QString()).substr(0, 1), "E");
  EXPECT_EQ(say(u"ArchNo"_s, u"Lost"_s), "E表中没有案卷号字段“Lost”，归档会失败");
  EXPECT_EQ(say(u"ArchNo"_s, u"FolderNo"_s), "-");
}

TEST_P(CheckTest, EachPartIsChecked) {
  design_->Run(u"delete from SaveControls where DataField = 'DocYear'"_s);
  AddPart(u"Wenshu"_s, u"Lost"_s, QString(), u"<null>"_s);
  AddPart(u"Wenshu"_s, u"Author"_s, u"责任者"_s, u"4"_s, u"显示代号"_s);
  AddPart(u"Wenshu"_s, u"Author"_s, u"责任者"_s, u"4"_s);
  NumberFormat format = Read().FormatOf(u"Wenshu"_s);
  format.parts[0].length = u"0"_s;
  format.parts[0].separator.clear();
  settings_->SetFormat(format);
  EXPECT_THAT(Part(0), HasSubstr("首段没有分隔符，档号会少第一个字符"));
  EXPECT_THAT(Part(0), HasSubstr("宽度为 0"));
  EXPECT_EQ(Part(1), "W录入界面中没有此字段，归档时不能填写");
  EXPECT_EQ(Part(2), "-");
  EXPECT_EQ(Part(3), "E表中没有字段“Lost”，归档会失败；没有填写宽度");
  EXPECT_EQ(Part(4), "N字段没有字典，显示代号不起作用");
  EXPECT_THAT(Part(5), HasSubstr("与第 5 段的字段重复"));
  EXPECT_THAT(Part(5), HasSubstr("不自动编号"));
  EXPECT_THAT(Set(0), HasSubstr("目标表的档号格式有错误"));
}

TEST_P(CheckTest, ErrorsAreListedBeforeASave) {
  AddPair(u"2"_s, u"Nothing"_s, u"Wenshu"_s);
  AddPart(u"Anjuan"_s, u"Lost"_s, QString(), u"4"_s, QString(), QString());
  const QStringList errors = Read().Errors();
  ASSERT_EQ(errors.size(), 2);
  EXPECT_THAT(errors[0].toStdString(), HasSubstr("第 2 项（Nothing → 文书档案）：数据库中没有来源表"));
  EXPECT_EQ(errors[1], u"表“案卷”的档号格式有错误"_s);
}

}  // namespace
}  // namespace folvane::test
