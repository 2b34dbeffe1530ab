#include "originals/OriginalStore.h"

#include <QDir>
#include <curl/curl.h>
#include <set>
#include <utility>

#include <folvane/DataError.h>
#include <folvane/OriginalsRequest.h>

#include "base/IgnoreErrors.h"
#include "base/Surroundings.h"
#include "base/TypedValues.h"
#include "data/Recordset.h"
#include "originals/OriginalPlaces.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kStoreKey = u"2002123456789"_s, kAccountKey = u"20020123456789"_s;  // Report_Info.Report_Id
constexpr quint16 kGreatestPort = 0xFFFF;

// Stands for a setting that nobody has made, and so is made with it. Where that fails, the first file that is to go
// there tells.
QString DefaultDirectory() {
  QDir(ProgramDirectory()).mkdir(u"Data"_s);
  return ProgramDirectory() + u"\\Data"_s;
}

QString ServerRoot(const Recordset& setting) {
  if (!setting.EOF_()) return setting[u"Info_Type"_s].Text();
  SharedConnection()->Execute(u"Insert Into Report_Info(Report_Id,Info_Type) Values('"_s + kStoreKey + u"','')"_s);
  return {};
}

QString DirectoryRoot(const Recordset& setting) {
  if (setting.EOF_()) {
    const QString root = DefaultDirectory();
    SharedConnection()->Execute(u"Insert Into Report_Info(Report_Id,Info_Description) Values('"_s + kStoreKey +
                                u"','"_s + EscapeSql(root) + u"')"_s);
    return root;
  }
  QString root = setting[u"Info_Description"_s].Text();
  if (root.trimmed().isEmpty()) {
    root = DefaultDirectory();
    SharedConnection()->Execute(u"Update Report_Info Set Info_Description='"_s + EscapeSql(root) +
                                u"' Where Report_Id = '"_s + kStoreKey + u"'"_s);
    return root;
  }
  if (root.endsWith(u'\\')) root.chop(1);
  return root;
}

void OpenNetwork() {
  const CURLcode code = curl_global_init(CURL_GLOBAL_DEFAULT);
  if (code == CURLE_OK) {
    Shared().hOpen = true;
    return;
  }
  // The text stands where the message's buttons and icon belong. It is no number, and so an error for the caller.
  ShowMessage(u"初始化hOpen错误！"_s + QString::fromLatin1(curl_easy_strerror(code)), ToInteger(u"连接FTP Sever"_s));
}

void PrepareServer() {
  if (!Shared().hOpen) OpenNetwork();
  if (Shared().hConnection) return;
  if (ConnectFtpServer() && Shared().hConnection)
    IgnoreErrors([] { Shared().hConnection->ChangeDirectory(u'/' + Shared().OriginalRoot); });
}

quint16 ToPort(const QString& text) {
  const int port = ToInteger(text);
  if (port < 0 || port > kGreatestPort) throw NumberError(u"“%1”不是端口号。"_s.arg(text));
  return quint16(port);
}

void Tell(const QString& text, const QString& note = {}) {
  ShowMessage({text, MessageFlag::Information, kSystemTitle, note, {}});
}

void Connect(const FtpLogin& login) {
  try {
    Shared().hConnection = std::make_shared<FtpConnection>(login);
    Shared().FtpConnected = true;
  } catch (const DataError& error) {
    Shared().FtpConnected = false;
    Tell(u"FTP Server连接错误！hConnection值为0，请退出系统重新登录后再试！"_s, ErrorText(error));
  }
}

using Holder = std::pair<QString, QString>;  // the ids of a file and of a record

Holder HolderIn(const Recordset& originals) { return {originals[u"ID"_s].Text(), originals[u"RecordID"_s].Text()}; }

/// Whether nobody holds the file once the holders have gone.
bool IsFree(Recordset& all, const Holder& holder, const std::set<Holder>& going) {
  if (IsOnlyHolder(all, holder.first, holder.second)) return true;
  for (; !all.EOF_(); all.MoveNext()) {
    if (!going.contains(HolderIn(all))) return false;
  }
  return true;
}

