#pragma once

#include <functional>

#include "records/DesignedDatabase.h"
#include "records/RecordWindow.h"

namespace folvane::test {

/// The open record browser.
class Browser : public RecordWindow {
 public:
  explicit Browser(QWidget& window) : RecordWindow(window, QStringLiteral("TV_File"), QStringLiteral("LVData")) {}
};

/// A browser over a class "文书" (2) with the tables that a case adds.
class BrowserTest : public DesignTest {
 protected:
  void SetUp() override;
  /// Opens the browser, runs the steps in it and closes it.
  void InBrowser(const std::function<void(const Browser&)>& steps);
  QString Remembered() const;
  void Remember(const QString& text) const;
};

/// One with twelve records of Lwdj, the newest first.
class TwelveRecordsTest : public BrowserTest {
 protected:
  void SetUp() override;
};

}  // namespace folvane::test
