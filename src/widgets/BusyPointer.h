#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace folvane {

/// Shows the busy pointer for as long as it lives.
class BusyPointer {
 public:
  BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
};

}  // namespace folvane
