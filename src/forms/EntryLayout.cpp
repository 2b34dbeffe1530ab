#include "forms/EntryLayout.h"

#include <algorithm>
#include <limits>

#include "base/CodePage.h"
#include "base/TypedValues.h"
#include "data/Recordset.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

// Twips.
constexpr int kUsualWidth = 3000, kLine = 300, kSeveralLines = 900;
constexpr int kArrangedLeft = 1500, kGap = 150;
constexpr int kNoMeasure = std::numeric_limits<int>::min();

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

/// A measure of the design; one out of all reason for null and for what is no number.
int Measure(const Field& field) {
  try {
    return ToInteger(field.Text());
  } catch (const NumberError&) {
    return kNoMeasure;
  }
}

bool IsWithin(int number, int least, int most) { return number >= least && number <= most; }

/// Answers whether the row has a place of its own.
bool GiveSize(LayoutRow& row) {
  const bool hasPlace = IsWithin(row.left, 0, kFarthestRight) && IsWithin(row.top, kFarthestUp, kFarthestDown);
  const bool hasWidth = IsWithin(row.width, 1, kFarthestRight);
  const bool hasHeight = IsWithin(row.height, 0, kFarthestDown);
  if (!hasWidth) row.width = kUsualWidth;
  if (!hasHeight) row.height = row.control.type == ControlKind::Txt_MLine ? kSeveralLines : kLine;
  const bool needsHeight = row.control.type != ControlKind::Cmb;
  row.isArranged = !hasPlace || !hasWidth || (needsHeight && !hasHeight);
  return hasPlace;
}

void PutBelow(std::vector<LayoutRow>& rows, const std::vector<size_t>& placeless) {
  int end = 0;
  for (size_t i = 0; i < rows.size(); ++i) {
    if (!std::binary_search(placeless.begin(), placeless.end(), i)) end = std::max(end, rows[i].top + rows[i].height);
  }
  for (const size_t i : placeless) {
    rows[i].left = kArrangedLeft + CaptionOverhang(rows[i].caption);
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
  row.left = Measure(design[u"F_Left"_s]);
  row.top = Measure(design[u"F_Top"_s]);
  row.width = Measure(design[u"F_Width"_s]);
  row.height = Measure(design[u"F_Height"_s]);
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

void ArrangeRows(std::vector<LayoutRow>& rows) {
  std::vector<size_t> placeless;
  for (size_t i = 0; i < rows.size(); ++i)
    if (!GiveSize(rows[i])) placeless.push_back(i);
  PutBelow(rows, placeless);
}

EntryLayout ReadEntryLayout(const std::shared_ptr<Connection>& connection, const QString& table) {
  EntryLayout layout;
  for (auto* list : {&layout.KeyList, &layout.RequiredList, &layout.FixedLengthList}) list->emplace_back();
  layout.FieldList.push_back({u"<无>"_s, {}, {}, false});

  Recordset design;
  design.Open(LayoutStatement(table), connection);
  try {
    for (; !design.EOF_(); design.MoveNext()) AddRow(layout, design, ReadRow(design));
  } catch (const NumberError&) {
    layout.failure = std::current_exception();
  }
  ArrangeRows(layout.rows);
  return layout;
}

}  // namespace folvane
