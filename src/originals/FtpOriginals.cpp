#include "data/Recordset.h"
#include "originals/OriginalFiles.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

class FtpServer final : public OriginalFiles {
 public:
  QString Root(const Recordset& setting) const override {
    if (!setting.EOF_()) return setting[u"Info_Type"_s].Text();
    SharedConnection()->Execute(u"Insert Into Report_Info(Report_Id,Info_Type) Values('"_s + kOriginalSetting +
                                u"','')"_s);
    return {};
  }

  void Remove(const QString&, const QString&, const QString&) const override {}
};

}  // namespace

std::unique_ptr<OriginalFiles> FtpOriginals() { return std::make_unique<FtpServer>(); }

}  // namespace folvane
