/* The numbers of the dialogs' controls and of the menus' commands. */
#ifndef REP_DLG_H
#define REP_DLG_H

#define DIALOG_HELP 1054

#define LIST_CHOICE 784

#define PROMPT_TEXT 835
#define PROMPT_INPUT 836
#define PROMPT_NEXT 837
#define PROMPT_PREVIOUS 838

#define JUMP_PAGE 895
#define PRINT_FIRST_PAGE 896
#define PRINT_LAST_PAGE 897

#define PROGRESS_DEVICE 842
#define PROGRESS_RECORDS 843
#define PROGRESS_PAGES 844

#define MENU_SAVE 624
#define MENU_JUMP 694
#define MENU_PRINT 695
#define MENU_FIT 696
#define MENU_EXIT 697

#endif
