#include "archiving/ArchiveTransfer.h"
#include "archiving/FrmArchivePara.h"
#include "readymade/Office.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

/// A record of each registered table goes where its design says, by way of the window that asks for the number.
class ReadyMadeTransfers : public OfficeTest {
 protected:
  /// The parts of the number but the last one, typed as a clerk types them.
  void TypeNumber(QWidget& window, const Design::Table& archive) {
    for (QWidget* control : window.findChildren<QWidget*>()) {
      const QString field = control->property("DataField").toString();
      for (const Design::NumberPart& part : archive.numberParts)
        if (part.field == field) control->setProperty("text", Sample(*FieldOf(archive, field)));
    }
  }
};

TEST_P(ReadyMadeTransfers, ARecordGetsItsNumberAndItsFields) {
  const Design::TransferMap* map = nullptr;
  for (const Design::TransferMap& each : TheDesign().transfers)
    if (each.source == Table().name) map = &each;
  ASSERT_NE(map, nullptr);
  const Design::Table& archive = TableOf(map->destination);
  WithWindow(u"FrmArchivePara"_s, [&](QWidget& window) {
    TypeNumber(window, archive);
    Click(Find(window, u"CmdOK"_s));
  });
  ASSERT_TRUE(AskArchiveParameters(map->source, map->destination).confirmed);
  const MessageBoxes boxes;
  ArchiveTransfer transfer;
  transfer.askTitle = [] { return u"新的案卷"_s; };
  transfer.DoFileArch({map->source, map->destination, u"Select * From "_s + map->source, false},
                      {Value(u"select min(ArchiveID) from "_s + map->source)}, true);
  EXPECT_EQ(boxes.Texts(), QStringList());
  ASSERT_EQ(transfer.SucceedCount(), 1);
  const QString number = transfer.ResultMsg().section(u'：', 1);
  EXPECT_TRUE(number.startsWith(u"X043-WS·2026-00Y-"_s)) << number.toStdString();
  const QString found = u" from %1 where %2 = '%3'"_s.arg(archive.name, archive.numberField, number);
  EXPECT_EQ(Value(u"select count(*)"_s + found), u"1"_s);
  for (const Design::TransferLink& link : map->links) {
    const QString original = Value(u"select %1 from %2 where FileStatus = '已归档'"_s.arg(link.source, map->source));
    EXPECT_EQ(Value(u"select %1"_s.arg(link.destination) + found), original) << link.destination.toStdString();
  }
}

std::vector<std::string> RegisteredTables() { return {"Lwdj", "Fwdj", "Hyjy", "Htdj"}; }

INSTANTIATE_TEST_SUITE_P(Office, ReadyMadeTransfers, testing::ValuesIn(RegisteredTables()),
                         [](const auto& table) { return table.param; });

}  // namespace
}  // namespace folvane::test
