// Identifiers of every resource, control and command, shared by the resource scripts and the code.
//
// Plain preprocessor numbers, because the resource compiler reads this file too. Control ids are unique within one
// dialog only: the same number may stand for different controls of two dialogs. The Chinese resource library holds its
// resources under the same numbers.
#pragma once

// Icons and cursors.
#define IDI_APPLICATION_ICON 128
#define IDI_LAMP_LIT 133
#define IDI_LAMP_DARK 134
#define IDC_HAND_CURSOR 144

// About dialog. Its OK button is the platform's IDOK.
#define IDD_ABOUT 100
#define IDC_ABOUT_PANEL 1047
#define IDC_ABOUT_WEB_LINK 1048
#define IDC_ABOUT_MAIL_LINK 1049
#define IDC_ABOUT_VERSION 1053
#define IDC_ABOUT_COMPANY 1054

// Frame: a dialog without controls, which the panel fills.
#define IDD_FRAME 102

// Counter panel.
#define IDD_PANEL 129
#define IDC_LANGUAGE_LABEL 1007
#define IDC_SENSITIVITY_LABEL 1008
#define IDC_DIRECTION_LABEL 1009
#define IDC_SD_DETECT_LABEL 1010
#define IDC_SD_PERIOD_LABEL 1011
#define IDC_DATE_PICKER 1012
#define IDC_DATE_LABEL 1013
#define IDC_ADDRESS_LABEL 1014
#define IDC_LANGUAGE_ENGLISH 1015
#define IDC_LANGUAGE_CHINESE 1016
#define IDC_SENSITIVITY_EDIT 1017
#define IDC_DIRECTION_IN 1018
#define IDC_DIRECTION_OUT 1019
#define IDC_SD_DETECT_YES 1020
#define IDC_SD_DETECT_NO 1021
#define IDC_SD_PERIOD_EDIT 1022
#define IDC_ADDRESS_EDIT 1023
#define IDC_START 1024
#define IDC_UPDATE 1025
#define IDC_IN_DISPLAY 1026
#define IDC_OUT_DISPLAY 1027
#define IDC_IN_LABEL 1028
#define IDC_OUT_LABEL 1029
#define IDC_ALL 1030
#define IDC_ADDRESS_BUTTON_FIRST 1031
#define IDC_ADDRESS_BUTTON_SECOND 1032
#define IDC_ADDRESS_BUTTON_THIRD 1033
#define IDC_ADDRESS_BUTTON_FOURTH 1034
#define IDC_ADDRESS_BUTTON_FIFTH 1035
#define IDC_ADDRESS_BUTTON_LAST 1036
#define IDC_PANEL_STATIC 1038
#define IDC_TOP_BAR 1039
#define IDC_CLEAR 1041
#define IDC_COM_SETTING 1042
#define IDC_UPPER_BORDER 1043
#define IDC_LOWER_BORDER 1044
#define IDC_RIGHT_BORDER 1045
#define IDC_TOTALS_LABEL 1046
#define IDC_RECEIVED_EDIT 1050
#define IDC_TRANSMITTED_EDIT 1051
#define IDC_PORT 1052

// Message dialog.
#define IDD_MESSAGE 146
#define IDC_MESSAGE_PANEL 1055
#define IDC_MESSAGE_TEXT 1056
#define IDC_MESSAGE_OK 1057
#define IDC_MESSAGE_CANCEL 1058

// COM Setting dialog. The rows of its combo boxes stand in a dialog initialisation resource under the dialog's number.
#define IDD_COM_SETTING 219
#define IDC_COM_SETTING_PORT 1044
#define IDC_COM_SETTING_OK 1046
#define IDC_COM_SETTING_CANCEL 1047
#define IDC_COM_SETTING_BAUD 1048
#define IDC_COM_SETTING_DATA_BITS 1049
#define IDC_COM_SETTING_STOP_BITS 1050
#define IDC_COM_SETTING_PARITY 1051

// Commands of the top bar's three buttons, in the order of their ids, and of the menus that they open.
#define ID_PORT_MENU 304
#define ID_HELP_MENU 305
#define ID_LANGUAGE_MENU 306
#define ID_PORT_FIRST 400
#define ID_PORT_LAST 405
#define ID_LANGUAGE_ENGLISH 406
#define ID_LANGUAGE_CHINESE 407
#define ID_COM_SETTING 32771
#define ID_FRAME_UNUSED 32772
#define ID_ABOUT 32773
#define ID_DEVICE_QX4101 32774
#define ID_DEVICE_QX4102 32775
#define ID_DEVICE_QX4103 32776
#define ID_OPEN_LOG 32778

// Strings. A text with leading or trailing blanks is joined to others as it stands.
#define IDS_ABOUT_MENU 101
#define IDS_START 102
#define IDS_STOP 103
#define IDS_OPEN_COM 104
#define IDS_CLOSE_COM 105
#define IDS_DATE 107
#define IDS_LANGUAGE 108
#define IDS_SENSITIVITY 109
#define IDS_DIRECTION 110
#define IDS_SD_DETECT 111
#define IDS_SD_PERIOD 112
#define IDS_ADDRESS 113
#define IDS_COUNTER_IN 114
#define IDS_COUNTER_OUT 115
#define IDS_MENU_ENGLISH 116
#define IDS_MENU_CHINESE 117
#define IDS_COM 120
#define IDS_DEVICE 121
#define IDS_ENGLISH 122
#define IDS_CHINESE 123
#define IDS_IN 124
#define IDS_OUT 125
#define IDS_YES 126
#define IDS_NO 127
#define IDS_UPDATE 128
#define IDS_CLEAR 129
#define IDS_OPEN_LOG 132
#define IDS_ABOUT_TITLE 135
#define IDS_OK 136
#define IDS_CANCEL 137
#define IDS_NO_RESPONSE 138
#define IDS_CLEAR_DONE 139
#define IDS_CLEAR_FAILED 140
#define IDS_WRITE_DONE 141
#define IDS_WRITE_FAILED 142
#define IDS_CLOCK_DONE 143
#define IDS_CLOCK_FAILED 144
#define IDS_ADDRESS_DONE 145
#define IDS_ADDRESS_FAILED 146
#define IDS_LANGUAGE_SET 147
#define IDS_TX 148
#define IDS_RX 149
