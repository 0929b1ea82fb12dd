#include "platform/library_threads.h"

// Declared as in OpenMP's header, which comes with one compiler and is missing beside another.
extern "C" void omp_set_max_active_levels(int levels);

namespace fennick {

void keepLibrariesOnThisThread() {
    omp_set_max_active_levels(0);
}

} // namespace fennick
