#include "StatementCase.h"

namespace folvane::test {

const std::vector<StatementCase> kFlowStatements{
    {"a record's head",
     "Select Register_id from PassRead_File where File_ID='20020304101112000001' And File_Table = 'Lwdj'",
     {"h1"}},
    {"details", "select Lead_Unit from PassRead_Details where Register_ID='h1' Order By File_ID", {"办公室", "秘书处"}},
    {"the last serial",
     "Select File_ID From PassRead_Details where Register_ID='h1' Order By File_ID DESC",
     {"2", "1"}},
    {"a head changed",
     "Update PassRead_File set PassRead_ID='p2',PassRead_Range='全处',PassRead_Status='传阅中',File_Unit='甲',Note='' "
     "where "
     "Register_ID='h1'",
     {"p2|全处|传阅中|甲|"},
     "Select PassRead_ID,PassRead_Range,PassRead_Status,File_Unit,Note From PassRead_File"},
    {"a serial in use", "Select File_ID From PassRead_Details where File_ID='2' and Register_ID='h1'", {"2"}},
    {"a detail changed",
     "Update PassRead_Details set File_ID='3',Lead_Unit='二处',PassRead_Date= '2002-03-04',Is_Back='是',Back_Date=null,"
     "Real_BackDate='2002-04-05' where Register_ID='h1' and File_ID='1'",
     {"二处|2002-03-04|<null>|2002-04-05"},
     "Select Lead_Unit,PassRead_Date,Back_Date,Real_BackDate From PassRead_Details Where File_ID='3'"},
    {"a detail's date cleared",
     "Update PassRead_Details set File_ID='1',Lead_Unit='二处',PassRead_Date=Null,Is_Back='是',Back_Date=null,"
     "Real_BackDate=null where Register_ID='h1' and File_ID='1'",
     {"<null>"},
     "Select PassRead_Date From PassRead_Details Where File_ID='1'"},
    {"a detail added",
     "Insert Into PassRead_Details (File_ID,Register_ID,Lead_Unit,PassRead_Date,Is_Back,Back_Date,Real_BackDate) "
     "Values "
     "('3','h1','三处','2002-03-04','否',null,'2002-03-05')",
     {"2002-03-04|<null>|2002-03-05"},
     "Select PassRead_Date,Back_Date,Real_BackDate From PassRead_Details Where File_ID='3'"},
    {"a detail of a node",
     "Insert Into PassRead_Details (File_ID,Register_ID,Lead_Unit,PassRead_Date,Is_Back) Values "
     "('3','h1','B,C','2002-03-04','否')",
     {"B,C|2002-03-04"},
     "Select Lead_Unit,PassRead_Date From PassRead_Details Where File_ID='3' And PassRead_Date='2002-03-04' And "
     "Is_Back='否'"},
    {"a distribution changed",
     "Update Distribute_Details set File_ID='1',Lead_Unit='二处',Distribute_Date= '2002-03-04',Quantity=5,Is_Back='是',"
     "Back_Date=null,Real_BackDate=null,Back_Quantity=2 where Register_ID='h2' and File_ID='1'",
     {"5|2|2002-03-04"},
     "Select Quantity,Back_Quantity,Distribute_Date From Distribute_Details"},
    {"a distribution added",
     "Insert Into Distribute_Details (File_ID,Register_ID,Lead_Unit,Distribute_Date,Quantity,Is_Back,Back_Date,"
     "Real_BackDate,Back_Quantity) Values ('2','h2','三处',null,4,'否',null,null,0)",
     {"4"},
     "Select Quantity From Distribute_Details Where File_ID='2'"},
    {"handling details, by their mode",
     "select Lead_Unit from TranSact_Details where Register_ID='h3' and Is_Hasten='0'",
     {"一处"}},
    {"a handling changed",
     "Update TranSact_Details set File_ID='1',Lead_Unit='二处',Send_Date= '2002-03-04',Quantity=1,Transact_Mode='会签',"
     "Is_Back='否',Back_Date=null,Real_BackDate=null,Back_Quantity=0,Transact_Result='办结' where Register_ID='h3' and "
     "File_ID='1' and Is_Hasten='0'",
     {"会签|办结"},
     "Select Transact_Mode,Transact_Result From Transact_Details"},
    {"a status written back",
     "Update Lwdj Set ReadState = '已传阅' Where ArchiveId = '20020304101112000001'",
     {"已传阅"},
     "Select ReadState From Lwdj Where RegID=1"},
    {"details deleted", "Delete From PassRead_Details Where Register_ID = 'h1'", {}, "Select * From PassRead_Details"},
    {"a head deleted", "Delete From PassRead_File where Register_ID='h1'", {}, "Select * From PassRead_File"},
    {"the route", "Select CurrNode From Curr_Flow where File_ID='h1'", {"1"}},
    {"a node",
     "select Next_Node,Node_member,Node_Mode,Readed from Curr_FlowNode where Flow_ID='h1' and Node_Number='1'",
     {"2|A|单人审核|<null>"}},
    {"heads by a query",
     "Select Register_ID from PassRead_File Where PassRead_File.PassRead_Status = '未传阅'",
     {"h1"}},
    {"heads of distribution", "select Register_ID,Distribute_Status from Distribute_File", {"h2|未分发"}},
    {"heads of handling", "select Register_ID,Transact_Status from TranSact_File", {"h3|未处理"}},
    {"a head of distribution changed",
     "Update Distribute_File set Distribute_ID='x2',Distribute_Status='已分发',Distribute_Range='全处',File_Unit='甲',"
     "Note = '' where Register_ID='h2'",
     {"x2|已分发|全处|甲|"},
     "Select Distribute_ID,Distribute_Status,Distribute_Range,File_Unit,Note From Distribute_File"},
    {"a head of handling changed",
     "Update Transact_File set Transact_ID='t2',Transact_Status='处理中',File_Unit='甲',Note = '注' where "
     "Register_ID='h3'",
     {"t2|处理中|甲|注"},
     "Select Transact_ID,TranSact_Status,File_Unit,Note From Transact_File"},
    {"a handling added",
     "Insert Into TranSact_Details (File_ID,Register_ID,Lead_Unit,Send_Date,Quantity,Transact_Mode,Is_Back,Back_Date,"
     "Real_BackDate,Back_Quantity,Transact_Result,Is_Hasten) Values ('2','h3','二处','2002-03-04',3,'会签','否',null,"
     "null,0,'','1')",
     {"2|3|1"},
     "select File_ID,Quantity,Is_Hasten from TranSact_Details where Register_ID='h3' and Is_Hasten='1'"},
    {"a handling of a node, dated as the system writes dates",
     "Insert Into Transact_Details (File_ID,Register_ID,Lead_Unit,Send_Date,Is_Back,Is_Hasten) Values "
     "('3','h3','A,B','2002/3/4','否','0')",
     {"A,B"},
     "Select Lead_Unit From Transact_Details Where File_ID='3'"},
    {"a distribution deleted",
     "Delete From Distribute_Details where Register_ID='h2' and File_ID='1'",
     {},
     "select * from Distribute_Details where Register_ID='h2'"},
    {"handlings deleted",
     "Delete From Transact_Details Where Register_ID = 'h3'",
     {},
     "Select * From TranSact_Details"},
    {"the route of a head", "Select File_ID,CurrNode,IsCreateDetails From Curr_Flow where File_ID='H1'", {"h1|1|0"}},
};

}  // namespace folvane::test
