// Numbers that the test program's resources share with its sources.
#pragma once

#define IDD_PLAIN 100
#define IDD_EXTENDED 101
#define IDD_PANEL 102
#define IDD_CUT 103
#define IDD_NONE 199

#define IDC_FIRST 300
#define IDC_SECOND 301
#define IDC_BUTTON 302
#define IDC_CONTAINER 303
#define IDC_NESTED 304
