#include <QComboBox>
#include <QPushButton>
#include <QTreeView>
#include <utility>

#include <folvane/ResultSet.h>

#include "browser/FrmMain.h"
#include "query/frmSimFind.h"
#include "query/frmfhfind.h"
#include "readymade/Office.h"
#include "records/RecordWindow.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class ReadyMadeQueries : public OfficeTest {
 protected:
  int Found(const QString& condition) {
    return int(ResultSet(*Shared().Connection, u"Select ArchiveID From %1 Where %2"_s.arg(Table().name, condition))
                   .RowCount());
  }
  /// The classes above a table, the table above it, and the table itself, as the tree knows them.
  QStringList Way() const {
    QStringList way{Table().name};
    if (!Table().parent.isEmpty()) way.prepend(Table().parent);
    for (int id = Table().classId; id != 1;) {
      way.prepend(u"C%1\\"_s.arg(id));
      for (const Design::Class& each : TheDesign().classes)
        if (each.id == id) {
          id = each.parent;
          break;
        }
    }
    return way;
  }
};

TEST_P(ReadyMadeQueries, TheListShowsItsColumnsAndTheQuickSearchFindsARecordByEachField) {
  WithWindow(u"FrmMain"_s, [&](QWidget& window) {
    window.resize(1500, 700);
    const RecordWindow browser(window, u"TV_File"_s, u"LVData"_s);
    for (const QString& key : Way()) browser.Choose(key);
    QStringList captions;
    for (const Design::ListColumn& column : Table().columns) captions << column.caption;
    EXPECT_EQ(browser.Captions().mid(0, captions.size()), captions);
    EXPECT_EQ(browser.List().model()->rowCount(), 3) << browser.Status().toStdString();
    auto& fields = Find<QComboBox>(window, u"CboChnFields"_s);
    ASSERT_EQ(fields.count(), int(Table().searchFields.size()));
    for (int at = 0; at < fields.count(); ++at) {
      fields.setCurrentIndex(at);
      const Design::Field& field = *FieldOf(Table(), Table().searchFields[std::size_t(at)].field);
      const bool isPart = Find<QComboBox>(window, u"CboRelation"_s).currentText() == u"包含"_s;
      const QString text = IsCounted(field) ? u"2"_s : isPart ? Sample(field).left(4) : Sample(field);
      Retype(Find<QWidget>(window, u"CboValue"_s), text);
      Click(Find<QPushButton>(window, u"CmdSearch"_s));
      EXPECT_GT(browser.List().model()->rowCount(), 0) << field.name.toStdString();
    }
  });
  ShowRecordBrowser();
}

TEST_P(ReadyMadeQueries, TheSimpleQueryFindsARecordByItsFirstField) {
  frmSimFind query;
  query.TableName = Table().name;
  WithWindow(u"frmSimFind"_s, [&](QWidget& window) {
    Retype(Find<QWidget>(window, u"F_Sim(1)"_s), Sample(*FieldOf(Table(), Table().searchFields[0].field)).left(4));
    Click(Find(window, u"CmdOK"_s));
  });
  query.Open();
  EXPECT_EQ(Found(query.ReturnSql), 3) << query.ReturnSql.toStdString();
}

TEST_P(ReadyMadeQueries, TheCompoundQueryFindsARecordByEachField) {
  for (const Design::Field& field : Table().fields) {
    frmfhfind query;
    query.FormTag = Table().name;
    WithWindow(u"frmfhfind"_s, [&](QWidget& window) {
      for (const auto& [box, text] : {std::pair{u"Cmb(1)"_s, field.caption}, {u"Cmb(2)"_s, u"等于"_s}})
        Find<QComboBox>(window, box).setCurrentText(text);
      Retype(Find<QWidget>(window, u"Cmb(3)"_s), IsCounted(field) ? u"2"_s : Sample(field));
      for (const QString& key : {u"F_AddRecord"_s, u"F_Query"_s}) FindAction(window, u"Toolbar1"_s, key).trigger();
    });
    query.Open();
    ASSERT_FALSE(query.ReturnSql.isEmpty()) << field.name.toStdString();
    EXPECT_GT(Found(query.ReturnSql), 0) << query.ReturnSql.toStdString();
    Database().Native(u"delete from FindCirSave"_s);
  }
}

INSTANTIATE_TEST_SUITE_P(Office, ReadyMadeQueries, testing::ValuesIn(BusinessTables()),
                         [](const auto& table) { return table.param; });

}  // namespace
}  // namespace folvane::test
