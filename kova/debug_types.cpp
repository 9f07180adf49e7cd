// Compiled with debug information, in release builds too: a compiler describes a class with virtual operations
// only where its operations are, so without this a debugger shows a caller's objects as "<incomplete type>".
// It describes the public classes; no code comes of it.
#include <kova/kova.h>
