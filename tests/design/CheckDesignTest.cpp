#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "design/SmallDesign.h"
#include "design/TableEdits.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

const DesignFinding* Find(const std::vector<DesignFinding>& findings, const QString& kind) {
  for (const DesignFinding& finding : findings)
    if (finding.kind == kind) return &finding;
  return nullptr;
}

std::string TextOf(const std::vector<DesignFinding>& findings) {
  QStringList lines;
  for (const DesignFinding& finding : findings) lines << finding.kind + u' ' + finding.where + u": "_s + finding.what;
  return lines.join(u'\n').toStdString();
}

/// A design that something is wrong with: what was broken, what is found, and how a person mends it where the finding
/// has no mend of its own.
struct Broken {
  const char* kind;
  std::function<void(Design&)> change;
  std::function<void(Design&)> mendByHand = {};
};

void PrintTo(const Broken& broken, std::ostream* out) { *out << broken.kind; }

Design::Control& ControlOf(Design& design, std::size_t at) { return TableOf(design, u"Lwdj"_s).controls[at]; }

std::vector<Broken> BrokenTrees() {
  return {
      {"class-number",
       [](Design& design) {
         design.classes.push_back({40000, u"其他"_s, 1});
       },
       [](Design& design) { design.classes.back().id = 4; }},
      {"class-nameless", [](Design& design) { design.classes[0].name = QString(); },
       [](Design& design) { design.classes[0].name = u"收文"_s; }},
      {"class-ring", [](Design& design) { design.classes[0].parent = 2; }},
      {"class-ring",
       [](Design& design) {
         design.classes[0].parent = 3;
         design.classes[1].parent = 2;
       }},
      {"class-parent", [](Design& design) { design.classes[0].parent = 9; }},
      {"table-class", [](Design& design) { TableOf(design, u"Lwdj"_s).classId = 9; },
       [](Design& design) { TableOf(design, u"Lwdj"_s).classId = 2; }},
      {"table-parent", [](Design& design) { TableOf(design, u"Lwdj"_s).parent = u"LWDJ"_s; }},
      {"table-parent", [](Design& design) { TableOf(design, u"Lwdj"_s).parent = u"Nirgends"_s; }},
      {"relation-field",
       [](Design& design) {
         TableOf(design, u"Lwdj"_s).parent = u"Gdwj"_s;
         TableOf(design, u"Lwdj"_s).relationField = u"RegID"_s;
       },
       [](Design& design) { TableOf(design, u"Lwdj"_s).relationField = u"Amaintitle"_s; }},
  };
}

std::vector<Broken> BrokenFields() {
  const auto field = [](Design& design) -> Design::Field& { return FieldOf(design, u"Lwdj"_s, u"SecurityClass"_s); };
  return {
      {"table-name", [](Design& design) { TableOf(design, u"Lwdj"_s).name = u"Lw dj"_s; },
       [](Design& design) { TableOf(design, u"Lw dj"_s).name = u"Lwdj"_s; }},
      {"table-nameless", [](Design& design) { TableOf(design, u"Lwdj"_s).caption = QString(); }},
      {"table-fieldless",
       [](Design& design) {
         Design::Table& table = design.tables.emplace_back();
         table.name = table.caption = u"Leer"_s;
       },
       [](Design& design) { std::erase_if(design.tables, [](const auto& table) { return table.name == u"Leer"; }); }},
      {"field-name",
       [](Design& design) {
         TableOf(design, u"Lwdj"_s).fields.push_back({u"Order"_s, u"次序"_s, u"文本型"_s, 10, {}});
       },
       [](Design& design) { TableOf(design, u"Lwdj"_s).fields.pop_back(); }},
      {"field-type", [field](Design& design) { field(design).type = u"文字"_s; }},
      {"field-length", [field](Design& design) { field(design).length = -1; }},
      {"field-fixed",
       [field](Design& design) {
         field(design).length = 0;
         field(design).isFixedLength = true;
       }},
      {"dictionary-unknown", [field](Design& design) { field(design).dictionary = u"保密级"_s; }},
      {"caption-empty", [field](Design& design) { field(design).caption = QString(); }},
      {"caption-twice", [field](Design& design) { field(design).caption = u"题名"_s; }},
  };
}

