/* Changes of an open form as a host in C makes them, through what the library publishes. */
#ifndef TESTS_DLL_FORM_CHANGES_H
#define TESTS_DLL_FORM_CHANGES_H

#include "tessarine.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Gives the label that bears a text another one, and selects it. Its row, or -1. */
int change_label(struct Session *session, const char *old_text, const char *new_text);

#ifdef __cplusplus
}
#endif

#endif
