#pragma once

// Hosts may use the pictures too.
#include <folvane/Icons.h>
