#include "components/reports/PageSetup.h"

#include <QStringList>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kKey = u"HKEY_CURRENT_USER\\Software\\Norvex\\Reports"_s;
constexpr double kWidestMargin = 100, kLeastRoom = 30;

std::optional<QPageSize::PageSizeId> PaperOf(const QString& name) {
  for (const QPageSize::PageSizeId paper : Papers())
    if (QPageSize::key(paper).compare(name, Qt::CaseInsensitive) == 0) return paper;
  return std::nullopt;
}

}  // namespace

const QList<QPageSize::PageSizeId>& Papers() {
  static const QList<QPageSize::PageSizeId> papers{QPageSize::A3,    QPageSize::A4,    QPageSize::A5,
                                                   QPageSize::JisB4, QPageSize::JisB5, QPageSize::Letter};
  return papers;
}

QPageLayout ReadPageLayout(const QString& text) {
  QPageSize::PageSizeId paper = QPageSize::A4;
  QPageLayout::Orientation orientation = QPageLayout::Portrait;
  QList<double> margins;
  for (const QString& word : text.split(u' ', Qt::SkipEmptyParts)) {
    bool isNumber = false;
    const double number = word.toDouble(&isNumber);
    if (isNumber && number >= 0 && number <= kWidestMargin) {
      margins << number;
    } else if (const auto named = PaperOf(word)) {
      paper = *named;
    } else if (word == u"landscape"_s || word == u"portrait"_s) {
      orientation = word == u"landscape"_s ? QPageLayout::Landscape : QPageLayout::Portrait;
    } else {
      throw DataError(DataErrorKind::Usage, u"报表的页面设置“%1”不正确：“%2”。"_s.arg(text, word));
    }
  }
  if (margins.isEmpty()) margins = {20, 20, 20, 20};
  if (margins.size() != 4)
    throw DataError(DataErrorKind::Usage, u"报表的页面设置“%1”不正确：页边距应为四个数。"_s.arg(text));
  const QPageLayout layout(QPageSize(paper), orientation, QMarginsF(margins[3], margins[0], margins[1], margins[2]),
                           QPageLayout::Millimeter);
  if (!HasRoom(layout))
    throw DataError(DataErrorKind::Usage, u"报表的页面设置“%1”不正确：页边距太大，放不下内容。"_s.arg(text));
  return layout;
}

bool HasRoom(const QPageLayout& layout) {
  const QSizeF room = layout.paintRect(QPageLayout::Millimeter).size();
  return room.width() >= kLeastRoom && room.height() >= kLeastRoom;
}

QString PageLayoutText(const QPageLayout& layout) {
  const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
  QStringList words{QPageSize::key(layout.pageSize().id()),
                    layout.orientation() == QPageLayout::Landscape ? u"landscape"_s : u"portrait"_s};
  for (const double margin : {margins.top(), margins.right(), margins.bottom(), margins.left()})
    words << QString::number(margin, 'g', 4);
  return words.join(u' ');
}

std::optional<QPageLayout> KeptPageLayout(const QString& reportId) {
  const auto& registry = Services().registry;
  const QString kept = registry ? registry->Read(kKey, reportId) : QString();
  if (kept.isEmpty()) return std::nullopt;
  try {
    return ReadPageLayout(kept);
  } catch (const DataError&) {
    return std::nullopt;  // not written here: as good as none
  }
}

void KeepPageLayout(const QString& reportId, const QPageLayout& layout) {
  if (Services().registry) Services().registry->Write(kKey, reportId, PageLayoutText(layout));
}

}  // namespace folvane::reports
