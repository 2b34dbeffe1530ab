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
};

}  // namespace folvane::test
