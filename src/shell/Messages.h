#pragma once

#include <QString>

#include <folvane/HostServices.h>

namespace folvane {

/// The title of most notices.
inline const QString kSystemTitle = QStringLiteral("系统提示");

/// The values that message flags are summed of.
namespace MessageFlag {
enum : int {
  OkCancel = 1,
  YesNoCancel = 3,
  YesNo = 4,
  Critical = 16,
  Question = 32,
  Warning = 48,
  Information = 64,
  SecondIsDefault = 256,
  ThirdIsDefault = 512,
};
}  // namespace MessageFlag

/// What a message box answers.
namespace Answer {
enum : int { Ok = 1, Cancel = 2, Yes = 6, No = 7 };
}  // namespace Answer

/// Shows a message box over the active window and waits for the answer. Escape and the window's own button answer
/// Cancel, or OK where that is the only key; a question that can only be answered Yes or No takes no notice of them.
/// @throws DataError Usage when a box is to be shown and the host has made no QApplication
int ShowMessage(const QString& text, int flags = 0, const QString& title = {});
/// The same, with what stands beside the text.
int ShowMessage(const MessageRequest& request);

/// Asks for the name of a file; "" when cancelled.
QString AskForFile(const FileRequest& request);

}  // namespace folvane
