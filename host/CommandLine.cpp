#include "host/CommandLine.h"

#include <QCommandLineParser>
#include <cstdio>
#include <cstdlib>

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

[[noreturn]] void Refuse(const QString& why) {
  std::fprintf(stderr, "folvane-demo: %s\n", qPrintable(why));
  std::exit(2);
}

int Number(const QString& text, int fallback) {
  if (text.isEmpty()) return fallback;
  bool isNumber = false;
  const int number = text.toInt(&isNumber);
  if (!isNumber) Refuse(u"--records 需要一个整数，而不是“%1”"_s.arg(text));
  return number;
}

}  // namespace

Options ReadCommandLine(const QStringList& arguments) {
  const QCommandLineOption database(u"database"_s, u"打开这个 SQLite 数据库文件。"_s, u"PATH"_s);
  const QCommandLineOption odbc(u"odbc"_s, u"按这个 ODBC 连接串连接数据库。"_s, u"STR"_s);
  const QCommandLineOption user(u"user"_s, u"登录用户号；同时给出数据库时不再显示登录窗口。"_s, u"ID"_s);
  const QCommandLineOption kind(u"kind"_s, u"数据库种类：\"SQL SERVER\"、\"SYSBASE\" 或 LOCAL（本地目录）。"_s, u"K"_s);
  const QCommandLineOption makeDemo(u"make-demo"_s, u"没有演示数据库时先建立它，然后用它登录。"_s);
  const QCommandLineOption records(u"records"_s, u"演示数据库中各表记录的总数，从 100 到 1000000。"_s, u"N"_s);
  const QCommandLineOption tour(u"tour"_s, u"自动演示一遍，把每一步的画面存入 DIR；有一步不对时以非零值结束。"_s,
                                u"DIR"_s);
  QCommandLineParser parser;
  parser.setApplicationDescription(u"公文登记归档系统演示程序"_s);
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addOptions({database, odbc, user, kind, makeDemo, records, tour});
  parser.process(arguments);
  if (!parser.positionalArguments().isEmpty()) Refuse(u"不认识的参数“%1”"_s.arg(parser.positionalArguments().first()));
  if (parser.isSet(database) + parser.isSet(odbc) + parser.isSet(makeDemo) > 1)
    Refuse(u"--database、--odbc 和 --make-demo 只能给出一个"_s);

  Options options;
  options.database = parser.value(database);
  options.odbc = parser.value(odbc);
  options.user = parser.value(user);
  options.kind = parser.value(kind);
  options.makeDemo = parser.isSet(makeDemo);
  options.records = Number(parser.value(records), options.records);
  options.tour = parser.value(tour);
  return options;
}

}  // namespace folvane::host
