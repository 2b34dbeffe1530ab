#include "browser/BrowserTest.h"

#include "browser/FrmMain.h"
#include "shell/RegistryValues.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

void BrowserTest::SetUp() {
  DesignTest::SetUp();
  design_->AddClass(2, u"文书"_s);
}

void TwelveRecordsTest::SetUp() {
  BrowserTest::SetUp();
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddRecords(u"Lwdj"_s, 12);
}

void BrowserTest::InBrowser(const std::function<void(const Browser&)>& steps) {
  WithWindow(u"FrmMain"_s, [&](QWidget& window) { steps(Browser(window)); });
  ShowRecordBrowser();
}

QString BrowserTest::Remembered() const { return QueryValue(kLocalMachine, kMainFlags, u"FolvaneDefault"_s); }

void BrowserTest::Remember(const QString& text) const {
  SaveValue(kLocalMachine, kMainFlags, u"FolvaneDefault"_s, text);
}

}  // namespace folvane::test
