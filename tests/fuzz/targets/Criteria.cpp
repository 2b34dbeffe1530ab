// A target of libFuzzer: any text is read as what Find and Filter of a record set take, and tried on some rows.
#include "data/Criteria.h"

#include <cstdlib>

#include <folvane/DataError.h>

namespace {

using namespace folvane;
using namespace Qt::Literals::StringLiterals;

FetchedRows SomeRows() {
  FetchedRows fetched;
  fetched.columns = {{u"ID"_s, AdoType::Integer}, {u"T"_s, AdoType::VarChar, 20},
                     {u"F"_s, AdoType::Double},   {u"D"_s, AdoType::DbTimeStamp},
                     {u"B"_s, AdoType::Boolean},  {u"文 号"_s, AdoType::VarChar, 50}};
  fetched.rows = std::make_unique<RowStore>();
  fetched.rows->SetColumnCount(int(fetched.columns.size()));
  for (const char* text : {"abc  ", "", "100%", "〔2002〕"}) {
    fetched.rows->AddInteger(qint64(text[0]) - 50);
    fetched.rows->AddText(text, std::strlen(text));
    fetched.rows->AddReal(text[0] / 3.0);
    fetched.rows->AddText("2002-03-04 10:20:30", text[0] == 'a' ? 19 : 10);
    fetched.rows->AddInteger(1);
    fetched.rows->AddNull();
    fetched.rows->EndRow();
  }
  return fetched;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Rows rows(SomeRows());
  const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
  try {
    const Criteria criteria = Criteria::Parse(text, rows);
    for (RowId row = 0; row < rows.EndId(); ++row) {
      const bool holds = criteria.Holds([&](int column) { return rows.Value(row, column); });
      const Condition* single = criteria.Single();
      if (single && single->Holds(rows.Value(row, single->Column())) != holds) std::abort();
      const Condition* anchor = criteria.Anchor();
      if (holds && anchor && !anchor->Holds(rows.Value(row, anchor->Column()))) std::abort();
    }
  } catch (const DataError&) {
    // what is to happen to nearly all of them
  }
  return 0;
}
