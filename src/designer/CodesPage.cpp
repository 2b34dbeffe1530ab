#include "designer/CodesPage.h"

#include <QSplitter>
#include <QVBoxLayout>

#include "designer/DesignGrid.h"
#include "designer/ThingModel.h"
#include "widgets/KeptSizes.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

using Fonds = Design::Fonds;
using EntityClass = Design::EntityClass;
using Retention = Design::Retention;

const QString kCodeSizes = u"FrmDesigner.CodesPage"_s;

// A thing with the first key that none of the list has; `make` makes one of a number.
template <class Thing, class Make>
Thing FreeThing(const std::vector<Thing>& things, const Make& make) {
  for (int number = 1;; ++number)
    if (Thing thing = make(number); !design::FindSame(things, thing)) return thing;
}

QString NotEmpty(const QVariant& value, const QString& what) {
  const QString text = value.toString().trimmed();
  if (text.isEmpty()) throw DataError(DataErrorKind::Usage, u"没有填写%1。"_s.arg(what));
  return text;
}

// A column of a text that everything else knows the thing by.
template <class Thing>
ThingColumn<Thing> KeyColumn(QString Thing::*member, int width) {
  ThingColumn<Thing> column = ColumnOf(member, width);
  column.write = [member, title = column.look.title](Design&, Thing& thing, const QVariant& value) {
    thing.*member = NotEmpty(value, title);
  };
  return column;
}

QStringList FondsNumbers(const Design& design) {
  QStringList numbers;
  for (const Fonds& fonds : design.fonds) numbers << fonds.number;
  return numbers;
}

void RenumberFonds(Design& wanted, Fonds& fonds, const QVariant& value) {
  const QString from = fonds.number, to = NotEmpty(value, u"全宗号"_s);
  if (const Fonds* other = design::FindNamed(wanted.fonds, to); other && other != &fonds)
    throw DataError(DataErrorKind::Usage, u"已有全宗“%1”。"_s.arg(to));
  fonds.number = to;
  for (EntityClass& each : wanted.entityClasses)
    if (design::IsSame(each.fonds, from)) each.fonds = to;
}

}  // namespace

CodesPage::CodesPage(DesignSession& session)
    : DesignPage(session, u"CodesPage"_s), below_(new QSplitter(Qt::Vertical)) {
  fonds_ = new DesignGrid(NewFonds(), u"GrdFonds"_s, u"全宗(&Q)"_s, u"还没有全宗。\n按 Ins 增加一个。"_s, this);
  classes_ = new DesignGrid(NewClasses(), u"GrdEntityClasses"_s, u"实体分类(&C)"_s,
                            u"还没有实体分类。\n按 Ins 增加一个，或粘贴从电子表格复制的分类。"_s, this);
  retentions_ = new DesignGrid(NewRetentions(), u"GrdRetentions"_s, u"保管期限(&T)"_s,
                               u"还没有保管期限。\n按 Ins 增加一个。"_s, this);
  below_->setObjectName(u"SplCodes"_s);
  below_->setChildrenCollapsible(false);
  for (DesignGrid* grid : {fonds_, classes_, retentions_}) below_->addWidget(grid);
  RestoreSizes(*below_, kCodeSizes, {180, 260, 180});
  auto* down = new QVBoxLayout(this);
  down->addWidget(below_, 1);
  down->addWidget(NewHint(u"全宗号和分类号在录入界面中选取；全宗改号时，它的实体分类随之更改。"_s, this));
  setFocusProxy(fonds_);
}

CodesPage::~CodesPage() { KeepSizes(*below_, kCodeSizes); }

void CodesPage::Refresh() {
  for (DesignGrid* grid : {fonds_, classes_, retentions_}) grid->Refresh();
}

GridModel* CodesPage::NewFonds() {
  ThingRules<Fonds> rules;
  rules.locate = [](const Design& design) { return &design.fonds; };
  rules.fresh = [](const Design& design) {
    return FreeThing(design.fonds, [](int number) { return Fonds{u"%1"_s.arg(number, 4, 10, QChar(u'0')), {}}; });
  };
  rules.remove = [this](Design& wanted, const Fonds& fonds) {
    std::erase(wanted.fonds, fonds);
    const auto gone = std::erase_if(wanted.entityClasses,
                                    [&](const EntityClass& each) { return design::IsSame(each.fonds, fonds.number); });
    if (gone > 0) Q_EMIT Session().Told(u"全宗“%1”和它的 %2 个实体分类已删去。"_s.arg(fonds.number).arg(gone));
  };
  auto number = ColumnOf(&Fonds::number, 14);
  number.write = RenumberFonds;
  return new ThingModel<Fonds>(Session(), rules, {number, ColumnOf(&Fonds::name, 40)}, this);
}

GridModel* CodesPage::NewClasses() {
  ThingRules<EntityClass> rules;
  rules.locate = [](const Design& design) { return &design.entityClasses; };
  rules.fresh = [](const Design& design) {
    if (design.fonds.empty()) throw DataError(DataErrorKind::Usage, u"请先增加全宗。"_s);
    const QString fonds =
        design.entityClasses.empty() ? design.fonds.front().number : design.entityClasses.back().fonds;
    return FreeThing(design.entityClasses, [&](int number) {
      return EntityClass{fonds, u"%1"_s.arg(number, 2, 10, QChar(u'0')), {}};
    });
  };
  auto fonds = ChoiceOf(&EntityClass::fonds, 14, [this](int) { return FondsNumbers(Session().Wanted()); });
  fonds.write = [](Design& wanted, EntityClass& each, const QVariant& value) {
    const Fonds* found = design::FindNamed(wanted.fonds, value.toString().trimmed());
    if (!found) throw DataError(DataErrorKind::Usage, u"没有全宗“%1”。"_s.arg(value.toString()));
    each.fonds = found->number;
  };
  return new ThingModel<EntityClass>(
      Session(), rules, {fonds, KeyColumn(&EntityClass::number, 14), ColumnOf(&EntityClass::name, 40)}, this);
}

GridModel* CodesPage::NewRetentions() {
  ThingRules<Retention> rules;
  rules.locate = [](const Design& design) { return &design.retentions; };
  rules.fresh = [](const Design& design) {
    return FreeThing(design.retentions, [](int number) { return Retention{u"%1年"_s.arg(number * 10), {}}; });
  };
  return new ThingModel<Retention>(Session(), rules, {KeyColumn(&Retention::name, 20), ColumnOf(&Retention::code, 14)},
                                   this);
}

}  // namespace folvane::designer
