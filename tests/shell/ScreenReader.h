// Reads windows of this thread as a user would.
#pragma once

#include "support/Windows.h"