std::vector<Broken> BrokenForms() {
  return {
      {"form-empty", [](Design& design) { TableOf(design, u"Lwdj"_s).controls.clear(); },
       [](Design& design) { TableOf(design, u"Lwdj"_s).controls = SmallDesign().tables[1].controls; }},
      {"control-type", [](Design& design) { ControlOf(design, 0).type = 11; }},
      {"control-field", [](Design& design) { ControlOf(design, 0).field = u"Nirgends"_s; }},
      {"control-size", [](Design& design) { ControlOf(design, 0).width = 0; }},
      {"control-outside", [](Design& design) { ControlOf(design, 0).left = 60000; }},
      {"control-outside", [](Design& design) { ControlOf(design, 0).left = -20; }},
      {"control-outside", [](Design& design) { ControlOf(design, 1).left = 7000; }},
      {"control-overlap", [](Design& design) { ControlOf(design, 1).left = 1350; }},
      {"control-twice",
       [](Design& design) {
         TableOf(design, u"Lwdj"_s).controls.push_back({u"REGID"_s, 1, 9, 9, 1350, 1920, 3600, 300});
       }},
      {"required-unasked",
       [](Design& design) {
         FieldOf(design, u"Lwdj"_s, u"FileDate"_s).isRequired = true;
         std::erase_if(TableOf(design, u"Lwdj"_s).controls,
                       [](const auto& control) { return control.field == u"FileDate"; });
       }},
  };
}

std::vector<Broken> BrokenLists() {
  return {
      {"list-empty", [](Design& design) { TableOf(design, u"Lwdj"_s).columns.clear(); }},
      {"list-field", [](Design& design) { TableOf(design, u"Lwdj"_s).columns[0].field = u"Nirgends"_s; }},
      {"list-caption", [](Design& design) { TableOf(design, u"Lwdj"_s).columns[0].caption = u"号"_s; }},
      {"list-width", [](Design& design) { TableOf(design, u"Lwdj"_s).columns[0].width = 0; }},
      {"search-field", [](Design& design) { TableOf(design, u"Lwdj"_s).searchFields[0].field = u"Nirgends"_s; }},
      {"search-caption", [](Design& design) { TableOf(design, u"Lwdj"_s).searchFields[0].caption = u"名"_s; }},
      {"search-type", [](Design& design) { TableOf(design, u"Lwdj"_s).searchFields[0].type = 7; }},
  };
}

std::vector<Broken> BrokenTransfers() {
  return {
      {"number-part", [](Design& design) { TableOf(design, u"Gdwj"_s).numberParts[1].field = u"Nirgends"_s; }},
      {"number-part", [](Design& design) { TableOf(design, u"Gdwj"_s).numberParts[0].separator = QString(); },
       [](Design& design) { TableOf(design, u"Gdwj"_s).numberParts[0].separator = u"-"_s; }},
      {"number-format", [](Design& design) { TableOf(design, u"Gdwj"_s).numberField = u"Nirgends"_s; },
       [](Design& design) { TableOf(design, u"Gdwj"_s).numberField = u"ArchiveNo"_s; }},
      {"number-format", [](Design& design) { TableOf(design, u"Gdwj"_s).numberParts[0].length = 90; },
       [](Design& design) { TableOf(design, u"Gdwj"_s).numberParts[0].length = 4; }},
      {"transfer-link",
       [](Design& design) {
         design.transfers[0].links.push_back({u"Nirgends"_s, u"SecurityClass"_s, {}});
       }},
      // What is cut.
      {"transfer-link",
       [](Design& design) {
         design.transfers[0].links.push_back({u"Amaintitle"_s, u"SecurityClass"_s, {}});
       },
       [](Design& design) { design.transfers[0].links.pop_back(); }},
      // What does not convert.
      {"transfer-link",
       [](Design& design) {
         design.transfers[0].links.push_back({u"Amaintitle"_s, u"DocOrder"_s, {}});
       },
       [](Design& design) {
         std::erase_if(design.transfers[0].links, [](const auto& link) { return link.destination == u"DocOrder"; });
       }},
      {"transfer-map", [](Design& design) { design.transfers[0].destination = u"Nirgends"_s; },
       [](Design& design) { design.transfers[0].destination = u"Gdwj"_s; }},
      // The table above takes sums of what the destination does not have.
      {"transfer-sums",
       [](Design& design) {
         TableOf(design, u"Gdwj"_s).parent = u"Lwdj"_s;
         TableOf(design, u"Gdwj"_s).relationField = u"SecurityClass"_s;
       },
       [](Design& design) {
         for (const auto& [name, type] : {std::pair{u"Quantity"_s, u"数值型"_s}, {u"CreatedDate"_s, u"文本型"_s}})
           TableOf(design, u"Gdwj"_s).fields.push_back({name, name, type, 10, {}});
       }},
  };
}

