#include "host/Entries.h"

namespace folvane::host {

const std::array<Entry, 6>& Entries() {
  static const std::array<Entry, 6> entries{{
      {QStringLiteral("FileOpen"), QStringLiteral("register"), QStringLiteral("文件登记"),
       QStringLiteral("浏览、登记和查找公文"), &ClsFolvane::FileOpen, true},
      {QStringLiteral("FileArchive"), QStringLiteral("archive"), QStringLiteral("文件归档"),
       QStringLiteral("将办理完毕的文件移入档案"), &ClsFolvane::FileArchive},
      {QStringLiteral("DistributeFile"), QStringLiteral("distribute"), QStringLiteral("文件分发"),
       QStringLiteral("把文件分送各单位并登记去向"), &ClsFolvane::DistributeFile, true},
      {QStringLiteral("PassReadFile"), QStringLiteral("passread"), QStringLiteral("文件传阅"),
       QStringLiteral("按传阅路线逐站送阅"), &ClsFolvane::PassReadFile, true},
      {QStringLiteral("TransactFile"), QStringLiteral("transact"), QStringLiteral("文件处理"),
       QStringLiteral("批办、承办与办结登记"), &ClsFolvane::TransactFile, true},
      {QStringLiteral("HastenFile"), QStringLiteral("hasten"), QStringLiteral("文件催办"),
       QStringLiteral("查看到期文件并催促办理"), &ClsFolvane::HastenFile, true},
  }};
  return entries;
}

}  // namespace folvane::host