/// The places of the files that no other record holds. @throws DataError where one of them leads out of the store
std::vector<OriginalPlace> PlacesToClear(Recordset& going, Recordset& all) {
  std::set<Holder> holders;
  for (; !going.EOF_(); going.MoveNext()) holders.insert(HolderIn(going));
  std::vector<OriginalPlace> places;
  if (going.RecordCount() > 0) going.MoveFirst();
  for (; !going.EOF_(); going.MoveNext()) {
    if (!IsFree(all, HolderIn(going), holders)) continue;
    const OriginalPlace place{going[u"FilePath"_s].Text(), going[u"ID"_s].Text(), going[u"Type"_s].Text()};
    Checked(place);
    places.push_back(place);
  }
  return places;
}

/// Answers what the user should know of files that stay behind, "" for none.
QString RemoveFiles(const std::vector<OriginalPlace>& places) {
  std::size_t left = places.size();
  QString reason;
  if (places.empty()) return {};
  try {
    OriginalsRequest store;
    store.databaseKind = Shared().DatabaseKind;
    store.storeRoot = Shared().OriginalRoot;
    store.ftp = Shared().hConnection;
    const std::unique_ptr<OriginalFiles> files = OpenOriginalFiles(store);
    for (const OriginalPlace& place : places) {
      try {
        files->Remove(place);
        --left;
      } catch (const DataError& error) {
        if (error.Kind() == DataErrorKind::Lost) throw;  // the others would wait for the same server
        reason = error.Message();
      }
    }
  } catch (const DataError& error) {
    reason = error.Message();
  }
  return left == 0 ? QString() : u"%1 个原文文件未能从存储中删除：%2"_s.arg(left).arg(reason);
}

}  // namespace

bool LieOnServer(const QString& databaseKind) {
  return databaseKind == u"SQL SERVER"_s || databaseKind == u"SYSBASE"_s;
}

void InitOriginalStore() {
  Recordset setting;
  setting.Open(u"Select Info_Description,Info_Type from Report_Info Where Report_Id = '"_s + kStoreKey + u"'"_s,
               SharedConnection());
  const bool onServer = LieOnServer(Shared().DatabaseKind);
  Shared().OriginalRoot = onServer ? ServerRoot(setting) : DirectoryRoot(setting);
  if (onServer) PrepareServer();
}

bool ConnectFtpServer() {
  Recordset store, account;
  store.Open(u"Select * From report_info where report_id='"_s + kStoreKey + u"'"_s, SharedConnection());
  const QString note = store[u"note"_s].Text().trimmed();
  account.Open(u"Select * from report_info where report_id = '"_s + kAccountKey + u"'"_s, SharedConnection());
  const QString noAccount = u"FTP服务器账号未配置，请与网络管理员联系！"_s;
  if (account.EOF_()) {
    SharedConnection()->Execute(u"Insert Into Report_Info(Report_Id,Info_Type,Info_Description) Values('"_s +
                                kAccountKey + u"','','')"_s);
    Tell(noAccount);
    return true;
  }
  if (account[u"Info_Type"_s].IsNull()) {
    Tell(noAccount);
    return false;
  }
  const QString server = account[u"note"_s].Text();
  if (Shared().FtpConnected || !Shared().hOpen) return true;
  if (server.isEmpty()) {
    Tell(u"FTP服务器仍未设置，请与网络管理员联系！"_s);
    return true;
  }
  Connect({server, ToPort(note.isEmpty() ? u"21"_s : note), account[u"Info_Type"_s].Text(),
           account[u"Info_Description"_s].Text()});
  return true;
}

void DeleteOriginals(const QString& whereClause) { DeleteOriginalsAndTell(whereClause); }

QString DeleteOriginalsAndTell(const QString& whereClause) {
  Recordset going, all;
  going.Open(u"Select ID,Type,FilePath,RecordID From Original_Text"_s + whereClause, SharedConnection());
  all.Open(u"Select * From Original_Text"_s, SharedConnection());
  const std::vector<OriginalPlace> places = PlacesToClear(going, all);
  going.Close();
  all.Close();
  // First the rows: wherever this is broken off, a file may be left without a row, but never a row without its file.
  SharedConnection()->Execute(u"Delete From Original_Text"_s + whereClause);
  return RemoveFiles(places);
}

QString DeleteOriginalsOf(const QString& recordKey) {
  return DeleteOriginalsAndTell(u" Where RecordID = '"_s + EscapeSql(recordKey) + u"'"_s);
}

bool IsOnlyHolder(Recordset& originals, const QString& fileId, const QString& recordId) {
  originals.SetFilter(u"ID = '"_s + EscapeSql(fileId) + u"' And RecordID <> '"_s + EscapeSql(recordId) + u"'"_s);
  return originals.EOF_();
}

}  // namespace folvane
