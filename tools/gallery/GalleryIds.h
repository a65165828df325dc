// Identifiers of the gallery's resources and controls, shared by its resource script, its code and its test.
#pragma once

#define IDD_GALLERY 100
#define IDC_THEME_FOLDER 101
#define IDC_LOAD_AGAIN 102

// The toolbar: a toolbar resource and the strip of images under one number. Its commands are the ids, too, of the tool
// strip's buttons and of the strings that these have room for.
#define IDT_SAMPLES 300
#define IDM_DROP_DOWN 301
#define ID_SAMPLE_NEW 500
#define ID_SAMPLE_OPEN 501
#define ID_SAMPLE_SAVE 502
#define ID_SAMPLE_FIND 503

// Controls; those of one group stand in a row.
#define IDC_BAR 1000
#define IDC_BAR_HELP 1001
#define IDC_BAR_LANGUAGE 1002
#define IDC_BAR_PORT 1003
#define IDC_BAR_FRAMES 1004
#define IDC_STRIP_BUTTON 1010
#define IDC_STRIP_FRAMES 1012
#define IDC_PICTURE_BUTTON 1016
#define IDC_STATIC_LABEL 1020
#define IDC_STATIC_TOTALS 1021
#define IDC_STATIC_TEXT 1022
#define IDC_STATIC_DIALOG 1023
#define IDC_STATIC_PANEL 1024
#define IDC_STATIC_GROOVE 1025
#define IDC_STATIC_EDGE 1026
#define IDC_STATIC_UPRIGHT 1027
#define IDC_SEPARATOR 1030
#define IDC_DISPLAY 1032
#define IDC_DISPLAY_PLAIN 1033
#define IDC_DISPLAY_TIME 1034
#define IDC_ICON_PUSH 1040
#define IDC_ICON_DEFAULT 1041
#define IDC_ICON_DISABLED 1042
#define IDC_ICON_RAISED 1043
#define IDC_ICON_CHECK 1044
#define IDC_ICON_CHECKED 1045
#define IDC_ICON_CHECK_DISABLED 1046
#define IDC_ICON_GRAY 1047
#define IDC_ICON_BITMAP 1048
#define IDC_ICON_TOP 1049
#define IDC_ICON_TRANSPARENT 1050
#define IDC_ICON_DROP_DOWN 1051
#define IDC_PLAIN_SQUARE 1060
#define IDC_PLAIN_ROUNDED 1061
#define IDC_PLAIN_DISABLED 1062
#define IDC_LINK 1070
#define IDC_LINK_VISITED 1071
#define IDC_LINK_PLAIN 1072
#define IDC_LINK_DISABLED 1073
#define IDC_ROUND 1080
#define IDC_ROUND_QUIET 1081
#define IDC_ROUND_FLAT 1082
#define IDC_ROUND_DISABLED 1083
#define IDC_COMBO_LIST 1090
#define IDC_COMBO_EDIT 1091
#define IDC_COMBO_DISABLED 1092
#define IDC_SELECTOR 1100
#define IDC_TOOL_STRIP 1110

// Buttons that show a menu.
#define IDC_MENU_MODERN_RAISED 1200
#define IDC_MENU_MODERN_LEVEL 1201
#define IDC_MENU_MODERN_BARE 1202
#define IDC_MENU_CLASSIC 1203
#define IDC_MENU_CLASSIC_BARE 1204
#define IDC_MENU_SKIN 1205
