#include "StatementCase.h"

namespace folvane::test {

const std::vector<StatementCase> kArchiveStatements{
    {"the field map",
     "Select * From DataTransfer_Details Where IniRecId = (Select RecId From DataTransfer_ini Where SourceTbl = 'Lwdj' "
     "And "
     "DesTbl = 'Ajml')",
     {"1|FondsNo|FondsNo|全宗号"}},
    {"the parameter fields",
     "Select "
     "SaveControls.DataField,SaveControls.ControlType,DynamicWindows.ChnFieldName,DynamicWindows.AuxiDictDetails,"
     "DynamicWindows.FieldLong,DynamicWindows.FieldType From SaveControls,DynamicWindows Where DataSource='Lwdj' And "
     "SaveControls.ControlType <> 3 And SaveControls.ControlType <> 5 And Savecontrols.DataSource = "
     "DynamicWindows.TableName And SaveControls.DataField = DynamicWindows.FieldName ",
     {"Amaintitle|1|题名|题名词|200|文本型", "FileStatus|2|归档状态|归档状态|20|文本型"}},
    {"the number's format",
     "Select FieldName,Lengh,ShowMode from ArchiveNo_Format Where TableName='Ajml'",
     {"ItemNo|4|显示代号"}},
    {"no rows of the target", "Select * From Ajml Where 1 = 2", {}},
    {"the counter", "Select Max(ItemNo) From Ajml Where FondsNo = 'f1' And YearNo = '2002'", {"2"}},
    {"the record before", "Select PageNo,Quantity From Ajml Where FondsNo = 'F1' And DocOrder = '1'", {"1|4"}},
    {"the code of a word",
     "Select KeyCode From AssistantDicKey Where DicID = (Select DicID From AssistantDictionary Where Name=(Select "
     "AuxiDictDetails From Dynamicwindows Where TableName = 'Lwdj' And FieldName = 'Amaintitle')) ANd Name = '通知'",
     {"TZ"}},
    {"the parent table",
     "select TableName,ChnTableName from Design_TableRelation  where tablename=(select Table_Parent from "
     "Design_TableRelation where tablename='Jnml') ",
     {"Ajml|案卷目录"}},
    {"the field of the parent's number",
     "Select StoreField From ArchiveNo_Format where TableName='Ajml'",
     {"ArchiveNo"}},
    {"the user's condition",
     "Select PopCondition From UserPopedomScope  where userid='7' and PopTableName='Lwdj'",
     {"Lwdj.FondsNo='F1'"}},
    {"shared fields",
     "Select FieldName From Dynamicwindows Where TableName = 'Ajml' And FieldName in (SELECT FieldName From "
     "DynamicWindows "
     "WHERE (TableName = 'Jnml') AND (ControlsType = 1))",
     {}},
    {"sums of a volume",
     "Select Sum(Quantity) as Sum1,Min(Createddate) as StartTime,Max(Createddate) as EndTime From Ajml Where FondsNo = "
     "'F1'",
     {"4|2002-01-02|2002-05-06"}},
    {"originals passed on",
     "Insert Into Original_Text(ID,Original_Name,Type,RecordID,Size,FileOrder,FilePath) (Select "
     "ID,Original_Name,Type,'30000000000000000001',Size,FileOrder,FilePath From Original_Text Where RecordID = "
     "'20020304101112000001')",
     {"o1|10|1|2002", "o2|20|2|"},
     "Select ID,Size,FileOrder,FilePath From Original_Text Where RecordID='30000000000000000001' Order By FileOrder"},
    {"tables to merge from",
     "Select TableName,ChnTableName From DynamicWindows Where TableType = 'F' And FieldName = 'FileStatus'",
     {"Lwdj|收文登记"}},
    {"the next place of an original",
     "Select Max(FileOrder) From Original_Text Where RecordID = '20020304101112000001'",
     {"2"}},
    {"records to merge",
     "Select RegID From Lwdj Where ArchiveID <> '20020304101112000001' And Lwdj.DocNo Like '%ABC%' Order By RegID",
     {"2", "10"}},
    {"merged: the status",
     "Update Lwdj Set FileStatus = '不归档' Where ArchiveID = '20020304101112000001'",
     {"不归档"},
     "Select FileStatus From Lwdj Where RegID=1"},
    {"merged: the note",
     "Update Lwdj Set Note = Note + '已合并件' Where ArchiveID = '20020304101112000001'",
     {"甲已合并件"},
     "Select Note From Lwdj Where RegID=1"},
    {"merged: a note that was null",
     "Update Lwdj Set Note = Note + '已合并件' Where ArchiveID = '20020305101112000002'",
     {"<null>"},
     "Select Note From Lwdj Where RegID=2"},
    {"merged: the originals",
     "Insert Into Original_Text Select ID,Original_Name+'<合并件>',Type,'20030101101112000003',Size,4,FilePath From "
     "Original_Text Where RecordID = '20020304101112000001' And FileOrder = '2'",
     {"附件<合并件>|4"},
     "Select Original_Name,FileOrder From Original_Text Where RecordID='20030101101112000003'"},
    {"a volume's record",
     "Select ArchiveNo From Ajml Where FondsNo = 'f1' And YearNo = '2002' And ItemNo = '2'",
     {"F1-2002-0002"}},
    {"an empty scope", "Select ArchiveNo From Ajml Where FondsNo = '' And YearNo = ''", {}},
    {"the user's scope, kept",
     "If Not ('F1'='F1') Select 'False' As Result,Count(1)as T from DynamicWindows Else Select 'True' As "
     "Result,Count(1)as T From DynamicWindows",
     {"True|4"}},
    {"merged: an original of an absent place",
     "Insert Into Original_Text Select ID,Original_Name+'<合并件>',Type,'x',Size,9 + 2,FilePath From "
     "Original_Text Where RecordID = '20020304101112000001' And FileOrder = '9'",
     {},
     "Select ID From Original_Text Where RecordID='x'"},
};

}  // namespace folvane::test
