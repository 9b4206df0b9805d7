// Windows' own header without the words of 16-bit compilers, which are names in tests that are compiled together with
// it.
#pragma once

#include <windows.h>

#undef far
#undef near
#undef FAR
#undef NEAR
#define FAR
#define NEAR
