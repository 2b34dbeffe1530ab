#pragma once

#include <QStandardItemModel>
#include <QTreeView>
#include <vector>

#include "designer/DesignSession.h"

namespace folvane::designer {

/// What a node of the tree stands for.
struct DesignNode {
  enum class Kind { None, Root, Class, Table, Page };
  Kind kind = Kind::None;
  QString key;  ///< number of the class, name of the table, name of the page

  bool operator==(const DesignNode&) const = default;
};

/// The classes of a design with their tables, and beneath them what belongs to no table.
class DesignTree : public QTreeView {
  Q_OBJECT

 public:
  struct Page {
    QString name, title, icon;
  };

  /// @param pages what belongs to no table
  DesignTree(DesignSession& session, std::vector<Page> pages);

  DesignNode Current() const;
  /// Makes a node current and opens those above; nothing where there is none.
  void GoTo(const DesignNode& node);

 Q_SIGNALS:
  void CurrentChanged();

 private:
  void Refresh();
  void AddClasses(QStandardItem& above, int parent, int depth);
  /// @param in none for those that are in no class
  void AddTables(QStandardItem& above, const Design::Class* in);
  static QStandardItem* NewItem(const QString& text, const QString& icon, const DesignNode& node);
  QStandardItem* Find(const DesignNode& node, QStandardItem* under = nullptr) const;
  QStringList Outline(const QStandardItem* under = nullptr) const;

  DesignSession& session_;
  std::vector<Page> pages_;
  QStandardItemModel* items_;
};

}  // namespace folvane::designer
