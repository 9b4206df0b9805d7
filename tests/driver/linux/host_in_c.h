/* A host in C, called from a test. */
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

/* A host in C from end to end: a window that counts, both events, a run that a null request refuses. Returns 0, or the
 * number of the first step that didn't do what it should. */
int RunHostInC(void);

#ifdef __cplusplus
}
#endif
