#pragma once

class QPrintPreviewWidget;
class QPrinter;
class QWidget;

namespace folvane::reports {

/// Shows the pages of a report. Its scroll bar is always there: pages as wide as the view, beside a bar that comes and
/// goes with their height, would make each other larger and smaller without end.
QPrintPreviewWidget* NewPageView(QPrinter& printer, QWidget* parent);

}  // namespace folvane::reports
