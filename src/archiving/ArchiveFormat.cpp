#include "archiving/ArchiveFormat.h"

#include <algorithm>
#include <array>
#include <map>

#include "archiving/DoArchiveLog.h"
#include "base/OuterBlanks.h"
#include "base/TypedValues.h"
#include "data/Recordset.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr std::array kAskedInOrder{ControlKind::Txt,       ControlKind::Cmb,   ControlKind::DTP,
                                   ControlKind::F_FondsNo, ControlKind::F_Aec, ControlKind::DTP_Arch};

QString FieldsStatement(const QString& table) {
  return u"Select SaveControls.DataField,SaveControls.ControlType,DynamicWindows.ChnFieldName,"
         "DynamicWindows.AuxiDictDetails,DynamicWindows.FieldLong,DynamicWindows.FieldType From SaveControls,"
         "DynamicWindows Where DataSource='"_s +
         table +
         u"' And SaveControls.ControlType "
         "<> 3 And SaveControls.ControlType <> 5 And Savecontrols.DataSource = "
         "DynamicWindows.TableName And SaveControls.DataField = DynamicWindows.FieldName "_s;
}

qint16 ToLength(const QString& text) {
  const int length = ToInteger(text);
  if (length != qint16(length)) throw NumberError(u"档号长度 %1 太大。"_s.arg(text));
  return qint16(length);
}

// A kind that is not asked for by a control of its own is asked for as text.
int KindOf(const QString& controlType) {
  const int kind = ToInteger(controlType);
  const bool isAsked = std::find(kAskedInOrder.begin(), kAskedInOrder.end(), kind) != kAskedInOrder.end();
  return isAsked ? kind : int(ControlKind::Txt);
}

void ForgetFormat() {
  SharedState& shared = Shared();
  shared.ArchNoFieldName = shared.ArchNoFieldValue = shared.ArchNoSeparator = QStringList{QString()};
  shared.ArchNoShowCode = {false};
  shared.ArchNoLength = {0};
  shared.ArchNoStoreField.clear();
  shared.ArchNoFolderField.clear();
}

void AddPart(const Recordset& format) {
  SharedState& shared = Shared();
  shared.ArchNoSeparator << format[u"ListSeparator"_s].Text();
  shared.ArchNoFieldName << format[u"FieldName"_s].Text();
  shared.ArchNoShowCode << (format[u"ShowMode"_s].Text() == u"显示代号"_s);
  shared.ArchNoLength << ToLength(format[u"Lengh"_s].Text());
  shared.ArchNoFieldValue << QString();
}

LayoutRow FieldUnder(const Recordset& controls) {
  LayoutRow row;
  row.control.type = KindOf(controls[u"ControlType"_s].Text());
  row.dataField = controls[u"DataField"_s].Text();
  row.fieldType = controls[u"FieldType"_s].Text();
  row.caption = controls[u"ChnFieldName"_s].Text();
  row.fieldLong = controls[u"FieldLong"_s].Text();
  row.dictionary = controls[u"AuxiDictDetails"_s].Text();
  return row;
}

void GiveValue(const ShownField& field) {
  SharedState& shared = Shared();
  for (qsizetype at = 0; at < shared.ArchNoFieldName.size(); ++at) {
    if (shared.ArchNoFieldName[at].compare(field.dataField, Qt::CaseInsensitive) != 0) continue;
    shared.ArchNoFieldValue[at] = field.text;
    return;
  }
}

bool IsBlankParameter(const ShownField& field) {
  switch (field.control.type) {
    case ControlKind::Txt:
      return WithoutOuterBlanks(field.text).isEmpty();
    case ControlKind::DTP:
      return false;
    default:
      return field.text.isEmpty();
  }
}

ArchiveFormat ReadFormat(const QString& table) {
  Recordset controls, parts;
  controls.Open(FieldsStatement(table), SharedConnection());
  parts.Open(u"Select * from ArchiveNo_Format Where TableName='"_s + table + u"'"_s, SharedConnection(),
             CursorType::Keyset, LockType::Pessimistic);
  ArchiveFormat format;
  std::map<int, int> counts;
  const qint64 count = parts.RecordCount();
  for (format.parts = 0; !parts.EOF_(); parts.MoveNext()) {
    AddPart(parts);
    if (++format.parts == count) {
      Shared().ArchNoStoreField = parts[u"StoreField"_s].Text();
      Shared().ArchNoFolderField = parts[u"FolderNoField"_s].Text();
      break;
    }
    controls.SetFilter(u"DataField = '"_s + parts[u"FieldName"_s].Text() + u"'"_s);
    if (controls.EOF_()) continue;
    LayoutRow& row = format.fields.emplace_back(FieldUnder(controls));
    row.control.index = ++counts[row.control.type];
  }
  return format;
}

}  // namespace

// By a part of a format records would be archived without a number.
ArchiveFormat LoadArchiveFormat(const QString& table) {
  ForgetFormat();
  try {
    return ReadFormat(table);
  } catch (const std::exception&) {
    ForgetFormat();
    throw;
  }
}

const ShownField* TakeArchiveValues(const ShownFields& entered, DoArchiveLog& log) {
  for (const int kind : kAskedInOrder) {
    for (const ShownField& field : entered) {
      if (field.control.type != kind) continue;
      log.Keep(field.dataField, kind == ControlKind::DTP ? QString() : field.text);
      if (IsBlankParameter(field)) return &field;
      GiveValue(field);
    }
  }
  return nullptr;
}

bool HasBlankParameter(const ShownFields& entered) {
  return std::any_of(entered.begin(), entered.end(), IsBlankParameter);
}

NumberFormat WithValues(NumberFormat format, const ShownFields& entered) {
  for (NumberField& part : format.fixedFields) {
    const auto field = std::find_if(entered.begin(), entered.end(), [&](const ShownField& candidate) {
      return candidate.dataField.compare(part.name, Qt::CaseInsensitive) == 0;
    });
    part.value = field == entered.end() ? QString() : field->text;
  }
  return format;
}

QString NumberBeginning(const ShownFields& entered, const QString& table) {
  if (entered.empty() || HasBlankParameter(entered)) return {};
  const NumberFormat format = WithValues(SharedNumberFormat(), entered);
  if (format.storeField.isEmpty()) return {};
  return WithoutFirstSeparator(FixedPieces(format, table) + format.itemField.separator);
}

}  // namespace folvane
