#include "forms/EntryLayout.h"

#include <algorithm>

#include "base/CodePage.h"
#include "base/TypedValues.h"
#include "data/Recordset.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

// Twips. Nobody can see a field that begins or ends farther to the right than the widest screen.
constexpr int kFarthestRight = 57'600;
constexpr int kFarthestDown = 240'000;
constexpr int kHighest = -500;  // the room above the first fields
constexpr int kUsualWidth = 3000, kLine = 300, kSeveralLines = 900;
constexpr int kArrangedLeft = 1500, kGap = 150;

constexpr int kCaptionBytes = 11;  // that fit between a caption's usual place and its field
constexpr int kTwipsPerByte = 90;

QString LayoutStatement(const QString& table) {
  return u"Select SaveControls.*,DynamicWindows.FieldType,DynamicWindows.ChnFieldName,DynamicWindows.FieldLong,"
         "DynamicWindows.AuxiDictDetails,DynamicWindows.NullFlags,DynamicWindows.ControlIndex As LockFields "
         "From SaveControls,DynamicWindows Where "
         "DataSource='"_s +
         table +
         u"' And SaveControls.ControlType <> 3 And "
         "SaveControls.ControlType <> 5 And Savecontrols.DataSource = "
         "DynamicWindows.TableName And SaveControls.DataField = DynamicWindows.FieldName "
         "Order By SaveControls.KeyOrder"_s;
}

/// A number of the design within limits; none for null, for what is no number and for one out of all reason.
std::optional<int> Within(int least, int most, const Field& field) {
  try {
    const int number = ToInteger(field.Text());
    if (number >= least && number <= most) return number;
  } catch (const NumberError&) {
  }
  return {};
}

/// Answers whether the row has a place of its own.
bool ReadPlace(const Recordset& design, LayoutRow& row) {
  const auto left = Within(0, kFarthestRight, design[u"F_Left"_s]);
  const auto top = Within(kHighest, kFarthestDown, design[u"F_Top"_s]);
  const auto width = Within(1, kFarthestRight, design[u"F_Width"_s]);
  const auto height = Within(0, kFarthestDown, design[u"F_Height"_s]);
  const bool hasPlace = left && top;
  row.left = hasPlace ? *left : kArrangedLeft + CaptionOverhang(row.caption);
  row.top = top.value_or(0);
  row.width = width.value_or(kUsualWidth);
  row.height = height.value_or(row.control.type == ControlKind::Txt_MLine ? kSeveralLines : kLine);
  const bool needsHeight = row.control.type != ControlKind::Cmb;
  row.isArranged = !hasPlace || !width || (needsHeight && !height);
  return hasPlace;
}

void PutBelow(std::vector<LayoutRow>& rows, const std::vector<size_t>& placeless) {
  int end = 0;
  for (size_t i = 0; i < rows.size(); ++i) {
    if (!std::binary_search(placeless.begin(), placeless.end(), i)) end = std::max(end, rows[i].top + rows[i].height);
  }
  for (const size_t i : placeless) {
    rows[i].top = end + kGap;
    end = rows[i].top + rows[i].height;
  }
}

LayoutRow ReadRow(const Recordset& design) {
  const auto number = [&](const QString& column) { return ToInteger(design[column].Text()); };
  LayoutRow row;
  row.control = {number(u"ControlType"_s), number(u"ControlIndex"_s)};
  row.dataField = design[u"DataField"_s].Text();
  row.fieldType = design[u"FieldType"_s].Text();
  row.caption = design[u"ChnFieldName"_s].Text();
  row.fieldLong = design[u"FieldLong"_s].Text();
  row.dictionary = design[u"AuxiDictDetails"_s].Text();
  return row;
}

void AddRow(EntryLayout& layout, const Recordset& design, const LayoutRow& row) {
  layout.rows.push_back(row);
  layout.KeyList.push_back(row.control);
  layout.FieldList.push_back({row.dataField, row.fieldType, {}, false});
  if (design[u"NullFlags"_s].Text() == u"否") layout.RequiredList.push_back(row.control);
  if (design[u"LockFields"_s].Text() == u"1") layout.FixedLengthList.push_back(row.control);
}

}  // namespace

QString LimitText(const QString& length) { return u"限长"_s + length + u"个字符"_s; }

std::optional<int> LimitIn(const QString& hint) {
  bool isNumber = false;
  const int limit = hint.mid(2, hint.indexOf(u'个') - 2).toInt(&isNumber);
  return isNumber ? std::optional(limit) : std::nullopt;
}

int CaptionOverhang(const QString& caption) { return kTwipsPerByte * std::max(0, ByteLength(caption) - kCaptionBytes); }

EntryLayout ReadEntryLayout(const std::shared_ptr<Connection>& connection, const QString& table) {
  EntryLayout layout;
  for (auto* list : {&layout.KeyList, &layout.RequiredList, &layout.FixedLengthList}) list->emplace_back();
  layout.FieldList.push_back({u"<无>"_s, {}, {}, false});

  Recordset design;
  design.Open(LayoutStatement(table), connection);
  std::vector<size_t> placeless;
  try {
    for (; !design.EOF_(); design.MoveNext()) {
      LayoutRow row = ReadRow(design);
      if (!ReadPlace(design, row)) placeless.push_back(layout.rows.size());
      AddRow(layout, design, row);
    }
  } catch (const NumberError&) {
    layout.failure = std::current_exception();
  }
  PutBelow(layout.rows, placeless);
  return layout;
}

}  // namespace folvane
