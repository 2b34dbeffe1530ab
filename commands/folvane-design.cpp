// folvane-design check DATABASE|FILE [--reports FOLDER]
// folvane-design export DATABASE [FILE] [--table NAME]...
// folvane-design import DATABASE FILE [--table NAME]... [--whole] [--keep | --lose] [--dry-run]
// folvane-design diff FROM TO              each a database or a file
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <cstdio>
#include <memory>
#include <optional>
#include <sqlite3.h>

#include <folvane/DataError.h>
#include <folvane/Design.h>
#include <folvane/OdbcConnection.h>
#include <folvane/SqliteConnection.h>
#include <folvane/Version.h>

#include "base/FileUpdate.h"
#include "host/demo/OdbcHandle.h"

namespace {

using namespace folvane;
using namespace Qt::Literals::StringLiterals;

enum Outcome { Done = 0, Findings = 1, Differences = 1, WrongUsage = 2, Failed = 3, Unanswered = 4 };

constexpr char kUsage[] =
    "用法：folvane-design check 数据库或文件 [--reports 文件夹]   检查设计\n"
    "      folvane-design export 数据库 [文件] [--table 表]...    把设计写成文件\n"
    "      folvane-design import 数据库 文件 [--table 表]... [--whole] [--keep | --lose] [--dry-run]\n"
    "                                                           按文件修改数据库的设计\n"
    "      folvane-design diff 甲 乙                            从甲到乙有哪些不同\n"
    "      folvane-design --help | --version\n"
    "数据库是 SQLite 文件，或 odbc: 加连接字符串；以 .yaml 或 .yml 结尾的是设计文件。\n";

int TellUsage() {
  std::fputs(kUsage, stderr);
  return WrongUsage;
}

void Print(const QString& line) { std::printf("%s\n", line.toUtf8().constData()); }

/// A connection together with the handle that it stands on.
class Database {
 public:
  enum class Missing { Fail, Make };

  /// @throws DataError
  Database(const QString& name, Missing missing) {
    if (name.startsWith(u"odbc:"_s))
      OpenOdbc(name.mid(5));
    else
      OpenSqlite(name, missing);
  }
  // A file that was made for nothing goes again.
  ~Database() {
    connection_.reset();
    sqlite3_close_v2(file_);
    if (!made_.isEmpty()) QFile::remove(made_);
  }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  Connection& Get() { return *connection_; }
  void KeepFile() { made_.clear(); }

 private:
  void OpenOdbc(const QString& text) {
    server_.emplace(text);
    if (!server_->Connected())
      throw DataError(DataErrorKind::Lost,
                      u"无法连接数据库：%1"_s.arg(demo::Diagnosis(SQL_HANDLE_DBC, server_->Get())));
    connection_ = AdoptOdbc(server_->Get());
  }

  void OpenSqlite(const QString& name, Missing missing) {
    const bool isThere = QFileInfo::exists(name);
    if (!isThere && missing == Missing::Fail)
      throw DataError(DataErrorKind::File, u"数据库文件“%1”不存在。"_s.arg(name));
    const int flags = SQLITE_OPEN_READWRITE | (isThere ? 0 : SQLITE_OPEN_CREATE);
    if (sqlite3_open_v2(QFile::encodeName(name).constData(), &file_, flags, nullptr) != SQLITE_OK)
      throw DataError(DataErrorKind::File,
                      u"无法打开数据库文件“%1”：%2"_s.arg(name, QString::fromUtf8(sqlite3_errmsg(file_))));
    if (!isThere) made_ = name;
    connection_ = AdoptSqlite(file_);
  }

  sqlite3* file_ = nullptr;
  QString made_;
  std::optional<demo::OdbcHandle> server_;
  std::shared_ptr<Connection> connection_;
};

/// What stands behind the names of a command.
struct Options {
  QStringList names, tables;
  bool isWhole = false, isDry = false;
  std::optional<LossAnswer> answer;
  QString reports;

