#pragma once

#include <QWidget>
#include <functional>

#include "designer/FormEdits.h"
#include "designer/FormItems.h"
#include "designer/FormMarks.h"

namespace folvane::designer {

class FormSheet;

/// What a drag of a field onto the form carries: its name in UTF-8.
inline constexpr char kFieldMime[] = "application/x-folvane-field";

/// An entry form that is arranged by mouse and keys. Its controls are selected, moved and sized, not typed into; one of
/// those that are selected is the current one, which the others go by. Tab goes through them in the order of the Enter
/// key; the space bar keeps one selected while Tab goes on.
class FormCanvas : public QWidget {
  Q_OBJECT

 public:
  using Work = std::function<void(Design::Table&)>;
  /// Changes the table as one step of that name; steps of one series in a row are one.
  using Change = std::function<void(const QString& words, const Work& work, const QString& series)>;

  FormCanvas(Change change, QWidget* parent);

  /// Shows the form of a table, null for none. What was selected stays so where it is still there.
  void Show(const Design::Table* table, const std::vector<Design::Dictionary>& dictionaries);

  const Controls& Selected() const { return selected_; }
  /// The current control; -1 for none.
  int Current() const { return current_; }
  /// What is seen of the current control, null for none.
  const FormItem* CurrentItem() const;
  /// Where it is, in pixels.
  QRect CurrentBox() const;
  /// Selects controls, the last of which becomes the current one.
  void Select(const Controls& controls);
  /// What a step does to what, in words.
  QString Words(const QString& verb) const;

  void SetGrid(int twips) { grid_ = twips; }
  int Grid() const { return grid_; }

  /// Has the controls numbered in the order in which they are clicked.
  void SetOrdering(bool on);
  bool IsOrdering() const { return isOrdering_; }
  /// The number that is given next.
  int NextNumber() const { return int(GivenNumbers()) + 1; }

 Q_SIGNALS:
  void SelectionChanged();
  /// Something is being dragged there, in pixels.
  void Dragged(const QPoint& at);
  /// A field was dropped there, in twips.
  void FieldDropped(const QString& field, const QPoint& place);
  /// A number was given, or the numbering has ended.
  void OrderingChanged();

 protected:
  bool event(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Drag {
    enum Kind { None, Move, Size, Band } kind = None;
    bool isOn = false;  ///< has gone far enough to be meant
    bool isFree = false;
    int grabbed = -1;
    int across = 0, down = 0;  ///< the edges that follow, as of a SizeHandle
    QPoint start, now;
  };

  void ShowTable(const Design::Table& table);
  void ShowMarks();
  int ItemIndex(int control) const;
  int ControlAt(const QPoint& at) const;
  const SizeHandle* HandleAt(const QPoint& at, std::vector<SizeHandle>& handles, int& control) const;
  bool IsSelected(int control) const;
  void Toggle(int control);
  void TellSelection();
  void SelectNext(int by);
  bool Nudge(const QKeyEvent& event);
  bool Cancel();

  Work DragWork();
  std::vector<int> OtherEdges(Qt::Orientation orientation) const;
  void EndDrag();
  void SelectInBand(bool adds);
  void ShowPointer(const QPoint& at);
  QPoint ToTwips(const QPoint& pixels) const;

  std::size_t GivenNumbers() const;
  void GiveNumber(int control);

  Change change_;
  Design::Table table_;
  std::vector<Design::Dictionary> dictionaries_;
  FormSheet* sheet_;
  FormMarks* marks_;
  Controls selected_, kept_;
  int current_ = -1;
  int selections_ = 0;  ///< how often something else was selected
  int grid_ = 120;
  Drag drag_;
  std::vector<QLine> guides_;
  bool isOrdering_ = false;
  QStringList given_;  ///< the controls that were numbered, by their ids
};

}  // namespace folvane::designer
