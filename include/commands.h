/* The numbers of commands and of the dialogs' controls: for C, resources, hosts and tests. */
#ifndef TESSARINE_COMMANDS_H
#define TESSARINE_COMMANDS_H

/* ---- the preview: WM_COMMAND to its window; those below 624 have no menu entry -------------- */

#define COMMAND_PAGE_UP 600
#define COMMAND_PAGE_DOWN 601
#define COMMAND_LINE_UP 602
#define COMMAND_LINE_DOWN 603
#define COMMAND_LEFT 604
#define COMMAND_RIGHT 605
#define COMMAND_SAVE 624
#define COMMAND_JUMP 694
#define COMMAND_PRINT 695
#define COMMAND_FIT 696
#define COMMAND_EXIT 697

/* ---- controls of dialogs -------------------------------------------------------------------- */

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

#endif
