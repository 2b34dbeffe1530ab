#pragma once

#include <QByteArray>
#include <QWidget>
#include <functional>

#include "support/Dice.h"

namespace folvane::test {

/// Something that a user does to a window: what it is, in a line, and the doing of it.
struct Deed {
  QByteArray said;
  std::function<void()> doIt;
};

/// Any deed on a shown window: clicks, drags, keys, texts, commands, the wheel, other sizes, closing and waiting.
Deed AnyDeed(QWidget& window, Dice& dice);

}  // namespace folvane::test
