// Compiles only where the compiler was told what makes faults hard to exploit. It is built like
// every file of the program; check-hardening looks at the programs that come of it.
#include <cstdlib>  // the system's headers say what they make of _FORTIFY_SOURCE

#if !defined(__SSP_STRONG__) && !defined(__SSP_ALL__)
#error "Stacks are not guarded: -fstack-protector-strong"
#endif

#ifdef __linux__
#ifndef __PIE__
#error "Not position-independent: -fPIE"
#endif
// Calls are checked in releases only: it takes an optimising compiler.
#if defined(NDEBUG) && defined(__GLIBC__) && __USE_FORTIFY_LEVEL < 2
#error "System calls are not checked for overflow: -D_FORTIFY_SOURCE=2"
#endif
#endif
