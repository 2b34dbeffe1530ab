#include <QLabel>

#include "InputFixture.h"
#include "forms/EntryForm.h"
#include "host/demo/DemoDatabase.h"

namespace folvane::test {
namespace {

/// The entry forms of the demo's tables at the size in which the window opens.
class DemoFormsTest : public testing::TestWithParam<const char*> {
 protected:
  static void SetUpTestSuite() {
    database_ = TestDatabase::Create("SQLite");
    demo::DemoOptions options;
    options.records = 100;
    options.today = QDate(2026, 11, 20);
    demo::MakeDemoDatabase(*database_->Connect(), options);
  }
  static void TearDownTestSuite() { database_.reset(); }

  void SetUp() override {
    Shared().Connection = database_->Connect();
    Shared().UserId = u"1"_s;
    Shared().UserName = u"管理员"_s;
    table_ = QLatin1String(GetParam());
    Shared().CurrentRecords.Open(u"Select * From "_s + table_, Shared().Connection);
    parameters_.Add(table_);
    parameters_.Select(1);
    parameters_.Set(1, Parameter::Edit, u"1"_s);
  }
  void TearDown() override {
    DefaultInstance<FrmInput>::Unload();
    Shared().CurrentRecords.Close();
    Shared().Connection.reset();
  }
  void InWindow(const std::function<void(const Input&)>& steps) {
    FrmInput& window = DefaultInstance<FrmInput>::Get();
    window.CurrTable = table_;
    window.AddOnOpen = u"0"_s;
    window.Context.NodeText = table_;
    window.Context.Parameters = &parameters_;
    WithWindow(u"FrmInput"_s, [&](QWidget& shown) { steps(Input(shown)); });
    window.Open();
  }

  TempProgramDirectory program_;
  QString table_;
  TableParameters parameters_;

 private:
  static inline std::unique_ptr<TestDatabase> database_;
};

TEST_P(DemoFormsTest, HasRoomForEveryLabelAndField) {
  InWindow([&](const Input& input) {
    const QWidget& area = input.Control(u"PicControls"_s);
    QList<QWidget*> shown;
    for (QWidget* control : area.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (control->isVisible()) shown << control;
    }
    EXPECT_GT(shown.size(), 10);
    for (const QWidget* control : shown) {
      EXPECT_TRUE(area.rect().contains(control->geometry())) << control->objectName().toStdString();
      for (const QWidget* other : shown) {
        EXPECT_TRUE(control == other || !control->geometry().intersects(other->geometry()))
            << control->objectName().toStdString() << " and " << other->objectName().toStdString();
      }
    }
    EXPECT_FALSE(input.Control(u"HScroll"_s).isVisible());
  });
}

INSTANTIATE_TEST_SUITE_P(Demo, DemoFormsTest, testing::Values("Lwdj", "Fwdj", "Wsda_Aj", "Wsda_Jn", "Gdwj", "Dsj"),
                         [](const auto& table) { return std::string(table.param); });

}  // namespace
}  // namespace folvane::test
