#include "browser/AskQuery.h"

#include "query/frmSimFind.h"
#include "query/frmfhfind.h"
#include "shell/LoadedWindow.h"

namespace folvane {

AskedQuery AskSimpleQuery(const QString& table) {
  const LoadedWindow<frmSimFind> window;
  window->TableName = table;
  window->Open();
  return {window->ReturnSql, {}, window->Ignored};
}

AskedQuery AskCompoundQuery(const QString& table) {
  const LoadedWindow<frmfhfind> window;
  window->FormTag = table;
  window->Open();
  return {window->ReturnSql, window->InForce, window->Ignored};
}

}  // namespace folvane
