#include <QComboBox>
#include <QLabel>

#include "entry/FrmInput.h"
#include "forms/EntryLayout.h"
#include "readymade/Office.h"
#include "records/TableParameters.h"
#include "shell/DefaultInstance.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class ReadyMadeForm : public OfficeTest {
 protected:
  void TearDown() override {
    DefaultInstance<FrmInput>::Unload();
    OfficeTest::TearDown();
  }
  void InForm(const WindowSteps& steps) {
    const QString& table = Table().name;
    Shared().CurrentRecords.Open(u"Select * From "_s + table, Shared().Connection);
    parameters_.Add(table);
    parameters_.Select(1);
    parameters_.Set(1, Parameter::Edit, u"1"_s);
    FrmInput& window = DefaultInstance<FrmInput>::Get();
    window.CurrTable = table;
    window.AddOnOpen = u"0"_s;
    window.Context.NodeText = table;
    window.Context.Parameters = &parameters_;
    WithWindow(u"FrmInput"_s, steps);
    window.Open();
  }

  TableParameters parameters_;
};

TEST_P(ReadyMadeForm, HasRoomForEveryLabelAndField) {
  InForm([&](QWidget& window) {
    const auto& area = Find<QWidget>(window, u"PicControls"_s);
    QList<QWidget*> shown;
    for (QWidget* control : area.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (control->isVisible()) shown << control;
    }
    EXPECT_GE(shown.size(), 2 * qsizetype(Table().controls.size() - 1));
    for (const QWidget* control : shown) {
      EXPECT_TRUE(control->x() >= 0 && control->geometry().right() < area.width())
          << control->objectName().toStdString();
      EXPECT_GE(control->width(), qobject_cast<const QLabel*>(control) ? control->sizeHint().width() : 0)
          << control->objectName().toStdString();
      for (const QWidget* other : shown)
        EXPECT_TRUE(control == other || !control->geometry().intersects(other->geometry()))
            << control->objectName().toStdString() << " and " << other->objectName().toStdString();
    }
  });
}

TEST_P(ReadyMadeForm, OffersTheEntriesOfItsDictionaries) {
  InForm([&](QWidget& window) {
    for (const Design::Control& control : Table().controls) {
      if (control.type != ControlKind::Cmb) continue;
      const Design::Dictionary* dictionary = DictionaryOf(*FieldOf(Table(), control.field));
      ASSERT_NE(dictionary, nullptr) << control.field.toStdString();
      const auto& box = Find<QComboBox>(window, u"Cmb(%1)"_s.arg(control.index));
      QStringList offered, entries;
      for (int at = 0; at < box.count(); ++at) offered << box.itemText(at);
      for (const Design::DictionaryEntry& entry : dictionary->entries) entries << entry.text;
      EXPECT_EQ(offered, entries) << control.field.toStdString();
    }
  });
}

INSTANTIATE_TEST_SUITE_P(Office, ReadyMadeForm, testing::ValuesIn(BusinessTables()),
                         [](const auto& table) { return table.param; });

}  // namespace
}  // namespace folvane::test
