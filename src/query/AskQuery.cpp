#include "query/AskQuery.h"

#include "query/FrmOrderBy.h"
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

QString AskOrder(const QString& table, const QString& oldOrder) {
  const LoadedWindow<FrmOrderBy> window;
  window->OldOrder = oldOrder;
  window->TableName = table;
  window->Open();
  return window->ReturnSql;
}

}  // namespace folvane
