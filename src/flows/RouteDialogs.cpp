#include "flows/RouteDialogs.h"

#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "flows/FlowSheets.h"
#include "flows/RouteEditor.h"
#include "flows/RouteNodes.h"
#include "shell/EventGuard.h"
#include "shell/ModalWindow.h"
#include "shell/SharedState.h"
#include "widgets/DialogKeys.h"
#include "widgets/PlainTip.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kRoomBesideText = 16;  // pixels

/// A dialog with a list in columns and the keys under it.
class ListDialog : public QDialog {
 public:
  ListDialog(const QString& name, const QString& caption, const QString& icon, const QStringList& columns) {
    setObjectName(name);
    setWindowTitle(caption);
    setWindowIcon(Icon(icon));
    list_ = new QTreeWidget(this);
    list_->setObjectName(u"lstRoutes"_s);
    list_->setAccessibleName(caption);
    list_->setHeaderLabels(columns);
    list_->setRootIsDecorated(false);
    list_->setAlternatingRowColors(true);
    list_->setUniformRowHeights(true);
    keys_ = std::make_unique<DialogKeys>(*this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 12);
    column->addWidget(list_, 1);
    column->addLayout(keys_->row);
    resize(720, 380);
    connect(keys_->ok, &QPushButton::clicked, this, &QDialog::accept);
  }

  QTreeWidgetItem* AddRow(const QStringList& texts) {
    auto* row = new QTreeWidgetItem(list_, texts);
    for (int column = 0; column < texts.size(); ++column) row->setToolTip(column, PlainTip(texts[column]));
    return row;
  }
  void Fit() {
    for (int column = 0; column + 1 < list_->columnCount(); ++column) {
      list_->resizeColumnToContents(column);
      list_->setColumnWidth(column, list_->columnWidth(column) + kRoomBesideText);
    }
    if (list_->topLevelItemCount() > 0) list_->setCurrentItem(list_->topLevelItem(0));
  }

  QTreeWidget* list_;
  std::unique_ptr<DialogKeys> keys_;
};

QString StateInWords(NodeState state) {
  switch (state) {
    case NodeState::Passed:
      return u"✔ 已通过"_s;
    case NodeState::Current:
      return u"▶ 进行中"_s;
    case NodeState::Ahead:
      return u"○ 未到达"_s;
  }
  return {};
}

// The details that were sent to the members of a node, in words.
QString ResultsOf(const FlowSheets& sheets, const QString& members) {
  const Recordset& details = sheets.Details();
  QStringList results;
  for (qint64 row = 1; row <= details.RecordCount(); ++row) {
    const auto text = [&](const QString& field) { return details.TextAt(row, details.Fields().IndexOf(field)); };
    const auto with = [](const QString& date, const QString& word) { return date.isEmpty() ? date : date + word; };
    if (text(u"Lead_Unit"_s) != members) continue;
    QStringList parts{with(text(sheets.Kind().detailDate), u" 送出"_s)};
    if (sheets.Kind().isHandling) parts << text(u"Transact_Result"_s);
    parts << with(text(u"Real_BackDate"_s), u" 返回"_s);
    parts.removeAll(QString());
    results << parts.join(u'，');
  }
  return results.join(u'；');
}

bool Concerns(const RouteNode& node, const QString& user) {
  if (user.isEmpty()) return true;
  const QStringList members = node.members.split(u',') + node.acted.split(u',');
  return members.contains(user) || members.contains(Shared().UserName);
}

}  // namespace

bool TakeOverRoute(const Flow& flow, const QString& headKey) {
  const StoredRoute before = ReadStoredRoute(headKey);
  const std::vector<OtherRoute> routes = ReadOtherRoutes(flow.headTable, headKey);
  ListDialog dialog(u"frmRouteChoice"_s, u"选择流程"_s, u"copyall"_s, {u"题名"_s, u"流程"_s});
  AddEmptyHint(*dialog.list_, u"其他处理单还没有流程。\n请用“编辑流程”为当前处理单设置一个。"_s);
  for (const OtherRoute& route : routes) dialog.AddRow({route.title, route.words});
  dialog.Fit();
  dialog.list_->setColumnWidth(0, std::min(dialog.list_->columnWidth(0), dialog.width() / 2));
  dialog.keys_->ok->setEnabled(!routes.empty());
  QObject::connect(dialog.list_, &QTreeWidget::itemDoubleClicked, &dialog, &QDialog::accept);
  ShowModal(dialog);
  const int chosen = dialog.list_->indexOfTopLevelItem(dialog.list_->currentItem());
  if (dialog.result() != QDialog::Accepted || chosen < 0) return false;
  ReplaceRoute(flow, headKey, before, ReadRoute(routes[size_t(chosen)].headKey));
  return true;
}

void ShowRouteProgress(const FlowSheets& sheets, const QString& ofUser) {
  const std::vector<RouteNode> nodes = ReadRoute(sheets.Key());
  const QString current = ReadCurrentNode(sheets.Key());
  const bool ended = sheets.Head(sheets.Kind().statusColumn) == sheets.Kind().ended;
  ListDialog dialog(u"frmNotion"_s, ofUser.isEmpty() ? u"意见信息"_s : u"个人意见"_s, u"lookfiles"_s,
                    {u"节点"_s, u"进展"_s, u"成员"_s, u"方式"_s, u"已办"_s, u"明细"_s});
  AddEmptyHint(*dialog.list_, ofUser.isEmpty() ? u"当前处理单没有流程。"_s : u"流程中没有您的节点。"_s);
  for (const RouteNode& node : nodes) {
    if (!Concerns(node, ofUser)) continue;
    const NodeState state = StateOfNode(nodes, node.number, current, ended);
    dialog.AddRow({node.number, StateInWords(state), node.members, node.mode,
                   state == NodeState::Passed ? node.members : node.acted, ResultsOf(sheets, node.members)});
  }
  dialog.Fit();
  dialog.keys_->cancel->hide();
  ShowModal(dialog);
}

bool EditRoute(const Flow& flow, const QString& headKey) {
  RouteEditor editor(flow, headKey);
  ShowModal(editor);
  return editor.result() == QDialog::Accepted;
}

}  // namespace folvane
