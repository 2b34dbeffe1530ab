#pragma once

#include <QBuffer>
#include <QTemporaryDir>
#include <memory>
#include <string>

#include <folvane/OriginalFiles.h>
#include <folvane/OriginalsRequest.h>

#include "originals/FtpTestServer.h"

namespace folvane::test {

/// A store of either kind, with a view on it from outside.
class EachStore : public testing::TestWithParam<std::string> {
 protected:
  static void SetUpTestSuite() { server = std::make_unique<FtpServer>(); }
  static void TearDownTestSuite() { server.reset(); }

  void SetUp() override;
  bool OnServer() const { return GetParam() == "Server"; }

  OriginalFiles& Store() { return *store_; }
  void Put(const OriginalPlace& place, const QByteArray& content);
  QByteArray Get(const OriginalPlace& place);
  /// All files that lie in the store, as paths below its root; with links.
  QStringList Files() const;
  /// A path below the root, seen from outside.
  QString Path(const QString& file = {}) const;
  QByteArray Read(const QString& file) const;
  void Write(const QString& file, const QByteArray& content);

  static inline std::unique_ptr<FtpServer> server;
  QTemporaryDir directory_;
  OriginalsRequest request_;
  std::unique_ptr<OriginalFiles> store_;
};

}  // namespace folvane::test

/// Runs the cases of a fixture on both kinds of store.
#define FOLVANE_ON_EACH_STORE(Fixture)                                            \
  INSTANTIATE_TEST_SUITE_P(Each, Fixture, testing::Values("Directory", "Server"), \
                           [](const testing::TestParamInfo<std::string>& store) { return store.param; })
