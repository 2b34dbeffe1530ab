#include "entry/TypingRules.h"

#include <Qt>

#include "base/HalfWidth.h"
#include "base/ProfileFile.h"
#include "base/Surroundings.h"
#include "forms/EntryLayout.h"
#include "shell/TypedKeys.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kWideFieldsBuffer = 500;

// ADO numbers of the unsigned types and of VarNumeric, which no column of ours has.
enum : int { UnsignedSmallInt = 18, UnsignedInt = 19, UnsignedBigInt = 21, VarNumeric = 139 };

// The responsible person, the subject words and the main title are kept without blanks.
bool DropsBlanks(int controlType, const QString& field) {
  if (controlType == ControlKind::Txt) return field == u"RESPONSIBLEBY" || field == u"SBTWORD";
  return controlType == ControlKind::Txt_MLine && field == u"AMAINTITLE";
}

bool IsWide(const QString& field, const QStringList& wideFields) {
  return !wideFields.isEmpty() && wideFields.front() != u"0" && wideFields.contains(field, Qt::CaseInsensitive);
}

}  // namespace

QString WideFieldsPath() { return ProgramFile(u"SBC.Ini"_s); }

QStringList RegCbcIni(const QString& table) {
  const QString line = u"#-------------------------------------"_s;
  const TableProfile profile{
      WideFieldsPath(),
      u"CBCTOSBC"_s,
      {line, u"# 半角改全角设置文件------------------"_s,
       u"# 表名后加字段名，用逗号隔开,注意中间不要有空格！格式如：FWDJ=Amaintitle,Responsebyble等！"_s,
       u"# 如果不需要转换的表，在表名后加0，如：FWDJ=0"_s, line},
      kWideFieldsBuffer};
  return profile.Read(table).split(u',');
}

bool IsNumericField(const Recordset& records, const QString& fieldName) {
  const int type = records[fieldName].Type();
  return GroupOfType(type) == TypeGroup::Number || type == UnsignedSmallInt || type == UnsignedInt ||
         type == UnsignedBigInt || type == VarNumeric;
}

TypingRules TypingRules::Of(int controlType, const QString& dataField, bool isNumeric, const QStringList& wideFields) {
  const bool isText = controlType == ControlKind::Txt || controlType == ControlKind::Txt_MLine;
  if (!isText && controlType != ControlKind::Cmb) return {};
  TypingRules rules;
  rules.digitsOnly = isNumeric;
  rules.dropsBlanks = DropsBlanks(controlType, dataField.toUpper());
  rules.widens = isText && !isNumeric && IsWide(dataField, wideFields);
  return rules;
}

QString TypingRules::Admit(const QString& typed) const {
  QString admitted;
  for (const QChar letter : typed) {
    const bool isRefused = digitsOnly && FilterKey(letter.unicode(), u"0123456789."_s, true) == 0;
    if (!isRefused && !(dropsBlanks && letter == u' ')) admitted += letter;
  }
  return widens ? ToFullWidth(admitted) : admitted;
}

QString YearSignOf(int key, bool useSign, bool isNumeric) {
  if (!useSign || isNumeric) return {};
  if (key == Qt::Key_F11) return u"〔"_s;
  if (key == Qt::Key_F12) return u"〕"_s;
  return {};
}

}  // namespace folvane
