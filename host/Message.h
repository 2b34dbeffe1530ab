#pragma once

class QDialog;
class QFormLayout;
class QLabel;
class QString;

namespace folvane::host {

/// Shows what there is to say in a form, an error in a colour of its own.
void ShowMessage(QLabel& label, const QString& message, bool isError);

/// Ends a form with a place for what there is to say and with the keys that accept and reject its dialog.
/// @return the label of the messages
QLabel* AddMessageAndKeys(QFormLayout& rows, QDialog& dialog, const QString& acceptText);

}  // namespace folvane::host
