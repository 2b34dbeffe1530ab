#include "Fixture.h"

#include "catalogue/Ddl.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

void FillTables(TestDatabase& database) {
  database.Furnish(&CreateCatalogue);
  const QString date = database.Kind() == "SQLite" ? u"varchar(10)"_s : u"date"_s;
  database.Native(
      u"CREATE TABLE Lwdj (ArchiveID varchar(20) PRIMARY KEY, RegID integer, DocNo varchar(50), "
      "Amaintitle varchar(200), CreatedDate varchar(10), FileDate %1, FileStatus varchar(20), "
      "Quantity integer, Note varchar(100), FondsNo varchar(10), ReadState varchar(10))"_s.arg(date));
  database.Native(
      u"CREATE TABLE Ajml (ArchiveID varchar(20) PRIMARY KEY, FondsNo varchar(10), YearNo integer, "
      "ItemNo integer, DocOrder integer, ArchiveNo varchar(50), PageNo integer, Quantity integer, "
      "CreatedDate varchar(10))"_s);
  for (
      const char* sql : {
          "INSERT INTO Lwdj VALUES "
          "('20020304101112000001',1,'沪政发〔2002〕1号','关于档案工作的通知','2002-03-04','2002-03-01',"
          "'需归档',2,'甲','F1','未传阅')",
          "INSERT INTO Lwdj VALUES ('20020305101112000002',2,'ABC-2','Report [a] 100%','2002-03-05','2002-03-02',"
          "'已归档',NULL,NULL,'F1',NULL)",
          "INSERT INTO Lwdj VALUES ('20030101101112000003',10,'abc-3','it''s "
          "a_b','2003-01-01',NULL,'需归档',5,'','F2',NULL)",
          "INSERT INTO Ajml VALUES ('30000000000000000001','F1',2002,1,1,'F1-2002-0001',1,4,'2002-01-02')",
          "INSERT INTO Ajml VALUES ('30000000000000000002','F1',2002,2,2,'F1-2002-0002',5,NULL,'2002-05-06')",
          "INSERT INTO Design_ClassRelation(ClassId,ClassName,Class_Parent) VALUES (2,'文书档案',1)",
          "INSERT INTO Design_ClassRelation(ClassId,ClassName,Class_Parent) VALUES (3,'科技档案',2)",
          "INSERT INTO Design_TableRelation(TableName,ChnTableName,ClassID,Table_Parent,RelationField) VALUES "
          "('Lwdj','收文登记',2,'','')",
          "INSERT INTO Design_TableRelation(TableName,ChnTableName,ClassID,Table_Parent,RelationField) VALUES "
          "('Ajml','案卷目录',2,NULL,NULL)",
          "INSERT INTO Design_TableRelation(TableName,ChnTableName,ClassID,Table_Parent,RelationField) VALUES "
          "('Jnml','卷内目录',2,'Ajml','ArchiveNo')",
          "INSERT INTO "
          "DynamicWindows(TableName,ChnTableName,ClassName,TableType,FieldName,ChnFieldName,FieldType,FieldLong,"
          "NullFlags,ControlIndex,AuxiDictDetails,ControlsType,ZJCFlags) VALUES "
          "('Lwdj','收文登记','文书','F','Amaintitle',"
          "'题名','文本型',200,'否','0','题名词',1,'是')",
          "INSERT INTO "
          "DynamicWindows(TableName,ChnTableName,ClassName,TableType,FieldName,ChnFieldName,FieldType,FieldLong,"
          "NullFlags,ControlIndex,AuxiDictDetails,ControlsType,ZJCFlags) VALUES "
          "('Lwdj','收文登记','文书','F','FileStatus',"
          "'归档状态','文本型',20,'','1','归档状态',0,'')",
          "INSERT INTO DynamicWindows(TableName,ChnTableName,ClassName,TableType,FieldName,ChnFieldName,FieldType) "
          "VALUES "
          "('Ajml','案卷目录','文书','A','FondsNo','全宗号','文本型')",
          "INSERT INTO DynamicWindows(TableName,ChnTableName,ClassName,TableType,FieldName,ChnFieldName,FieldType) "
          "VALUES "
          "('Jnml','卷内目录','文书',NULL,'FondsNo','全宗号','文本型')",
          "INSERT INTO "
          "SaveControls(DataSource,DataField,ControlType,ControlIndex,KeyOrder,F_Left,F_Top,F_Width,F_Height) "
          "VALUES ('Lwdj','Amaintitle',1,1,1,1200,100,3000,300)",
          "INSERT INTO "
          "SaveControls(DataSource,DataField,ControlType,ControlIndex,KeyOrder,F_Left,F_Top,F_Width,F_Height) "
          "VALUES ('Lwdj','FileStatus',2,1,2,1200,500,3000,300)",
          "INSERT INTO "
          "SaveControls(DataSource,DataField,ControlType,ControlIndex,KeyOrder,F_Left,F_Top,F_Width,F_Height) "
          "VALUES ('Lwdj','DocNo',3,1,3,1200,900,3000,300)",
          "INSERT INTO ListViewFormat(TableName,FieldName,ChnFieldName,ColumnWidth,OrderNo) VALUES "
          "('Lwdj','RegID','登记号',800,2)",
          "INSERT INTO ListViewFormat(TableName,FieldName,ChnFieldName,ColumnWidth,OrderNo) VALUES "
          "('Lwdj','Amaintitle','题名',3000,1)",
          "INSERT INTO SimSearch(TableName,DataField,ChnDataField,OrderNo,CtlType,CtlIndex,FieldValue) VALUES "
          "('Lwdj','Amaintitle','题名',1,1,1,'@通知@')",
          "INSERT INTO "
          "SaveCollect(TableName,CenterControlIndex,FieldName,ChnFieldName,ControlIndex,ControlType,Relation,"
          "CollectValue,CustomFormat) VALUES ('Lwdj',0,'RegID','登记号',1,1,'大于','0','')",
          "INSERT INTO FindCirSave(OrderNo,TableName,CompField,CompRelation,CompValue,AndOrRelation,ChnAndOrRelation,"
          "ChnCompField,ChnCompRelation) VALUES ('1','Lwdj','RegID','=','1','','','登记号','等于')",
          "INSERT INTO FindCirSave(OrderNo,TableName,CompField,CompRelation,CompValue,AndOrRelation,ChnAndOrRelation,"
          "ChnCompField,ChnCompRelation) VALUES ('2','Lwdj','DocNo','Like','abc','or','或','文号','包含')",
          "INSERT INTO FindCirOrder(TableName,OrderStr,UserID) VALUES ('Lwdj','ArchiveId Desc',7)",
          "INSERT INTO DataTransfer_Ini(RecId,SourceTbl,DesTbl) VALUES (1,'Lwdj','Ajml')",
          "INSERT INTO DataTransfer_Details(IniRecId,SourceField,DesField,SourceChn) VALUES "
          "(1,'FondsNo','FondsNo','全宗号')",
          "INSERT INTO "
          "ArchiveNo_Format(TableName,FieldName,FieldChn,ListSeparator,ShowMode,Lengh,StoreField,FolderNoField) "
          "VALUES ('Ajml','ItemNo','件号','-','显示代号',4,'ArchiveNo','(无)')",
          "INSERT INTO AssistantDictionary(DicID,Name,ClassType,IsSystem) VALUES ('d1','机关代字','2 - 字符型','0')",
          "INSERT INTO AssistantDictionary(DicID,Name,ClassType,IsSystem) VALUES ('d2','题名词','2 - 字符型','0')",
          "INSERT INTO AssistantDicKey(DicID,Name,KeyCode,IsSystem,Note) VALUES ('d1','沪政发','HZ','0','2')",
          "INSERT INTO AssistantDicKey(DicID,Name,KeyCode,IsSystem,Note) VALUES ('d1','沪府','HF','0','1')",
          "INSERT INTO AssistantDicKey(DicID,Name,KeyCode,IsSystem,Note) VALUES ('d2','通知','TZ','0','1')",
          "INSERT INTO FondsDefine(FondsNo,FondsName) VALUES ('F1','市政府')",
          "INSERT INTO EntityClass(ClassNo,FondsNo,ClassName) VALUES ('C1','F1','文书')",
          "INSERT INTO RetentionYear(Name,Code) VALUES ('永久','Y')",
          "INSERT INTO Report_Index(Report_ID,Report_Name,Report_Group_Id,Report_Type) VALUES "
          "('r1','收文目录','Lwdj','1')",
          "INSERT INTO Report_Index(Report_ID,Report_Name,Report_Group_Id,Report_Type) VALUES ('r2','年报','Lwdj','2')",
          "INSERT INTO Report_Info(Report_Id,Info_Type,Info_Description,note) VALUES "
          "('2002123456789','root','D:\\data\\','21')",
          "INSERT INTO Original_Text(ID,Original_Name,Type,RecordID,Size,FileOrder,FilePath) VALUES "
          "('o1','正文','.txt','20020304101112000001',10,1,'2002')",
          "INSERT INTO Original_Text(ID,Original_Name,Type,RecordID,Size,FileOrder,FilePath) VALUES "
          "('o2','附件','.pdf','20020304101112000001',20,2,'')",
          "INSERT INTO PassRead_File(Register_ID,File_ID,File_Table,PassRead_ID,PassRead_Status) VALUES "
          "('h1','20020304101112000001','Lwdj','p1','未传阅')",
          "INSERT INTO PassRead_Details(Register_ID,File_ID,Lead_Unit,Is_Back) VALUES ('h1','1','办公室','否')",
          "INSERT INTO PassRead_Details(Register_ID,File_ID,Lead_Unit,Is_Back) VALUES ('h1','2','秘书处','否')",
          "INSERT INTO Distribute_File(Register_ID,File_ID,File_Table,Distribute_ID,Distribute_Status) VALUES "
          "('h2','20020304101112000001','Lwdj','x1','未分发')",
          "INSERT INTO Distribute_Details(Register_ID,File_ID,Lead_Unit,Quantity,Is_Back,Back_Quantity) VALUES "
          "('h2','1','一处',3,'否',0)",
          "INSERT INTO Transact_File(Register_ID,File_ID,File_Table,Transact_ID,Transact_Status) VALUES "
          "('h3','20020304101112000001','Lwdj','t1','未处理')",
          "INSERT INTO Transact_Details(Register_ID,File_ID,Lead_Unit,Quantity,Is_Back,Back_Quantity,Is_Hasten) VALUES "
          "('h3','1','一处',1,'否',0,'0')",
          "INSERT INTO Curr_Flow(File_ID,CurrNode,IsCreateDetails) VALUES ('h1','1','0')",
          "INSERT INTO Curr_FlowNode(Flow_ID,Node_Number,Next_Node,Node_Member,Node_Mode,Readed) VALUES "
          "('h1','1','2','A','单人审核',NULL)",
          "INSERT INTO UserPopedom(UserID,UserName) VALUES ('7','张三')",
          "INSERT INTO "
          "UserPopedomScope(UserID,PopTableName,PopStrChn,PopEditData,PopPrintData,PopLookFile,PopCondition) "
          "VALUES ('7','Lwdj','本处','1','0','1','Lwdj.FondsNo=''F1''')",
          "INSERT INTO UserPopedomScopeDetails(UserId,PopTableName,FieldName) VALUES ('7','Lwdj','FondsNo')",
      })
    database.Native(QString::fromUtf8(sql));
}

}  // namespace folvane::test
