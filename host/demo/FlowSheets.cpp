#include "host/demo/FlowSheets.h"

#include <algorithm>

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

const QStringList kHeadColumns{u"Register_ID"_s, u"File_ID"_s,        u"File_Table"_s,    u"Doc_No"_s,
                               u"MainTitle"_s,   u"Quantity"_s,       u"ResponsibleBy"_s, u"Create_Date"_s,
                               u"RegID"_s,       u"Security_Class"_s, u"File_Unit"_s,     u"Note"_s};

QStringList With(QStringList columns, const QStringList& more) { return columns << more; }

}  // namespace

FlowSheets::FlowSheets(Connection& connection, const Words& words, QDate today, Random& random)
    : words_(words),
      today_(today),
      random_(random),
      ofIncoming_(KeyKind::SheetOfIncoming, random),
      ofOutgoing_(KeyKind::SheetOfOutgoing, random),
      distributions_(connection, u"Distribute_File"_s,
                     With(kHeadColumns, {u"Distribute_Status"_s, u"Distribute_ID"_s, u"Distribute_Range"_s})),
      circulations_(connection, u"PassRead_File"_s,
                    With(kHeadColumns, {u"PassRead_Status"_s, u"PassRead_ID"_s, u"PassRead_Range"_s, u"UserID"_s})),
      handlings_(connection, u"Transact_File"_s,
                 With(kHeadColumns, {u"Transact_Status"_s, u"Transact_ID"_s, u"UserID"_s})),
      distributionLines_(connection, u"Distribute_Details"_s,
                         {u"Register_ID"_s, u"File_ID"_s, u"Lead_Unit"_s, u"Distribute_Date"_s, u"Quantity"_s,
                          u"Is_Back"_s, u"Back_Date"_s, u"Real_BackDate"_s, u"Back_Quantity"_s}),
      circulationLines_(connection, u"PassRead_Details"_s,
                        {u"Register_ID"_s, u"File_ID"_s, u"Lead_Unit"_s, u"PassRead_Date"_s, u"Is_Back"_s,
                         u"Back_Date"_s, u"Real_BackDate"_s}),
      handlingLines_(
          connection, u"Transact_Details"_s,
          {u"Register_ID"_s, u"File_ID"_s, u"Lead_Unit"_s, u"Send_Date"_s, u"Quantity"_s, u"Transact_Mode"_s,
           u"Is_Back"_s, u"Back_Date"_s, u"Real_BackDate"_s, u"Back_Quantity"_s, u"Transact_Result"_s, u"Is_Hasten"_s}),
      routes_(connection, u"Curr_Flow"_s, {u"File_ID"_s, u"CurrNode"_s, u"IsCreateDetails"_s}),
      nodes_(connection, u"Curr_FlowNode"_s,
             {u"Flow_ID"_s, u"Node_Number"_s, u"Next_Node"_s, u"Node_Member"_s, u"Node_Mode"_s, u"Readed"_s}) {}

FlowStates FlowSheets::ForIncoming(const Letter& letter, int regId) {
  const Head head{letter, regId};
  FlowStates states{u"未分发"_s, u"未传阅"_s, u"未处理"_s};
  if (random_.Chance(45)) states.dispense = Distribute(head);
  if (random_.Chance(40)) states.read = Circulate(head);
  if (random_.Chance(40)) states.handle = Handle(head);
  return states;
}

QString FlowSheets::ForOutgoing(const Letter& letter, int regId) {
  return random_.Chance(50) ? Distribute({letter, regId}) : u"未分发"_s;
}

FlowStates FlowSheets::LongDone() {
  return {random_.Chance(70) ? u"已分发"_s : u"未分发"_s, random_.Chance(75) ? u"已传阅"_s : u"未传阅"_s,
          random_.Chance(90) ? u"已处理"_s : u"未处理"_s};
}

std::vector<QVariant> FlowSheets::HeadValues(const Head& head, const QString& registerId, const QString& status) {
  const Letter& letter = head.letter;
  return {registerId,
          letter.key,
          letter.outgoing ? u"Fwdj"_s : u"Lwdj"_s,
          letter.docNo,
          letter.title,
          QString::number(letter.copies),
          letter.author,
          DayText(letter.written),
          QString::number(head.regId),
          letter.security,
          letter.department,
          QVariant(),
          status,
          Keys(head).At(letter.registered)};
}

QVariant FlowSheets::DayAfter(const Head& head, int least, int most) {
  const QDate day = head.letter.registered.date().addDays(random_.Between(least, most));
  return day <= today_ ? QVariant(DayText(day)) : QVariant();
}

QString FlowSheets::Distribute(const Head& head) {
  const QString registerId = Keys(head).At(head.letter.registered);
  const int lines = random_.Chance(80) ? random_.Between(1, 4) : 0;
  const QString status = lines > 0 ? u"已分发"_s : u"未分发"_s;
  std::vector<QVariant> values = HeadValues(head, registerId, status);
  values.emplace_back(random_.Chance(50) ? u"市直有关单位"_s : u"各县（区）人民政府"_s);
  distributions_.Add(std::move(values));
  for (int serial = 1; serial <= lines; ++serial) {
    const bool back = random_.Chance(30);
    const qlonglong copies = random_.Between(1, 3);
    distributionLines_.Add({registerId, qlonglong(serial), random_.Pick(words_.List(u"分发单位"_s)),
                            DayAfter(head, 0, 2), copies, back ? u"是"_s : u"否"_s,
                            back ? QVariant(DayText(head.letter.registered.date().addDays(10))) : QVariant(),
                            back ? DayAfter(head, 5, 15) : QVariant(), back ? copies : qlonglong(0)});
  }
  return status;
}