std::vector<Broken> BrokenRights() {
  const auto rights = [](Design& design) -> Design::Rights& { return design.users[1].rights[0]; };
  return {
      {"user-number", [](Design& design) { design.users[1].id = u"zwölf"_s; },
       [](Design& design) {
         design.users[0].id == u"1" ? design.users[1].id = u"12"_s : design.users[0].id = u"12"_s;
       }},
      {"user-nameless", [](Design& design) { design.users[1].name = QString(); },
       [](Design& design) { design.users[1].name = u"王小明"_s; }},
      {"user-administrator", [](Design& design) { design.users.erase(design.users.begin()); }},
      {"rights-table", [rights](Design& design) { rights(design).table = u"Nirgends"_s; }},
      {"rights-fields", [rights](Design& design) { rights(design).condition = QString(); }},
      {"rights-field", [rights](Design& design) { rights(design).conditionFields << u"Nirgends"_s; }},
      {"report-nameless", [](Design& design) { design.reports[0].name = QString(); },
       [](Design& design) { design.reports[0].name = u"登记簿"_s; }},
      {"report-group", [](Design& design) { design.reports[0].group = u"Nirgends"_s; }},
  };
}

TEST(CheckDesignAlone, AConditionWithoutItsFieldIsForSomebodyToDecide) {
  Design design = SmallDesign();
  design::RemoveField(design, u"Lwdj"_s, u"SecurityClass"_s);
  const std::vector<DesignFinding> findings = CheckDesign(design);
  const DesignFinding* finding = Find(findings, u"rights-field"_s);
  ASSERT_TRUE(finding) << TextOf(findings);
  EXPECT_FALSE(finding->mend) << "without the name of the field the check would be content, and the user locked out";
}

class BrokenDesign : public testing::TestWithParam<Broken> {};

TEST_P(BrokenDesign, IsFoundWithWhatFollowsAndGoneOnceItIsMended) {
  const QString kind = QString::fromLatin1(GetParam().kind);
  Design design = SmallDesign();
  ASSERT_EQ(TextOf(CheckDesign(design)), "");
  GetParam().change(design);
  PutInOrder(design);
  const std::vector<DesignFinding> findings = CheckDesign(design);
  const DesignFinding* finding = Find(findings, kind);
  ASSERT_TRUE(finding) << TextOf(findings);
  for (const QString& text : {finding->where, finding->what, finding->consequence, finding->remedy})
    EXPECT_FALSE(text.isEmpty());
  EXPECT_EQ(bool(finding->mend), !GetParam().mendByHand) << "a mend of its own";
  (finding->mend ? finding->mend : GetParam().mendByHand)(design);
  // Where two lead to each other, both are found.
  if (const DesignFinding* other = Find(CheckDesign(design), kind); other && other->mend) other->mend(design);
  EXPECT_FALSE(Find(CheckDesign(design), kind)) << TextOf(CheckDesign(design));
}

INSTANTIATE_TEST_SUITE_P(Tree, BrokenDesign, testing::ValuesIn(BrokenTrees()));
INSTANTIATE_TEST_SUITE_P(Fields, BrokenDesign, testing::ValuesIn(BrokenFields()));
INSTANTIATE_TEST_SUITE_P(Forms, BrokenDesign, testing::ValuesIn(BrokenForms()));
INSTANTIATE_TEST_SUITE_P(Lists, BrokenDesign, testing::ValuesIn(BrokenLists()));
INSTANTIATE_TEST_SUITE_P(Transfers, BrokenDesign, testing::ValuesIn(BrokenTransfers()));
INSTANTIATE_TEST_SUITE_P(Rights, BrokenDesign, testing::ValuesIn(BrokenRights()));

class CheckDatabaseTest : public WithSmallDesign {
 protected:
  std::vector<DesignFinding> Check() { return CheckDesign(Read(), Connected().get()); }
  // The mend of the finding, applied to the database.
  void Mend(const QString& kind) {
    const std::vector<DesignFinding> findings = Check();
    const DesignFinding* finding = Find(findings, kind);
    ASSERT_TRUE(finding) << TextOf(findings);
    ASSERT_TRUE(finding->mend);
    Apply(finding->mend);
    EXPECT_FALSE(Find(Check(), kind)) << TextOf(Check());
  }
};
FOLVANE_ON_EACH_DATABASE(CheckDatabaseTest);

TEST_P(CheckDatabaseTest, NothingIsWrongWithWhatWasApplied) { EXPECT_EQ(TextOf(Check()), ""); }

