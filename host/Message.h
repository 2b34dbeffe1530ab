#pragma once

class QLabel;
class QString;

namespace folvane::host {

/// Shows what there is to say in a form, an error in a colour of its own.
void ShowMessage(QLabel& label, const QString& message, bool isError);

}  // namespace folvane::host