QString FlowSheets::Circulate(const Head& head) {
  const QString registerId = Keys(head).At(head.letter.registered);
  const QString status = random_.Pick({u"未传阅"_s, u"已传阅"_s, u"传阅中"_s, u"已完成"_s});
  const int reached = status == u"传阅中"_s ? random_.Between(1, 2) : status == u"已完成"_s ? 3 : 0;
  std::vector<QVariant> values = HeadValues(head, registerId, status);
  values.push_back(random_.Chance(60) ? QVariant(u"市政府领导"_s) : QVariant());
  values.push_back(TextOrNull(AddRoute(registerId, reached)));
  circulations_.Add(std::move(values));
  const int lines = status == u"未传阅"_s ? 0 : random_.Between(1, 3);
  for (int serial = 1; serial <= lines; ++serial) {
    const bool back = random_.Chance(60);
    circulationLines_.Add({registerId, qlonglong(serial), random_.Pick(words_.List(u"审阅单位/领导"_s)),
                           DayAfter(head, 0, 3), back ? u"是"_s : u"否"_s,
                           back ? QVariant(DayText(head.letter.registered.date().addDays(7))) : QVariant(),
                           back ? DayAfter(head, 3, 9) : QVariant()});
  }
  return status == u"已传阅"_s || status == u"已完成"_s ? u"已传阅"_s : u"未传阅"_s;
}

QString FlowSheets::Handle(const Head& head) {
  const QString registerId = Keys(head).At(head.letter.registered);
  const QString status = random_.Pick({u"未处理"_s, u"已处理"_s, u"已处理"_s, u"处理中"_s, u"已完成"_s});
  const int reached = status == u"处理中"_s ? random_.Between(1, 2) : status == u"已完成"_s ? 3 : 0;
  std::vector<QVariant> values = HeadValues(head, registerId, status);
  values.push_back(TextOrNull(AddRoute(registerId, reached)));
  handlings_.Add(std::move(values));
  if (status != u"未处理"_s) AddHandlingLines(head, registerId);
  return status == u"已处理"_s || status == u"已完成"_s ? u"已处理"_s : u"未处理"_s;
}

void FlowSheets::AddHandlingLines(const Head& head, const QString& registerId) {
  const int lines = random_.Between(1, 3);
  for (int serial = 1; serial <= lines; ++serial) {
    const bool back = random_.Chance(50);
    handlingLines_.Add({registerId, qlonglong(serial), random_.Pick(words_.List(u"审阅单位/领导"_s)),
                        DayAfter(head, 0, 3), qlonglong(1), random_.Chance(50) ? u"主办"_s : u"协办"_s,
                        back ? u"是"_s : u"否"_s,
                        back ? QVariant(DayText(head.letter.registered.date().addDays(15))) : QVariant(),
                        back ? DayAfter(head, 8, 18) : QVariant(), qlonglong(back ? 1 : 0),
                        random_.Chance(60) ? QVariant(u"已按要求办结"_s) : QVariant(), u"0"_s});
  }
  // Reminders take the next numbers of the same row.
  if (random_.Chance(40)) AddReminder(head, registerId, lines + 1);
}

void FlowSheets::AddReminder(const Head& head, const QString& registerId, int serial) {
  handlingLines_.Add({registerId, qlonglong(serial), random_.Pick(words_.List(u"审阅单位/领导"_s)),
                      DayAfter(head, 6, 12), qlonglong(1), u"电话催办"_s, u"否"_s, QVariant(), QVariant(), qlonglong(0),
                      QVariant(u"答复近日办结"_s), u"1"_s});
}

// Three nodes: one leader, two in any order, and a last one that passes only for user 2. For some sheets that have not
// begun nobody has laid out a route yet.
QString FlowSheets::AddRoute(const QString& registerId, int reached) {
  if (reached == 0 && random_.Chance(25)) return {};
  const QStringList& leaders = words_.List(u"签发人"_s);
  const QStringList members{random_.Pick(leaders), leaders[0] + u',' + leaders[1], u"2"_s};
  const QStringList modes{u"单人审核"_s, u"多人顺序"_s, u"会签"_s};
  routes_.Add({registerId, reached == 0 ? QVariant() : QVariant(QString::number(std::min(reached, 3))),
               reached == 0 ? u"0"_s : u"1"_s});
  for (int node = 1; node <= 3; ++node) {
    const bool passed = node < reached;
    nodes_.Add({registerId, QString::number(node), QString::number(node == 3 ? 0 : node + 1), members[node - 1],
                modes[node - 1], passed ? QVariant(members[node - 1]) : QVariant()});
  }
  QString trail;
  for (int node = 0; node < reached; ++node) trail += u'-' + members[node];
  return trail;
}

void FlowSheets::Finish() {
  for (RowWriter* writer : {&distributions_, &circulations_, &handlings_, &distributionLines_, &circulationLines_,
                            &handlingLines_, &routes_, &nodes_})
    writer->Finish();
}

}  // namespace folvane::demo
