// Numbers that the resources of the image tests share with their sources.
#pragma once

#define IDT_COMMANDS 301
#define IDT_SQUARE 302
#define IDT_SMALL 303
#define IDT_FOREIGN_VERSION 304
#define IDT_WITHOUT_STRIP 305
#define IDB_CHECK_CLEAR 311
#define IDB_CHECK_SELECTED 312
#define IDB_NONE 399
