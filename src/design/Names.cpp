#include "design/Names.h"

#include <QSet>

#include "base/CodePage.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kMostColumnBytes = 50;  ///< of the national code page, as the design tables hold them

// Words that one of the databases, or the language of the statements, keeps for itself.
const char* const kReserved =
    "abort absolute access action add after all alter always analyse analyze and any array as asc asymmetric attach "
    "authorization autoincrement backup before begin between binary both bottom break browse bulk by cascade case cast "
    "check checkpoint close clustered coalesce collate collation column commit compute concurrently conflict "
    "constraint "
    "contains containstable continue convert create cross current current_catalog current_date current_role "
    "current_schema current_time current_timestamp current_user cursor database dbcc deallocate declare default "
    "deferrable deferred delete deny desc detach disk distinct distributed do double drop dummy dump each else end "
    "errlvl escape except exclude exclusive exec execute exists exit explain external fail false fetch file fillfactor "
    "filter first following for foreign freetext freetexttable freeze from full function generated glob goto grant "
    "group "
    "groups having holdlock identity identity_insert identitycol if ignore ilike immediate in index indexed initially "
    "inner insert instead intersect into is isnull isolation join key kill last lateral leading left like limit lineno "
    "load localtime localtimestamp match materialized merge national natural no nocheck nonclustered not nothing "
    "notnull "
    "null nullif nulls of off offset offsets on only open opendatasource openquery openrowset openxml option or order "
    "others outer over overlaps partition percent pivot placing plan pragma preceding precision primary print proc "
    "procedure public query raise raiserror range read readtext reconfigure recursive references regexp reindex "
    "release "
    "rename replace replication restore restrict return returning revert revoke right rollback row rowcount rowguidcol "
    "rows rule save savepoint schema securityaudit select semantickeyphrasetable session_user set setuser shutdown "
    "similar some statistics symmetric system_user table tablesample temp temporary textsize then ties to top trailing "
    "tran transaction trigger true truncate try_convert tsequal unbounded union unique unpivot update updatetext use "
    "user using vacuum values variadic varying verbose view virtual waitfor when where while window with within "
    "without "
    "writetext ctid cmax cmin oid tableoid xmax xmin rowid";

const QSet<QString>& ReservedWords() {
  static const QSet<QString> words = [] {
    const QStringList list = QString::fromLatin1(kReserved).split(u' ');
    return QSet<QString>(list.begin(), list.end());
  }();
  return words;
}

bool IsLetter(QChar c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' ||
         (c.script() == QChar::Script_Han && c.isLetter());
}

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

}  // namespace

QString NameComplaint(const QString& name) {
  if (name.isEmpty()) return u"没有填写名称"_s;
  if (!IsLetter(name[0])) return u"名称“%1”不是以字母或汉字开头"_s.arg(name.left(60));
  for (const QChar c : name)
    if (!IsLetter(c) && !IsDigit(c))
      return u"名称“%1”中的“%2”不能用：只能用字母、汉字、数字和下划线"_s.arg(name.left(60), QString(c));
  if (ByteLength(name) > kMostColumnBytes || name.toUtf8().size() > kMostServerBytes)
    return u"名称“%1…”太长：最多 50 个字母，或 21 个汉字"_s.arg(name.left(20));
  if (ReservedWords().contains(name.toLower())) return u"名称“%1”是数据库的保留字"_s.arg(name);
  if (name.startsWith(u"sqlite_"_s, Qt::CaseInsensitive) || name.startsWith(u"pg_"_s, Qt::CaseInsensitive))
    return u"名称“%1”的开头是数据库留用的"_s.arg(name);
  return {};
}

QString TextLiteral(const QString& text) { return u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\''; }

}  // namespace folvane::design
