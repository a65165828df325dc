// Window messages that the panel posts to itself. The replies of commands stand in link/ReplyMessages.h.
#pragma once

#include <windows.h>

// The worker has added to a byte total. Carries nothing: the totals are read when it is handled.
inline constexpr UINT WM_TOTALS_CHANGED = WM_APP + 1;
