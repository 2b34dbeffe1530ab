#include "components/transfer/EditTransferSettings.h"

#include <QApplication>

#include <folvane/DataError.h>

#include "components/transfer/FrmTransferSettings.h"

namespace folvane::transfer {
using namespace Qt::Literals::StringLiterals;

void EditTransferSettings(const std::shared_ptr<Connection>& connection, const QString& what) {
  if (what != u"TransSet"_s) throw DataError(DataErrorKind::Usage, u"不认识的归档设置“%1”。"_s.arg(what));
  if (!connection) throw DataError(DataErrorKind::Usage, u"没有数据库连接，不能进行归档设置。"_s);
  FrmTransferSettings(QApplication::activeWindow(), connection).exec();
}

}  // namespace folvane::transfer
