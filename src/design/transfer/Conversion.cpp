#include "design/transfer/Conversion.h"

#include <folvane/ArchiveRules.h>

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kUnlimited = 1 << 30;  // sizes of long columns lie above

// Of columns, by their ADO types.
enum class Kind { Text, Whole, Fraction, Date, Truth, Binary };

Kind KindOf(int adoType) {
  switch (adoType) {
    case 2:
    case 3:
    case 16:
    case 17:
    case 18:
    case 19:
    case 20:
    case 21:
      return Kind::Whole;
    case 4:
    case 5:
    case 6:
    case 14:
    case 131:
    case 139:
      return Kind::Fraction;
    case 7:
    case 133:
    case 134:
    case 135:
      return Kind::Date;
    case 11:
      return Kind::Truth;
    case 128:
    case 204:
    case 205:
      return Kind::Binary;
    default:
      return Kind::Text;
  }
}

// By the words of the design: a text column may be one of dates or numbers.
bool HoldsDates(const TableField& field) {
  return KindOf(field.adoType) == Kind::Date ||
         QStringList{u"时间型"_s, u"日期型"_s, u"档案日期型"_s, u"档案日期"_s}.contains(field.typeWord);
}

bool HoldsNumbers(const TableField& field) {
  const Kind kind = KindOf(field.adoType);
  return kind == Kind::Whole || kind == Kind::Fraction ||
         QStringList{u"数值型"_s, u"自动编号"_s, u"数字型"_s}.contains(field.typeWord);
}

// The widest that a whole number of that type is, with its sign.
int DigitsOf(int adoType) {
  switch (adoType) {
    case 16:
    case 17:
      return 4;
    case 2:
    case 18:
      return 6;
    case 3:
    case 19:
      return 11;
    default:
      return 20;
  }
}

// The most bytes that a value of the field takes as text.
int WidthOf(const TableField& field) {
  switch (KindOf(field.adoType)) {
    case Kind::Whole:
      return DigitsOf(field.adoType);
    case Kind::Fraction:
      return 24;
    case Kind::Date:
      return field.adoType == 133 ? 10 : 19;
    case Kind::Truth:
      return 5;
    default:
      return field.size < kUnlimited || field.limit == 0 ? field.size : field.limit;
  }
}

Findings CheckNumber(const TableField& source, const TableField& destination) {
  const Kind from = KindOf(source.adoType), to = KindOf(destination.adoType);
  if (!HoldsNumbers(source))
    return {{Severity::Warning, HoldsDates(source) ? u"日期不能转为数字，归档时会中断询问"_s
                                                   : u"文本转为数字，不是数字的值归档时会中断询问"_s}};
  if (from == Kind::Fraction && to == Kind::Whole) return {{Severity::Warning, u"小数归档时四舍五入为整数"_s}};
  if (from == Kind::Whole && to == Kind::Whole && DigitsOf(source.adoType) > DigitsOf(destination.adoType))
    return {{Severity::Warning, u"较大的数可能超出目标字段的范围，归档会失败"_s}};
  return {};
}

Findings CheckDate(const TableField& source) {
  if (source.adoType == 7 || source.adoType == 135) return {{Severity::Note, u"只取日期，不取时间"_s}};
  if (HoldsDates(source) && source.adoType != 134) return {};
  return {{Severity::Warning, HoldsNumbers(source) ? u"数字转为日期，不是日期的值归档时会中断询问"_s
                                                   : u"文本转为日期，不是日期的值归档时会中断询问"_s}};
}

// A transfer stores the text of the value, cut to the size, and leaves it to the column to take that.
Findings CheckText(const TableField& source, const TableField& destination) {
  const Kind to = KindOf(destination.adoType);
  const bool fits = (to == Kind::Fraction && HoldsNumbers(source)) || (to == Kind::Date && HoldsDates(source)) ||
                    KindOf(source.adoType) == to;
  if (to == Kind::Binary) return {{Severity::Error, u"目标字段是二进制内容，归档会失败"_s}};
  if (to != Kind::Text) return fits ? Findings{} : Findings{{Severity::Warning, u"不能转换的值会使归档失败"_s}};
  const int width = WidthOf(source);
  if (width <= destination.size || destination.size >= kUnlimited) return {};
  if (width >= kUnlimited)
    return {{Severity::Warning, u"不限长度，目标只有 %1 字节，多出的会被截去"_s.arg(destination.size)}};
  return {{Severity::Warning, u"最长 %1 字节，目标只有 %2 字节，多出的会被截去"_s.arg(width).arg(destination.size)}};
}

}  // namespace

QString TypeInWords(const TableField& field) {
  if (!field.isThere) return u"（没有此列）"_s;
  switch (KindOf(field.adoType)) {
    case Kind::Whole:
      return u"整数"_s;
    case Kind::Fraction:
      return u"小数"_s;
    case Kind::Date:
      return field.adoType == 134 ? u"时间"_s : u"日期"_s;
    case Kind::Truth:
      return u"是否"_s;
    case Kind::Binary:
      return u"二进制"_s;
    default:
      return field.size >= kUnlimited ? u"长文本"_s : u"文本 %1"_s.arg(field.size);
  }
}

Findings CheckConversion(const TableField& source, const TableField& destination) {
  if (KindOf(source.adoType) == Kind::Binary) return {{Severity::Warning, u"来源是二进制内容，不能转为目标的值"_s}};
  switch (BranchOf(destination.adoType)) {
    case FieldBranch::Number:
      return CheckNumber(source, destination);
    case FieldBranch::Date:
      return CheckDate(source);
    default:
      return CheckText(source, destination);
  }
}

}  // namespace folvane::transfer
