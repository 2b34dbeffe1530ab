#include "StatementCase.h"

namespace folvane::test {

const std::vector<StatementCase> kRefusedStatements{
    {"two statements", "Select 1 From Lwdj; Delete From Lwdj", {"error: Untranslatable"}},
    {"two statements without a sign", "Delete From Lwdj Delete From Ajml", {"error: Untranslatable"}},
    {"a procedure", "Exec sp_who", {"error: Untranslatable"}},
    {"a table dropped", "Drop Table Lwdj", {"error: Untranslatable"}},
    {"an unknown function", "Select Foo(RegID) From Lwdj", {"error: Untranslatable"}},
    {"a window", "Select Count(*) Over () From Lwdj", {"error: Untranslatable"}},
    {"a percentage", "Select Top 10 Percent RegID From Lwdj", {"error: Untranslatable"}},
    {"a table made", "Select * Into Copy From Lwdj", {"error: Untranslatable"}},
    {"a hint", "Select * From Lwdj With (NoLock)", {"error: Untranslatable"}},
    {"an update of a join", "Update Lwdj Set Note='x' From Ajml", {"error: Untranslatable"}, "Select * From Lwdj"},
    {"a variable", "Select * From Lwdj Where RegID=@id", {"error: Untranslatable"}},
    {"a condition selected", "Select RegID>1 From Lwdj", {"error: Untranslatable"}},
    {"an open quote", "Select * From Lwdj Where Note='x", {"error: Untranslatable"}},
    {"an open bracket", "Select * From [Lwdj", {"error: Untranslatable"}},
    {"an unfinished statement", "Select * From Lwdj Where", {"error: Untranslatable"}},
    {"an unknown style", "Select Convert(varchar(10),FileDate,999) From Lwdj", {"error: Untranslatable"}},
    {"a temporary table", "Select * Into #copy From Lwdj", {"error: Untranslatable"}},
    {"from a temporary table", "Select * From #copy", {"error: Untranslatable"}},
    {"a result as XML", "Select * From Lwdj For Xml Auto", {"error: Untranslatable"}},
    {"a function applied", "Select * From Lwdj Cross Apply Foo(RegID)", {"error: Untranslatable"}},
    {"ties", "Select Top 1 With Ties RegID From Lwdj Order By RegID", {"error: Untranslatable"}},
    {"a table emptied", "Truncate Table Lwdj", {"error: Untranslatable"}},
    {"a declaration", "Declare @a int", {"error: Untranslatable"}},
    {"If without Else", "If 1=1 Select 1", {"error: Untranslatable"}},
    {"If with a deed", "If 1=1 Delete From Lwdj Else Select 1", {"error: Untranslatable"}},
    {"a value as a condition", "Select * From Lwdj Where RegID", {"error: Untranslatable"}},
    {"a value negated", "Select * From Lwdj Where Not (RegID)", {"error: Untranslatable"}},
    {"a bit operation", "Select RegID & 1 From Lwdj", {"error: Untranslatable"}},
    {"a unknown part of a date", "Select DatePart(era,FileDate) From Lwdj", {"error: Untranslatable"}},
    {"an unknown type", "Select Cast(RegID As xml) From Lwdj", {"error: Untranslatable"}},
    {"several rows", "Insert Into FondsDefine(FondsNo) Values('1'),('2')", {"error: Untranslatable"}, "Select 1"},
    {"an open comment", "Select 1 /* one", {"error: Untranslatable"}},
    {"true is no value", "Select RegID From Lwdj Where 1=true", {"error: Statement"}},
};

}  // namespace folvane::test
