// Numbers that the resources of the drop-down tests share with their sources.
#pragma once

#define IDM_DROP 401
#define IDM_NO_POPUP 402
#define IDM_MISSING 499
