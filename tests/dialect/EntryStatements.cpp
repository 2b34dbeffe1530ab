#include "StatementCase.h"

namespace folvane::test {

const std::vector<StatementCase> kEntryStatements{
    {"the layout",
     "Select SaveControls.*,DynamicWindows.FieldType,DynamicWindows.ChnFieldName,DynamicWindows.FieldLong,"
     "DynamicWindows.AuxiDictDetails,DynamicWindows.NullFlags,DynamicWindows.ControlIndex As LockFields From "
     "SaveControls,DynamicWindows Where DataSource='Lwdj' And SaveControls.ControlType <> 3 And "
     "SaveControls.ControlType "
     "<> 5 And Savecontrols.DataSource = DynamicWindows.TableName And SaveControls.DataField = "
     "DynamicWindows.FieldName "
     "Order By SaveControls.KeyOrder",
     {"Lwdj|Amaintitle|1|1|1|1200|100|3000|300|文本型|题名|200|题名词|否|0",
      "Lwdj|FileStatus|2|1|2|1200|500|3000|300|文本型|归档状态|20|归档状态||1"}},
    {"the key order",
     "Select ControlType,ControlIndex From SaveControls Where DataSource='Lwdj' And "
     "SaveControls.ControlType <> 3 And SaveControls.ControlType <> 5 Order By SaveControls.KeyOrder",
     {"1|1", "2|1"}},
    {"fields in order",
     "Select DataField From SaveControls Where DataSource='Lwdj' and ControlType<>'3' And DataField <> '' Order By "
     "KeyOrder",
     {"Amaintitle", "FileStatus"}},
    {"the order set",
     "Update SaveControls Set KeyOrder='9' Where DataSource='Lwdj' and DataField='Amaintitle' and ControlType<>'3'",
     {"2", "3", "9"},
     "Select KeyOrder From SaveControls Order By KeyOrder"},
    {"a table's words",
     "Select FieldName,AuxiDictDetails From DynamicWindows Where TableName = 'Lwdj'",
     {"Amaintitle|题名词", "FileStatus|归档状态"}},
    {"a word added",
     "Insert Into AssistantDicKey(DicID,Name,IsSystem) Values('d2','请示','0')",
     {"请示"},
     "Select Name From AssistantDicKey Where Name='请示'"},
    {"a dictionary added",
     "Insert Into AssistantDictionary(DicID,Name,ClassType,IsSystem) Values('d3','密级','2 - 字符型','0')",
     {"密级"},
     "Select Name From AssistantDictionary Where DicID='d3'"},
    {"the next number of a year", "Select Max(RegID) From Lwdj Where CreatedDate Like '2002%'", {"2"}},
    {"the next number by rights",
     "Select Max(RegID) From Lwdj Where CreatedDate Like '2002%' AND (Lwdj.FondsNo='F1' And Lwdj.RegID<2)",
     {"1"}},
    {"the next number of a date", "Select Max(RegID) From Lwdj Where FileDate Like '2002%'", {"2"}},
    {"rights on values, kept",
     "If Not (('F1'='f1 ')) Select 'False' As Result,Count(1)as T from DynamicWindows Else Select 'True' As "
     "Result,Count(1)as T From DynamicWindows",
     {"True|4"}},
    {"rights on values, broken",
     "If Not (('F2'='F1' Or '3'>5)) Select 'False' As Result,Count(1)as T from DynamicWindows Else Select 'True' As "
     "Result,Count(1)as T From DynamicWindows",
     {"False|4"}},
    {"rights on numbers",
     "If Not (('10'>9)) Select 'False' As Result,Count(1)as T from DynamicWindows Else Select 'True' As "
     "Result,Count(1)as T From DynamicWindows",
     {"True|4"}},
    {"rights on patterns",
     "If Not (('沪政发' Like '沪[政府]发')) Select 'False' As Result,Count(1)as T from DynamicWindows Else Select "
     "'True' As "
     "Result,Count(1)as T From DynamicWindows",
     {"True|4"}},
    {"fields of the rights",
     "Select Distinct(FieldName) from UserPopedomScopeDetails Where PopTableName='Lwdj' And UserId = '7'",
     {"FondsNo"}},
    {"rules",
     "Select * from SaveCollect Where TableName='Lwdj' And ControlType <> '3' And ControlType <> 0",
     {"Lwdj|0|RegID|登记号|1|1|大于|0|"}},
    {"a rule's format", "Select CustomFormat From SaveCollect Where TableName='Lwdj' And CenterControlIndex=0", {""}},
    {"a rule's format set",
     "Update SaveCollect Set CustomFormat='AB###' Where TableName='Lwdj' And CenterControlIndex='0'",
     {"AB###"},
     "Select CustomFormat From SaveCollect"},
    {"a rule added",
     "Insert into SaveCollect(TableName,CenterControlIndex,FieldName,ControlIndex,ControlType,ChnFieldName,Relation,"
     "CollectValue) Values('Lwdj','1','DocNo','1','8','文号','不能是','重复值')",
     {"0", "1"},
     "Select CenterControlIndex From SaveCollect Order By CenterControlIndex"},
    {"a duplicate", "Select FondsNo From Lwdj Where DocNo='ABC-3' And ArchiveId <> '20020304101112000001'", {"F2"}},
    {"a duplicate without a fonds", "Select 1 From Lwdj Where RegID='1' And ArchiveId <> '20020304101112000001'", {}},
    {"tables to choose",
     "Select TableName,ChnTableName,ClassName from DynamicWindows Group By ChnTableName,TableName,ClassName Order By 1",
     {"Ajml|案卷目录|文书", "Jnml|卷内目录|文书", "Lwdj|收文登记|文书"}},
    {"a control of a field",
     "Select Controlindex,ControlType From SaveControls Where DataSource='Lwdj' And DataField='DocNo' And ControlType "
     "<> '3'",
     {}},
    {"rights on a missing value",
     "If Not ((Null='F1')) Select 'False' As Result,Count(1)as T from DynamicWindows Else Select 'True' As "
     "Result,Count(1)as T From DynamicWindows",
     {"True|4"}},
    {"rights on dates and lists",
     "If Not ('2002' In ('2001','2002 ') And Year('2002-03-04')=2002 And 'b' Between 'A' And 'C') Select 'False' As "
     "Result,Count(1)as T from DynamicWindows Else Select 'True' As Result,Count(1)as T From DynamicWindows",
     {"True|4"}},
    {"rights on a text that is no number",
     "If Not (('x'>5)) Select 'False' As Result,Count(1)as T from DynamicWindows Else Select 'True' As "
     "Result,Count(1)as T From DynamicWindows",
     {"error: Conversion"}},
    {"rules of a form",
     "Select * From SaveCollect Where TableName='Lwdj' And ControlType <> 0 ",
     {"Lwdj|0|RegID|登记号|1|1|大于|0|"}},
    {"a rule looked for",
     "Select CenterControlIndex From SaveCollect Where TableName='Lwdj' And CenterControlIndex=1",
     {}},
    {"a rule changed",
     "Update SaveCollect Set FieldName='DocNo',ChnFieldName='文号',Relation='等于',CollectValue='1' Where "
     "TableName='Lwdj' And CenterControlIndex=0",
     {"DocNo|文号|等于|1"},
     "Select FieldName,ChnFieldName,Relation,CollectValue From SaveCollect"},
    {"rules deleted", "Delete From SaveCollect Where TableName='lwdj'", {}, "Select * From SaveCollect"},
    {"all words", "Select DicID,Name From AssistantDicKey", {"d1|沪政发", "d1|沪府", "d2|通知"}},
    {"all dictionaries", "Select Name,DicID From AssistantDictionary", {"机关代字|d1", "题名词|d2"}},
    {"a format's caption", "Select ChnFieldName from DynamicWindows Where TableName='Lwdj'", {"题名", "归档状态"}},
};

}  // namespace folvane::test
