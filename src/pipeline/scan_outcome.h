#pragma once

namespace fennick {

// How a scan has ended, for whoever decides what is scanned next.
enum class ScanOutcome {
    done,
    failed,
    tooManyRequests, // failed, and the service asks to be left alone for a while
};

} // namespace fennick
