#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

#include <folvane/Connection.h>
#include <folvane/Export.h>

// The design of a database as a value: which classes, tables and fields there are, and what windows make of them. It is
// read from the design tables, checked, compared, kept in a file, and applied. docs/designs.md tells of the file.
namespace folvane {

/// A design. Names of tables, fields and dictionaries are compared without regard to case, and texts have no blanks at
/// their end. Where the order of a list means nothing PutInOrder has one for it; everything here gives designs in that
/// order. What clerks write in the course of their work is no part of it: what was searched for, rules, saved queries.
struct Design {
  struct Class {
    int id = 0;
    QString name;
    int parent = 1;  ///< the class above; 1 for those that stand first

    bool operator==(const Class&) const = default;
  };

  struct Field {
    QString name, caption;
    QString type;    ///< 文本型, 数值型, 日期型 and so on
    int length = 0;  ///< bytes of the national code page that may be typed
    QString dictionary;
    bool isRequired = false;
    bool isFixedLength = false;  ///< is filled to its full length or left empty
    bool isInherited = false;    ///< a new record takes the value from the record above it
    bool isCarried = false;      ///< a new record takes the value from the one that the user stood on

    bool operator==(const Field&) const = default;
  };

  /// A control of the entry form, known by its kind and its number. Places and sizes are in twips.
  struct Control {
    QString field;  ///< empty for the frame around the form
    int type = 1, index = 1;
    int keyOrder = 0;  ///< the place in the order of the Enter key
    int left = 0, top = 0, width = 0, height = 0;

    bool operator==(const Control&) const = default;
  };

  struct ListColumn {
    QString field, caption;
    int width = 0;  ///< twips
    int order = 0;

    bool operator==(const ListColumn&) const = default;
  };

  /// A field that the quick search and the simple query offer.
  struct SearchField {
    QString field, caption;
    int type = 1, index = 1;  ///< kind and number of the input in the simple query
    int order = 0;

    bool operator==(const SearchField&) const = default;
  };

  /// A part of an archive number; the last one is the running number.
  struct NumberPart {
    QString field, caption;
    QString separator;  ///< in front of the part
    bool showsCode = false;
    int length = 0;

    bool operator==(const NumberPart&) const = default;
  };

  struct Table {
    QString name, caption;
    QString kind;                   ///< F: registered and sent through flows; A or empty: an archive
    int classId = 0;                ///< the class that it hangs under, 0 for one outside the tree
    QString parent, relationField;  ///< the table that it hangs under, and the field that both have
    std::vector<Field> fields;      ///< in the order of the columns
    std::vector<Control> controls;
    std::vector<ListColumn> columns;
    std::vector<SearchField> searchFields;
    std::vector<NumberPart> numberParts;  ///< in their order
    QString numberField;                  ///< takes the finished archive number
    QString folderNumberField;            ///< takes it without its last part; (无) for none

    bool operator==(const Table&) const = default;
  };

  struct DictionaryEntry {
    QString text, code;
    QString sortKey;
    bool isSystem = false;

    bool operator==(const DictionaryEntry&) const = default;
  };

  struct Dictionary {
    QString name, kind;
    bool isSystem = false;
    std::vector<DictionaryEntry> entries;

    bool operator==(const Dictionary&) const = default;
  };

  struct Fonds {
    QString number, name;

    bool operator==(const Fonds&) const = default;
  };

  struct EntityClass {
    QString fonds, number, name;

    bool operator==(const EntityClass&) const = default;
  };

  struct Retention {
    QString name, code;

    bool operator==(const Retention&) const = default;
  };

  /// A field of the source whose value a field of the destination takes.
  struct TransferLink {
    QString source, destination;
    QString caption;  ///< of the source field

    bool operator==(const TransferLink&) const = default;
  };

  struct TransferMap {
    QString source, destination;
    std::vector<TransferLink> links;

    bool operator==(const TransferMap&) const = default;
  };

  struct Report {
    QString id, name;
    QString group;  ///< the table, or the flow, that it belongs to
    QString type;   ///< 1: offered in the menus of browser and entry form

    bool operator==(const Report&) const = default;
  };

  struct Rights {
    QString table;
    QString words;  ///< the rights as the user reads them
    bool mayEdit = false, mayPrint = false, mayLookAtOriginals = false;
    QString condition;            ///< limits the rows, empty for all of them
    QStringList conditionFields;  ///< the fields that the condition depends on

    bool operator==(const Rights&) const = default;
  };

  struct User {
    QString id, name;
    std::vector<Rights> rights;

