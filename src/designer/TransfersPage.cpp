#include "designer/TransfersPage.h"

#include <QAction>
#include <QSplitter>
#include <QVBoxLayout>

#include "design/DesignedTransfers.h"
#include "design/transfer/SetCheck.h"
#include "design/transfer/Suggestions.h"
#include "designer/DesignGrid.h"
#include "designer/Labels.h"
#include "shell/EventGuard.h"
#include "widgets/KeptSizes.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

using Map = Design::TransferMap;
using Link = Design::TransferLink;

const QString kTransferSizes = u"FrmDesigner.TransfersPage"_s;

// From a table of registered records into an archive, or else whatever pair there is not yet.
Map NextMap(const Design& design) {
  for (const bool isUsual : {true, false})
    for (const Design::Table& source : design.tables)
      for (const Design::Table& destination : design.tables) {
        if (&source == &destination || (isUsual && (source.kind != u"F" || destination.kind == u"F"))) continue;
        const Map map{source.name, destination.name, {}};
        if (!design::FindSame(design.transfers, map)) return map;
      }
  throw DataError(DataErrorKind::Usage, u"没有其他的表可以对应。"_s);
}

// The first field that no link names at that end, or else the first of all.
QString FreeField(const std::vector<Design::Field>& fields, const std::vector<Link>& links, QString Link::*end) {
  for (const Design::Field& field : fields) {
    const bool isLinked = std::any_of(links.begin(), links.end(),
                                      [&](const Link& link) { return design::IsSame(link.*end, field.name); });
    if (!isLinked) return field.name;
  }
  throw DataError(DataErrorKind::Usage, u"没有其他字段可以对应。"_s);
}

}  // namespace

TransfersPage::TransfersPage(DesignSession& session)
    : DesignPage(session, u"TransfersPage"_s),
      below_(new QSplitter(Qt::Vertical)),
      pair_(new QAction(u"按名称配对(&P)"_s, this)) {
  maps_ = new DesignGrid(NewMaps(), u"GrdTransfers"_s, u"归档对应(&G)"_s,
                         u"还没有归档对应，记录不能归档。\n按 Ins 增加一项。"_s, this);
  links_ = new DesignGrid(NewLinks(), u"GrdLinks"_s, u"字段对应(&L)"_s,
                          u"还没有字段对应。\n按“按名称配对”加入名称或标题相同的字段，或按 Ins 增加一行。"_s, this);
  pair_->setObjectName(u"GrdLinksPair"_s);
  pair_->setShortcut(QKeySequence(u"Ctrl+J"_s));
  pair_->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  pair_->setToolTip(u"把两表中名称或标题相同、还没有对应的字段配成对 (Ctrl+J)"_s);
  ConnectGuarded(pair_, &QAction::triggered, this, &TransfersPage::Pair);
  addAction(pair_);
  links_->AddKey(pair_);
  below_->setObjectName(u"SplTransfers"_s);
  below_->setChildrenCollapsible(false);
  below_->addWidget(maps_);
  below_->addWidget(links_);
  RestoreSizes(*below_, kTransferSizes, {200, 380});
  auto* down = new QVBoxLayout(this);
  down->addWidget(below_, 1);
  down->addWidget(NewHint(
      u"归档时，来源表记录的字段按这里的对应写入目标表。档号各段、档号和案卷号由归档时给出，不需要对应。"_s, this));
  setFocusProxy(maps_);
  ConnectGuarded(maps_, &DesignGrid::CurrentRowChanged, this, [this] {
    links_->Refresh();
    pair_->setEnabled(CurrentIn(Session().Wanted()) != nullptr);
  });
}

TransfersPage::~TransfersPage() { KeepSizes(*below_, kTransferSizes); }

void TransfersPage::Refresh() {
  checked_.reset();
  maps_->Refresh();
}

TransfersPage::Checked& TransfersPage::CheckedNow() const {
  const Design& wanted = Session().Wanted();
  if (!checked_ || checked_->design != &wanted)
    checked_.emplace(
        Checked{&wanted, design::SettingsOf(wanted), design::TablesOf(wanted, Session().Database().get())});
  return *checked_;
}

const Map* TransfersPage::CurrentIn(const Design& design) const {
  const int row = maps_->CurrentRow();
  return row >= 0 && std::size_t(row) < design.transfers.size() ? &design.transfers[std::size_t(row)] : nullptr;
}

