#pragma once

#include <QVariant>
#include <memory>
#include <string>
#include <vector>

#include <folvane/Design.h>

#include "shell/SharedState.h"
#include "support/HostDoubles.h"
#include "support/TestDatabase.h"

namespace folvane::test {

/// The business tables of all ready-made designs together.
std::vector<std::string> BusinessTables();

/// An office of all ready-made designs with three records in each table, for one of its tables. The administrator works
/// in it; the cases of a suite share it.
class OfficeTest : public testing::TestWithParam<std::string> {
 protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite() { office_.reset(); }
  void SetUp() override;
  void TearDown() override;

  static const Design& TheDesign();
  static const Design::Table& TableOf(const QString& name);
  const Design::Table& Table() const { return TableOf(QString::fromStdString(GetParam())); }
  static const Design::Dictionary* DictionaryOf(const Design::Field& field);
  static const Design::Field* FieldOf(const Design::Table& table, const QString& name);

  /// Whether the records have their numbers in a field, from 1.
  static bool IsCounted(const Design::Field& field);
  /// What the records have in a field: an entry of its dictionary, or as much as may be typed.
  static QString Sample(const Design::Field& field);

  TestDatabase& Database() { return *office_; }
  QString Value(const QString& sql) { return office_->Value(sql); }

  TempProgramDirectory program_;

 private:
  static QVariant ValueOf(const Design::Field& field, int record);

  static inline std::unique_ptr<TestDatabase> office_;
};

}  // namespace folvane::test
