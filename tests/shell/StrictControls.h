// The system's common controls as they are without a manifest entry for version 6 (StrictControls.cpp).
#pragma once

extern bool haveNoControls; // while it is true, every call fails
