#include "host/Entries.h"

namespace folvane::host {
using namespace Qt::Literals::StringLiterals;

const std::array<Entry, 6>& Entries() {
  static const std::array<Entry, 6> entries{{
      {u"FileOpen"_s, u"register"_s, u"文件登记"_s, u"浏览、登记和查找公文"_s, &ClsFolvane::FileOpen},
      {u"FileArchive"_s, u"archive"_s, u"文件归档"_s, u"将办理完毕的文件移入档案"_s, &ClsFolvane::FileArchive},
      {u"DistributeFile"_s, u"distribute"_s, u"文件分发"_s, u"把文件分送各单位并登记去向"_s,
       &ClsFolvane::DistributeFile},
      {u"PassReadFile"_s, u"passread"_s, u"文件传阅"_s, u"按传阅路线逐站送阅"_s, &ClsFolvane::PassReadFile},
      {u"TransactFile"_s, u"transact"_s, u"文件处理"_s, u"批办、承办与办结登记"_s, &ClsFolvane::TransactFile},
      {u"HastenFile"_s, u"hasten"_s, u"文件催办"_s, u"查看到期文件并催促办理"_s, &ClsFolvane::HastenFile},
  }};
  return entries;
}

}  // namespace folvane::host