    bool operator==(const User&) const = default;
  };

  std::vector<Class> classes;
  std::vector<Table> tables;
  std::vector<Dictionary> dictionaries;
  std::vector<Fonds> fonds;
  std::vector<EntityClass> entityClasses;
  std::vector<Retention> retentions;
  std::vector<TransferMap> transfers;
  std::vector<Report> reports;
  std::vector<User> users;

  bool operator==(const Design&) const = default;
};

/// Puts what has no order of its own into the order of numbers, places and names, and takes blanks off the end of
/// texts.
FOLVANE_EXPORT void PutInOrder(Design& design);

/// The design that a database holds; an empty one where it has no design tables. Rows that a design cannot hold, such
/// as a second one for the same field, are left out, and stay as they are; CheckDesign tells them. @throws DataError
FOLVANE_EXPORT Design ReadDesign(Connection& connection);

// Designs as files.

/// A design as the text of a file, in UTF-8.
FOLVANE_EXPORT QByteArray DesignText(const Design& design);

/// The design that such a text holds. @throws DataError File, with the line that it is about
FOLVANE_EXPORT Design ParseDesign(const QByteArray& text);

/// The part of a design that some tables need: they themselves with their classes, dictionaries, reports, the transfers
/// between them and the rights in them. @throws DataError Usage for a table that the design does not have
FOLVANE_EXPORT Design ExcerptOf(const Design& design, const QStringList& tables);

/// A design with what another one has put in: what both have is as the other has it, nothing is removed. A class, a
/// user or a report of the same number but another name is another one: classes and reports get numbers that are free,
/// users are left out.
/// @param told takes what was renumbered and left out, in words
FOLVANE_EXPORT Design Joined(const Design& design, const Design& other, QStringList* told = nullptr);

// Designs compared and applied.

/// One difference between two designs, in words.
struct DesignChange {
  QString where, what;
};

/// What has to change in a design so that it becomes the other one. The order of fields is no difference: it is that of
/// the columns, which stay where they are.
FOLVANE_EXPORT std::vector<DesignChange> CompareDesigns(const Design& from, const Design& to);

/// Data that goes when a design is applied, unless the answer is to keep it.
struct DesignLoss {
  QString table, column;  ///< the column is empty where the whole table would go
  qint64 rows = 0;        ///< that are in the table, or have something in the column
  QString words;
};

enum class LossAnswer {
  Keep,  ///< the table or column stays, without being part of the design
  Lose,
};

/// What it takes to make a database hold another design.
struct DesignPlan {
  Design base, wanted;
  std::vector<DesignChange> changes;
  QStringList statements;  ///< for reading; the tables and columns first
  std::vector<DesignLoss> losses;

  bool IsEmpty() const { return changes.empty() && statements.isEmpty(); }
};

/// @param base what was read from the database before it was edited
/// @throws DataError Usage for a design that cannot be stored, such as a table's name that is a reserved word;
/// Conflict, naming it, where somebody else has changed the same meanwhile; Untranslatable where tables or columns are
/// missing that only the server's own tools can make
FOLVANE_EXPORT DesignPlan PlanDesign(Connection& connection, const Design& base, const Design& wanted);

/// Does it, in one transaction or within the one that is open. What others have changed elsewhere meanwhile stays.
/// @param answers to the losses of the plan, in their order
/// @throws DataError as PlanDesign; Usage where an answer is missing. Nothing is changed then
FOLVANE_EXPORT void ApplyDesign(Connection& connection, const DesignPlan& plan,
                                const std::vector<LossAnswer>& answers = {});

// Designs checked.

/// Something that is wrong with a design or with the database under it.
struct DesignFinding {
  enum class Weight {
    Note,     ///< worth knowing
    Warning,  ///< something is cut, hidden or of no effect
    Error,    ///< a window stays empty or refuses
  };
  Weight weight = Weight::Error;
  QString kind;  ///< a word for what is wrong, the same for each of its kind, such as "field-unknown"
  QString where;
  QString what;
  QString consequence;  ///< for the clerk
  QString remedy;
  /// Mends the design; applying what it makes of it mends the database too. Empty where somebody has to decide.
  std::function<void(Design&)> mend;
};

/// What is wrong with a design.
/// @param connection to look at tables, columns, conditions and rows as well
/// @param reportFolder where the templates of reports lie, to look for them as well
/// @throws DataError where the database cannot be looked at
FOLVANE_EXPORT std::vector<DesignFinding> CheckDesign(const Design& design, Connection* connection = nullptr,
                                                      const QString& reportFolder = {});

}  // namespace folvane
