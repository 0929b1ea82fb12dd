#include "platform/library_threads.h"

#include <omp.h>

namespace fennick {

void keepLibrariesOnThisThread() {
    omp_set_max_active_levels(0);
}

} // namespace fennick