TEST_P(CheckDatabaseTest, MissingTablesAndColumnsAreFoundAndMadeByApplying) {
  Database().Native(u"drop table Gdwj"_s);
  Mend(u"table-missing"_s);
  Database().Native(u"alter table Lwdj drop column SecurityClass"_s);
  EXPECT_TRUE(Find(Check(), u"rights-condition"_s)) << TextOf(Check());
  Mend(u"column-missing"_s);
  EXPECT_EQ(TextOf(Check()), "");
}

TEST_P(CheckDatabaseTest, ColumnsThatDoNotHoldTheirFieldsAreFoundAndMended) {
  Database().Native(u"update DynamicWindows set FieldLong = 400 where FieldName = 'Amaintitle'"_s);
  Mend(u"column-short"_s);
  Database().Native(u"update DynamicWindows set FieldType = '文本型' where FieldName = 'RegID'"_s);
  Mend(u"column-type"_s);
  EXPECT_EQ(TextOf(Check()), "");
}

TEST_P(CheckDatabaseTest, ATableWithoutItsKeyIsFound) {
  Database().Native(u"drop table Lwdj"_s);
  Database().Native(
      u"create table Lwdj(RegID integer, CreatedDate varchar(10), Amaintitle varchar(160), "
      u"SecurityClass varchar(10), FileDate varchar(10))"_s);
  EXPECT_TRUE(Find(Check(), u"key-missing"_s));
  Database().Native(u"alter table Lwdj add column ArchiveID varchar(20)"_s);
  EXPECT_FALSE(Find(Check(), u"key-missing"_s));
}

TEST_P(CheckDatabaseTest, AConditionThatTheDatabaseRefusesIsFound) {
  Apply([](Design& design) { design.users[1].rights[0].condition = u"SecurityClass ="_s; });
  const std::vector<DesignFinding> findings = Check();
  const DesignFinding* finding = Find(findings, u"rights-condition"_s);
  ASSERT_TRUE(finding) << TextOf(findings);
  EXPECT_EQ(finding->weight, DesignFinding::Weight::Error);
  Apply([](Design& design) { design.users[1].rights[0].condition = u"SecurityClass = '内部'"_s; });
  EXPECT_FALSE(Find(Check(), u"rights-condition"_s));
}

TEST_P(CheckDatabaseTest, RowsThatADesignCannotHoldAreFoundAndStay) {
  Database().Native(u"insert into DynamicWindows(TableName, FieldName, ChnFieldName) values('Lwdj', 'RegID', '号')"_s);
  Database().Native(u"update DynamicWindows set NullFlags = 'x' where FieldName = 'FileYear'"_s);
  Database().Native(u"insert into AssistantDicKey(DicID, Name) values('99', '绝密')"_s);
  const std::vector<DesignFinding> findings = Check();
  for (const QString& kind : {u"row-twice"_s, u"row-value"_s, u"row-orphan"_s})
    EXPECT_TRUE(Find(findings, kind)) << qPrintable(kind) << "\n" << TextOf(findings);
  Apply([](Design& design) { FieldOf(design, u"Lwdj"_s, u"Amaintitle"_s).caption = u"标题"_s; });
  EXPECT_EQ(Database().Value(u"select count(*) from DynamicWindows where FieldName = 'RegID'"_s), u"2"_s);
  EXPECT_EQ(Database().Value(u"select NullFlags from DynamicWindows where FieldName = 'FileYear'"_s), u"x"_s);
  EXPECT_EQ(Database().Value(u"select count(*) from AssistantDicKey where DicID = '99'"_s), u"1"_s);
  Database().Native(u"delete from DynamicWindows where ChnFieldName = '号'"_s);
  Database().Native(u"update DynamicWindows set NullFlags = '否' where NullFlags = 'x'"_s);
  Database().Native(u"delete from AssistantDicKey where DicID = '99'"_s);
  for (const QString& kind : {u"row-twice"_s, u"row-value"_s, u"row-orphan"_s}) EXPECT_FALSE(Find(Check(), kind));
}

TEST(CheckReports, ATemplateIsLookedForWhereAFolderIsGiven) {
  QTemporaryDir folder;
  EXPECT_TRUE(Find(CheckDesign(SmallDesign(), nullptr, folder.path()), u"report-template"_s));
  QFile file(folder.filePath(u"1001.html"_s));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  EXPECT_FALSE(Find(CheckDesign(SmallDesign(), nullptr, folder.path()), u"report-template"_s));
}

}  // namespace
}  // namespace folvane::test
