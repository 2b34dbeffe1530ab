#include "StatementCase.h"

namespace folvane::test {

// What functions give, and the types of texts, over the table of MixedTable.h.
#define VALUE(value) "Select " value " From Mixed Where id=1"

const std::vector<StatementCase> kFunctionStatements{
    {"Left", VALUE("Left('abc',2),Left('abc',9),Left('abc',0)"), {"ab|abc|"}},
    {"Right", VALUE("Right('abc',2),Right('abc',9)"), {"bc|abc"}},
    {"SubString", VALUE("SubString('abc',2,1),SubString('abc',0,2),SubString('abc',2,9)"), {"b|a|bc"}},
    {"CharIndex",
     VALUE("CharIndex('B','abcb'),CharIndex('b','abcb',3),CharIndex('x','abc'),CharIndex('','abc')"),
     {"2|4|0|0"}},
    {"CharIndex at the first sign",
     VALUE("CharIndex('A','abca'),CharIndex('a','abca',1),CharIndex('a','abca',0),CharIndex('a','abca',2)"),
     {"1|1|1|4"}},
    {"CharIndex in nothing", VALUE("CharIndex('',Left(Null,1)),CharIndex('',Left(Null,1),2)"), {"<null>|<null>"}},
    {"a character beyond the basic plane is one",
     VALUE("Left('𠮷野（甲）',CharIndex('（','𠮷野（甲）')-1),Right('野𠮷',1),SubString('a𠮷b',2,1),SubString('a𠮷b',3,"
           "9),"
           "CharIndex('b','𠮷b𠮷b',3),Len('𠮷')"),
     {"𠮷野|𠮷|𠮷|b|4|1"}},
    {"Replace, whatever the case",
     VALUE("Replace('aBcb','b','x'),Replace('a.c','.','\\'),Replace('abc','','x')"),
     {"axcx|a\\c|abc"}},
    {"trimming", VALUE("'['+LTrim('  a ')+']'+RTrim(' b  ')+'|'"), {"[a ] b|"}},
    {"Upper and Lower", VALUE("Upper('aB'),Lower('aB')"), {"AB|ab"}},
    {"Len passes over trailing blanks", VALUE("Len(' ab  '),Len('文件')"), {"3|2"}},
    {"Str", VALUE("Str(5),Str(12.375,6,2),Str(12345,3)"), {"         5| 12.38|***"}},
    {"Replicate and Space", VALUE("Replicate('ab',2)+Space(2)+'x'"), {"abab  x"}},
    {"Char and Ascii", VALUE("Char(65)+'b',Ascii('a')"), {"Ab|97"}},
    {"IsNumeric", "Select IsNumeric(t) From Mixed Order By id", {"0", "0", "1", "0", "1"}},
    {"NullIf", VALUE("NullIf(t,'ABC'),NullIf(n,'6')"), {"<null>|5"}},
    {"Sign", "Select Sign(n) From Mixed Where id=2", {"-1"}},
    {"char is filled up", VALUE("Convert(char(5),'ab')+'|'"), {"ab   |"}},
    {"nchar is filled up, varchar and nvarchar are not",
     VALUE("Convert(nchar(5),'ab')+'|',Convert(varchar(5),'ab')+'|',Convert(nvarchar(5),'ab')+'|'"),
     {"ab   ||ab||ab|"}},
    {"types without a size are cut at thirty",
     VALUE("Len(Cast(Replicate('ab',20) As char)),Len(Cast(Replicate('ab',20) As nchar)),"
           "Len(Cast(Replicate('ab',20) As varchar)),Len(Cast(Replicate('ab',20) As nvarchar))"),
     {"30|30|30|30"}},
    {"texts without an end are not cut",
     VALUE("Len(Cast(Replicate('ab',20) As text)),Len(Cast(Replicate('ab',20) As ntext)),"
           "Len(Cast(Replicate('ab',20) As varchar(max)))"),
     {"40|40|40"}},
    {"varchar is cut", VALUE("Cast('abcdef' As varchar(3)),Cast('abc' As nvarchar(9))"), {"abc|abc"}},
};

#undef VALUE

}  // namespace folvane::test
