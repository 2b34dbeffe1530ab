#pragma once

class QWidget;

namespace folvane {

class TableParameters;

/// Gives a window the parameters of its tables as the hidden list LV_Para, for those who look for them by name. The row
/// in use is the current one, and its tag is the property Tag.
void AddParameterView(TableParameters& parameters, QWidget& window);

}  // namespace folvane
