// Numbers of the program's resources.
#ifndef UI_RESOURCE_H_
#define UI_RESOURCE_H_

#define IDS_TOOL_TITLE 112
#define IDS_CONFIRM_CANCEL 113
#define IDS_NOT_FINISHED 114
#define IDS_ASK_RESTART 115
#define IDS_RESTART_NOTICE 116
#define IDS_PROGRESS 117

#endif  // UI_RESOURCE_H_
