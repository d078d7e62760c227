// Identifiers of the program's resources.
#ifndef UI_RESOURCE_H_
#define UI_RESOURCE_H_

#define IDD_MAIN 101

#define IDI_TOOL 104
#define IDI_TURNING_1 105
#define IDI_TURNING_2 106
#define IDI_TURNING_3 107
#define IDI_TURNING_4 108
#define IDI_TURNING_5 109
#define IDI_TURNING_6 110
#define IDI_TURNING_7 111

#define IDS_TOOL_TITLE 112
#define IDS_CONFIRM_CANCEL 113
#define IDS_NOT_FINISHED 114
#define IDS_ASK_RESTART 115
#define IDS_RESTART_NOTICE 116
#define IDS_PROGRESS 117

#define IDC_PROGRESS 1001
#define IDC_NOTE 1003
#define IDC_LOG 1005

#endif  // UI_RESOURCE_H_
