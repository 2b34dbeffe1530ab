#include "entry/DictionaryWriteBack.h"

#include <QMap>
#include <QPair>
#include <QSet>

#include "base/KeyMaker.h"
#include "data/OneTransaction.h"
#include "data/Recordset.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kShownLetters = 20;  ///< of an entry that is told of

// The dictionaries as they were when it began, and what is to be added to them.
class WriteBack {
 public:
  explicit WriteBack(const QString& table) {
    design_.Open(u"Select FieldName,AuxiDictDetails From DynamicWindows Where TableName = '"_s + table + u"'"_s,
                 SharedConnection());
    dictionaries_.Open(u"Select Name,DicID From AssistantDictionary"_s, SharedConnection());
    entries_.Open(u"Select DicID,Name From AssistantDicKey"_s, SharedConnection());
  }

  void Gather(const ComboEntries& combo) {
    design_.SetFilter(u"FieldName = '"_s + EscapeSql(combo.dataField) + u"'"_s);
    if (design_.EOF_()) return;  // the field was taken out of the design meanwhile
    const QString id = Dictionary(design_[u"AuxiDictDetails"_s].Text());
    for (const QString& entry : combo.entries) {
      if (!HasEntry(id, entry)) AddEntry(id, entry);
    }
  }

  // All or nothing: a dictionary without the entries that it was made for would be of no use. Entries that are too long
  // for it do not keep the others out.
  void Write() {
    if (additions_.empty()) return;
    try {
      InOneTransaction(*SharedConnection(), [this] {
        for (const Addition& addition : additions_) SharedConnection()->Execute(addition.statement);
      });
    } catch (const DataError& error) {
      if (error.Kind() != DataErrorKind::TooLong) throw;
      WriteSingly();
    }
  }

 private:
  struct Addition {
    QString statement;
    QString entry;  ///< "" where it makes a dictionary
  };

  /// @throws DataError TooLong that tells the entries which were left out
  void WriteSingly() {
    QStringList left;
    for (const Addition& addition : additions_) {
      try {
        SharedConnection()->Execute(addition.statement);
      } catch (const DataError& error) {
        if (error.Kind() != DataErrorKind::TooLong || addition.entry.isEmpty()) throw;
        left << addition.entry.left(kShownLetters) + u'…';
      }
    }
    throw DataError(DataErrorKind::TooLong, u"下列内容过长，未能加入字典：\n"_s + left.join(u'\n'));
  }

  QString Dictionary(const QString& name) {
    dictionaries_.SetFilter(u"Name = '"_s + EscapeSql(name) + u"'"_s);
    if (!dictionaries_.EOF_()) return dictionaries_[u"DicID"_s].Text();
    if (!made_.contains(name)) made_.insert(name, MakeDictionary(name));
    return made_.value(name);
  }

  QString MakeDictionary(const QString& name) {
    const QString id = CreateName();
    additions_.push_back({u"Insert Into AssistantDictionary(DicID,Name,ClassType,IsSystem) Values('"_s + id + u"','"_s +
                              EscapeSql(name) + u"','2 - 字符型','0')"_s,
                          {}});
    return id;
  }

  bool HasEntry(const QString& id, const QString& entry) {
    if (added_.contains({id, entry})) return true;
    entries_.SetFilter(u"Name = '"_s + EscapeSql(entry) + u"' And DicID = '"_s + id + u"'"_s);
    return !entries_.EOF_();
  }

  void AddEntry(const QString& id, const QString& entry) {
    additions_.push_back({u"Insert Into AssistantDicKey(DicID,Name,IsSystem) Values('"_s + id + u"','"_s +
                              EscapeSql(entry) + u"','0')"_s,
                          entry});
    added_.insert({id, entry});
  }

  Recordset design_, dictionaries_, entries_;
  std::vector<Addition> additions_;
  QMap<QString, QString> made_;
  QSet<QPair<QString, QString>> added_;
};

}  // namespace

void WriteBackDictionaries(const QString& table, const std::vector<ComboEntries>& combos) {
  if (combos.empty()) return;
  WriteBack writeBack(table);
  for (const ComboEntries& combo : combos) writeBack.Gather(combo);
  writeBack.Write();
}

}  // namespace folvane
