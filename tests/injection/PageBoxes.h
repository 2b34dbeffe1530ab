#pragma once

#include <optional>

#include <folvane/DataError.h>

#include "designer/PageFixture.h"
#include "designer/PlanDialog.h"
#include "injection/Watched.h"

namespace folvane::test {

/// Of a share of the lines one, another each time all shares were dealt out: writing a design takes its time.
inline QStringList FewHostileLines() {
  constexpr int kShares = 6;
  static int calls = 0;
  const QStringList some = SomeHostileLines();
  return qEnvironmentVariableIsSet("FOLVANE_SOAK") ? some : some.mid(calls++ / kShares % some.size(), 1);
}

/// A cell of a grid, and where a design keeps what it says.
struct Cell {
  QString grid;
  int row, column;
  std::function<QString(Design&)> kept;
};

template <class Page>
class PageBoxesTest : public PageTest<Page> {
 protected:
  void SetUp() override {
    PageTest<Page>::SetUp();
    canaries_.emplace(this->Database(), program_);
    before_ = this->Read();
  }
  void TearDown() override {
    canaries_.reset();
    PageTest<Page>::TearDown();
  }
  /// Shows what is to be written, and writes it.
  void Write() {
    try {
      const DesignPlan plan = this->session_->Plan();
      designer::PlanDialog dialog(plan, nullptr);
      ExpectNoMarkup(dialog, "plan");
      this->session_->Apply(plan, std::vector<LossAnswer>(plan.losses.size(), LossAnswer::Lose));
    } catch (const DataError& refused) {
      refused_ = refused.Message();
    }
    ExpectNoMarkup(this->Shown(), "page");
  }
  virtual void TakeBack() {
    const DesignPlan plan = PlanDesign(*this->Connected(), this->Read(), before_);
    ApplyDesign(*this->Connected(), plan, std::vector<LossAnswer>(plan.losses.size(), LossAnswer::Lose));
    this->session_->GiveUp();
  }
  bool WasTold() { return !this->Told().isEmpty() || !std::exchange(refused_, QString()).isEmpty(); }
  QString PasteIntoCell(const Cell& cell, const QString& text) {
    QWidget* editor = this->EditorOf(cell.grid, cell.row, cell.column);
    auto* line = editor ? qobject_cast<QLineEdit*>(editor) : nullptr;
    if (editor && !line) line = editor->template findChild<QLineEdit*>();
    if (!line) throw std::runtime_error("nothing can be typed in " + cell.grid.toStdString());
    line->selectAll();
    line->insert(text);
    const QString typed = line->text().trimmed();
    Press(*editor, Qt::Key_Return);
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return typed;
  }
  void Try(const Cell& cell) {
    const Box box{cell.grid.toStdString() + " " + std::to_string(cell.column),
                  [&](const QString& text) {
                    const QString typed = PasteIntoCell(cell, text);
                    Write();
                    return typed;
                  },
                  [&] {
                    Design stored = this->Read();
                    return cell.kept(stored);
                  },
                  [this] { TakeBack(); }};
    TryBox(this->Database(), box, FewHostileLines(), [this] { return WasTold(); });
  }

  const TempProgramDirectory program_;
  Design before_;
  QString refused_;
  std::optional<Canaries> canaries_;
};

}  // namespace folvane::test
