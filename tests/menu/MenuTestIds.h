// Numbers that the test program's resources share with its sources.
#pragma once

#define IDM_BAR 200
#define IDM_TOO_EARLY 201
#define IDM_CUT_OFF 202
#define IDM_EXTENDED 203
#define IDM_NONE 299
