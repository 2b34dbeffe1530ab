#include "browser/ColumnWidths.h"

#include <QStringList>
#include <algorithm>

#include "forms/TwipScale.h"
#include "shell/RegistryValues.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kHiddenTwips = 15;  // a column this narrow is meant not to be seen
constexpr int kNarrowest = 24;    // enough to take hold of and pull

QString UserPath() { return u"Software\\Norvex\\Folvane\\Columns\\"_s + Shared().UserId; }

}  // namespace

int DesignedWidth(const QWidget& list, int twips) {
  return twips <= kHiddenTwips ? 1 : std::max(TwipScale(list).ToPixels(twips), kNarrowest);
}

QHash<QString, int> ReadColumnWidths(const QString& table) {
  QHash<QString, int> widths;
  for (const QString& item : QueryValue(kCurrentUser, UserPath(), table).split(u',', Qt::SkipEmptyParts)) {
    const int width = item.section(u'=', 1).toInt();
    if (width > 0) widths.insert(item.section(u'=', 0, 0), width);
  }
  return widths;
}

void SaveColumnWidths(const QString& table, const QHash<QString, int>& widths) {
  QStringList items;
  for (auto width = widths.begin(); width != widths.end(); ++width) {
    items.append(width.key() + u'=' + QString::number(width.value()));
  }
  items.sort();
  SaveValue(kCurrentUser, UserPath(), table, items.join(u','));
}

}  // namespace folvane
