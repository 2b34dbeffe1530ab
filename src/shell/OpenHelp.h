#pragma once

// Public for the sake of components, whose windows have help topics as well.
#include <folvane/Help.h>
