#include "host/CommandLine.h"

#include <QCommandLineParser>
#include <cstdio>
#include <cstdlib>

namespace folvane::host {
namespace {

[[noreturn]] void Refuse(const QString& why) {
  std::fprintf(stderr, "folvane-demo: %s\n", qPrintable(why));
  std::exit(2);
}

int Number(const QString& text, int fallback) {
  if (text.isEmpty()) return fallback;
  bool isNumber = false;
  const int number = text.toInt(&isNumber);
  if (!isNumber) Refuse(QStringLiteral("--records 需要一个整数，而不是“%1”").arg(text));
  return number;
}

}  // namespace

Options ReadCommandLine(const QStringList& arguments) {
  const QCommandLineOption database(QStringLiteral("database"), QStringLiteral("打开这个 SQLite 数据库文件。"),
                                    QStringLiteral("PATH"));
  const QCommandLineOption odbc(QStringLiteral("odbc"), QStringLiteral("按这个 ODBC 连接串连接数据库。"),
                                QStringLiteral("STR"));
  const QCommandLineOption user(QStringLiteral("user"),
                                QStringLiteral("登录用户号；同时给出数据库时不再显示登录窗口。"), QStringLiteral("ID"));
  const QCommandLineOption kind(QStringLiteral("kind"),
                                QStringLiteral("数据库种类：\"SQL SERVER\"、\"SYSBASE\" 或 LOCAL（本地目录）。"),
                                QStringLiteral("K"));
  const QCommandLineOption makeDemo(QStringLiteral("make-demo"),
                                    QStringLiteral("没有演示数据库时先建立它，然后用它登录。"));
  const QCommandLineOption records(QStringLiteral("records"),
                                   QStringLiteral("演示数据库中各表记录的总数，从 100 到 1000000。"),
                                   QStringLiteral("N"));
  const QCommandLineOption tour(QStringLiteral("tour"),
                                QStringLiteral("自动演示一遍，把每一步的画面存入 DIR；有一步不对时以非零值结束。"),
                                QStringLiteral("DIR"));
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("公文登记归档系统演示程序"));
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addOptions({database, odbc, user, kind, makeDemo, records, tour});
  parser.process(arguments);
  if (!parser.positionalArguments().isEmpty())
    Refuse(QStringLiteral("不认识的参数“%1”").arg(parser.positionalArguments().first()));
  if (parser.isSet(database) + parser.isSet(odbc) + parser.isSet(makeDemo) > 1)
    Refuse(QStringLiteral("--database、--odbc 和 --make-demo 只能给出一个"));

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
