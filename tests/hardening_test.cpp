// Compiles only where a release checks its calls of the system for overflow: it takes an optimising
// compiler. It is built like every file of the program; check-hardening looks at the programs that
// come of it.
#include <cstdlib>  // the system's headers say what they make of _FORTIFY_SOURCE

#if defined(NDEBUG) && defined(__GLIBC__) && __USE_FORTIFY_LEVEL < 2
#error "System calls are not checked for overflow: -D_FORTIFY_SOURCE=2"
#endif
