#pragma once

namespace fennick {

// Keeps libraries from dividing the calling thread's work among threads of their own.
void keepLibrariesOnThisThread();

} // namespace fennick
