#pragma once

#include <QComboBox>
#include <QTreeView>

#include "query/QueryFixture.h"
#include "query/frmfhfind.h"

namespace folvane::test {

/// The compound query over Lwdj.
class frmfhfindTest : public QueryTest {
 protected:
  /// Opens the window over Lwdj, runs the steps in it and closes it by its own button if they have not.
  void InWindow(const std::function<void()>& steps) {
    window_.FormTag = u"Lwdj"_s;
    WithWindow(u"frmfhfind"_s, [&](QWidget&) { steps(); });
    window_.Open();
  }
  QAction& Key(const QString& name) const { return FindAction(window_, u"Toolbar1"_s, name); }
  void Fill(const QString& connector, const QString& field, const QString& relation, const QString& value) {
    Set(window_, u"Cmb(0)"_s, connector);
    Set(window_, u"Cmb(1)"_s, field);
    Set(window_, u"Cmb(2)"_s, relation);
    Set(window_, u"Cmb(3)"_s, value);
  }
  void Add(const QString& connector, const QString& field, const QString& relation, const QString& value) {
    Fill(connector, field, relation, value);
    Key(u"F_AddRecord"_s).trigger();
  }
  QStringList List() {
    QStringList rows;
    for (int row = 0; row < ColumnOf(window_, u"ListView1"_s).size(); ++row) {
      QStringList cells;
      for (int column = 0; column < 5; ++column) cells << ColumnOf(window_, u"ListView1"_s, column).at(row);
      rows << cells.join(u'|');
    }
    return rows;
  }
  QStringList Entries(const QString& name) {
    const auto& box = Find<QComboBox>(window_, name);
    QStringList entries;
    for (int at = 0; at < box.count(); ++at) entries << box.itemText(at);
    return entries;
  }
  QVariant OfRow(int row, int role) {
    return Find<QTreeView>(window_, u"ListView1"_s).model()->index(row, 3).data(role);
  }
  bool IsStruckOut(int row) { return OfRow(row, Qt::FontRole).value<QFont>().strikeOut(); }
  QString Tip(int row) { return OfRow(row, Qt::ToolTipRole).toString(); }
  QString SavedCount() { return Value(u"select count(*) from FindCirSave"_s); }

  MessageBoxes boxes_;
  frmfhfind window_;
};

}  // namespace folvane::test
