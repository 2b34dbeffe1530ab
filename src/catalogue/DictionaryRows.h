#pragma once

#include "catalogue/RowDescription.h"

// Dictionaries and codes.
namespace folvane {

/// AssistantDictionary: a dictionary.
struct DictionaryRow {
  QString dicId, name, classType, isSystem;

  static const RowColumns<DictionaryRow>& Columns();
  static Table Description();
};

/// AssistantDicKey: an entry of a dictionary; note is its sort key, keyCode its code in archive numbers.
struct DictionaryEntryRow {
  QString dicId, name, keyCode, isSystem, note;

  static const RowColumns<DictionaryEntryRow>& Columns();
  static Table Description();
};

/// FondsDefine: a fonds.
struct FondsRow {
  QString fondsNo, fondsName;

  static const RowColumns<FondsRow>& Columns();
  static Table Description();
};

/// EntityClass: an entity class of a fonds.
struct EntityClassRow {
  QString classNo, fondsNo, className;

  static const RowColumns<EntityClassRow>& Columns();
  static Table Description();
};

/// RetentionYear: a retention period and its code.
struct RetentionRow {
  QString name, code;

  static const RowColumns<RetentionRow>& Columns();
  static Table Description();
};

}  // namespace folvane