const std::vector<Design::Field>& TransfersPage::FieldsAt(const Design& design, QString Map::*end) const {
  static const std::vector<Design::Field> kNone;
  const Map* map = CurrentIn(design);
  const Design::Table* table = map ? design::FindNamed(design.tables, map->*end) : nullptr;
  return table ? table->fields : kNone;
}

ThingColumn<Map> TransfersPage::TableColumn(QString Map::*end) {
  auto column = ChoiceOf(end, 26, [this](int) { return LabelsOf(Session().Wanted().tables); });
  column.read = [this, end](const Map& map) { return LabelFor(Session().Wanted().tables, map.*end); };
  column.write = [end](Design& wanted, Map& map, const QVariant& value) {
    map.*end = LabelledBy(wanted.tables, value.toString()).name;
  };
  return column;
}

GridModel* TransfersPage::NewMaps() {
  ThingRules<Map> rules;
  rules.locate = [](const Design& design) { return &design.transfers; };
  rules.fresh = NextMap;
  ThingColumn<Map> complaint;
  complaint.look = {u"提示"_s, GridColumn::Kind::Text, 40, {}, u"这一项有什么不妥"_s};
  complaint.read = [this](const Map& map) {
    Checked& now = CheckedNow();
    const auto at = std::size_t(&map - now.design->transfers.data());
    return transfer::TextOf(transfer::CheckSet(now.settings, at, now.tables));
  };
  return new ThingModel<Map>(Session(), rules, {TableColumn(&Map::source), TableColumn(&Map::destination), complaint},
                             this);
}

ThingColumn<Link> TransfersPage::FieldColumn(QString Link::*end, QString Map::*table) {
  auto column = ChoiceOf(end, 22, [this, table](int) { return LabelsOf(FieldsAt(Session().Wanted(), table)); });
  column.read = [this, end, table](const Link& link) {
    return LabelFor(FieldsAt(Session().Wanted(), table), link.*end);
  };
  column.write = [this, end, table](Design& wanted, Link& link, const QVariant& value) {
    const Design::Field& field = LabelledBy(FieldsAt(wanted, table), value.toString());
    link.*end = field.name;
    if (end == &Link::source) link.caption = field.caption;
  };
  return column;
}

GridModel* TransfersPage::NewLinks() {
  ThingRules<Link> rules;
  rules.locate = [this](const Design& design) -> const std::vector<Link>* {
    const Map* map = CurrentIn(design);
    return map ? &map->links : nullptr;
  };
  rules.fresh = [this](const Design& design) {
    const std::vector<Link>& links = CurrentIn(design)->links;
    const QString source = FreeField(FieldsAt(design, &Map::source), links, &Link::source);
    const QString destination = FreeField(FieldsAt(design, &Map::destination), links, &Link::destination);
    return Link{source, destination, design::FindNamed(FieldsAt(design, &Map::source), source)->caption};
  };
  ThingColumn<Link> fate;
  fate.look = {u"归档时"_s, GridColumn::Kind::Text, 40, {}, u"值在归档时会怎样：转换、截短或不能写入"_s};
  fate.read = [this](const Link& link) { return FateOf(link); };
  return new ThingModel<Link>(
      Session(), rules,
      {FieldColumn(&Link::source, &Map::source), FieldColumn(&Link::destination, &Map::destination), fate}, this);
}

QString TransfersPage::FateOf(const Link& link) const {
  Checked& now = CheckedNow();
  const Map* map = CurrentIn(*now.design);
  if (!map) return {};
  const auto set = std::size_t(map - now.design->transfers.data()), at = std::size_t(&link - map->links.data());
  const QString findings = transfer::TextOf(transfer::CheckLink(now.settings, now.settings.sets[set], at, now.tables));
  return findings.isEmpty() ? u"原样写入"_s : findings;
}

void TransfersPage::Pair() {
  Checked& now = CheckedNow();
  const Map* map = CurrentIn(*now.design);
  if (!map) return;
  const auto set = std::size_t(map - now.design->transfers.data());
  const auto suggested = transfer::SuggestLinks(now.settings, now.settings.sets[set], now.tables);
  if (suggested.empty()) {
    Q_EMIT Session().Told(u"没有名称或标题相同、还没有对应的字段。"_s);
    return;
  }
  Session().Change(u"按名称配对"_s, [&](Design& changed) {
    std::vector<Link>& links = design::FindSame(changed.transfers, *map)->links;
    for (const transfer::Suggestion& each : suggested)
      links.push_back({each.link.source, each.link.destination, each.link.caption});
  });
  Q_EMIT Session().Told(u"加入了 %1 行字段对应。"_s.arg(suggested.size()));
}

}  // namespace folvane::designer
