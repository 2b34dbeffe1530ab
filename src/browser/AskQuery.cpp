#include "browser/AskQuery.h"

#include "query/frmSimFind.h"
#include "query/frmfhfind.h"
#include "shell/LoadedWindow.h"

namespace folvane {

AskedQuery AskSimpleQuery(const QString& table) {
  const LoadedWindow<frmSimFind> window;
  window->TableName = table;
  window->Open();
  return {window->ReturnSql, {}};
}

AskedQuery AskCompoundQuery(const QString& table) {
  const LoadedWindow<frmfhfind> window;
  window->FormTag = table;
  window->Open();
  return {window->ReturnSql, window->ChnReturnSql};
}

}  // namespace folvane
