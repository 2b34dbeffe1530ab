#pragma once

#include <QString>

#include "flows/Flow.h"

namespace folvane {

// What another user has changed in a head or in a detail, in words such as "单位由“甲”改为“乙”".

QString ChangesInWords(const Flow& flow, const HeadValues& before, const HeadValues& now);
QString ChangesInWords(const Flow& flow, const DetailValues& before, const DetailValues& now);

}  // namespace folvane
