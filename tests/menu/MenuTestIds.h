// Numbers that the test programs' resources share with their sources.
#pragma once

#define IDM_BAR 200
#define IDM_TOO_EARLY 201
#define IDM_CUT_OFF 202
#define IDM_EXTENDED 203
#define IDT_COMMANDS 301
#define IDT_SQUARE 302
#define IDT_SMALL 303
#define IDT_FOREIGN_VERSION 304
#define IDT_WITHOUT_STRIP 305
#define IDB_CHECK_CLEAR 311
#define IDB_CHECK_SELECTED 312
#define ID_NONE 399