  bool HasAnswers() const { return isWhole || isDry || answer; }
};

// Nothing where an option is unknown or contradicts another.
std::optional<Options> OptionsOf(const QStringList& arguments) {
  Options options;
  for (qsizetype at = 0; at < arguments.size(); ++at) {
    const QString& argument = arguments[at];
    if (!argument.startsWith(u"--"_s))
      options.names << argument;
    else if (argument == u"--table" && at + 1 < arguments.size())
      options.tables << arguments[++at];
    else if (argument == u"--reports" && at + 1 < arguments.size())
      options.reports = arguments[++at];
    else if (argument == u"--whole")
      options.isWhole = true;
    else if (argument == u"--dry-run")
      options.isDry = true;
    else if ((argument == u"--keep" || argument == u"--lose") && !options.answer)
      options.answer = argument == u"--keep" ? LossAnswer::Keep : LossAnswer::Lose;
    else
      return std::nullopt;
  }
  return options;
}

bool IsDesignFile(const QString& name) {
  return !name.startsWith(u"odbc:"_s) && (name.endsWith(u".yaml"_s) || name.endsWith(u".yml"_s));
}

Design DesignIn(const QString& name) {
  if (!IsDesignFile(name)) return ReadDesign(Database(name, Database::Missing::Fail).Get());
  if (!QFileInfo::exists(name)) throw FileError(u"设计文件“%1”不存在。"_s.arg(name));
  return ParseDesign(ReadFile(name));
}

Design PartOf(const Design& design, const QStringList& tables) {
  return tables.isEmpty() ? design : ExcerptOf(design, tables);
}

int Export(const Options& options) {
  const QByteArray text = DesignText(PartOf(DesignIn(options.names[0]), options.tables));
  if (options.names.size() == 2) {
    ReplaceFile(options.names[1], [&](QIODevice& file) { file.write(text); });
  } else if (std::fwrite(text.constData(), 1, std::size_t(text.size()), stdout) != std::size_t(text.size()) ||
             std::fflush(stdout) != 0) {
    throw FileError(u"无法写到标准输出。"_s);
  }
  return Done;
}

int Import(const Options& options) {
  const Design given = PartOf(DesignIn(options.names[1]), options.tables);
  Database database(options.names[0], options.isDry ? Database::Missing::Fail : Database::Missing::Make);
  const Design base = ReadDesign(database.Get());
  QStringList told;
  const DesignPlan plan = PlanDesign(database.Get(), base, options.isWhole ? given : Joined(base, given, &told));
  for (const QString& line : told) Print(line);
  for (const DesignChange& change : plan.changes) Print(change.where + u"："_s + change.what);
  if (options.isDry)
    for (const QString& statement : plan.statements) Print(statement);
  for (const DesignLoss& loss : plan.losses) Print(loss.words);
  if (options.isDry) return Done;
  if (!plan.losses.empty() && !options.answer) {
    std::fputs("folvane-design: 没有修改。用 --lose 删除上述内容，或用 --keep 保留原来的列和表。\n", stderr);
    return Unanswered;
  }
  ApplyDesign(database.Get(), plan,
              std::vector<LossAnswer>(plan.losses.size(), options.answer.value_or(LossAnswer::Keep)));
  database.KeepFile();
  return Done;
}

QString WordOf(DesignFinding::Weight weight) {
  if (weight == DesignFinding::Weight::Error) return u"错误"_s;
  return weight == DesignFinding::Weight::Warning ? u"警告"_s : u"提示"_s;
}

std::vector<DesignFinding> FindingsOf(const Options& options) {
  const QString& name = options.names[0];
  if (IsDesignFile(name)) return CheckDesign(DesignIn(name), nullptr, options.reports);
  Database database(name, Database::Missing::Fail);
  return CheckDesign(ReadDesign(database.Get()), &database.Get(), options.reports);
}

int Check(const Options& options) {
  bool isClean = true;
  for (const DesignFinding& finding : FindingsOf(options)) {
    isClean = isClean && finding.weight == DesignFinding::Weight::Note;
    Print(u"%1 %2：%3。%4。%5。"_s.arg(WordOf(finding.weight), finding.where, finding.what, finding.consequence,
                                       finding.remedy));
  }
  return isClean ? Done : Findings;
}

int Diff(const Options& options) {
  const std::vector<DesignChange> changes = CompareDesigns(DesignIn(options.names[0]), DesignIn(options.names[1]));
  for (const DesignChange& change : changes) Print(change.where + u"："_s + change.what);
  return changes.empty() ? Done : Differences;
}

int Run(const QString& command, const Options& options) {
  const qsizetype names = options.names.size();
  const bool isPlain = !options.HasAnswers() && options.tables.isEmpty();
  if (command == u"check" && names == 1 && isPlain) return Check(options);
  if (!options.reports.isEmpty()) return TellUsage();
  if (command == u"export" && (names == 1 || names == 2) && !options.HasAnswers()) return Export(options);
  if (command == u"import" && names == 2 && IsDesignFile(options.names[1])) {
    if (!(options.isWhole && !options.tables.isEmpty())) return Import(options);
  }
  if (command == u"diff" && names == 2 && isPlain) return Diff(options);
  return TellUsage();
}

}  // namespace

int main(int argc, char** argv) {
  QStringList arguments;
  for (int i = 1; i < argc; ++i) arguments << QFile::decodeName(argv[i]);
  const QString command = arguments.isEmpty() ? QString() : arguments.takeFirst();
  if (command == u"--help"_s) return std::fputs(kUsage, stdout) < 0 ? Failed : Done;
  if (command == u"--version"_s) return std::printf("folvane-design %s\n", qPrintable(Version())) < 0 ? Failed : Done;
  const std::optional<Options> options = OptionsOf(arguments);
  if (!options) return TellUsage();
  try {
    return Run(command, *options);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "folvane-design: %s\n", error.what());
    return Failed;
  }
}
