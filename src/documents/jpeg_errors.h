#pragma once

#include <cstddef>
#include <cstdio>
// libjpeg's header uses the two above without including them.
#include <jpeglib.h>

#include <csetjmp>

namespace fennick {

// libjpeg reports an error by a call that must not return. `base` is first, so that the pointer that libjpeg
// passes is also one to this structure. Set `escape` before each call of libjpeg that may fail.
struct JpegErrors {
    jpeg_error_mgr base;
    std::jmp_buf escape;

    // Errors jump to `escape`; nothing is printed.
    void attachTo(jpeg_error_mgr *&codecErrors) {
        codecErrors = jpeg_std_error(&base);
        base.error_exit = leave;
        base.output_message = [](j_common_ptr) {
        };
    }

    [[noreturn]] static void leave(j_common_ptr codec) {
        std::longjmp(reinterpret_cast<JpegErrors *>(codec->err)->escape, 1);
    }
};

} // namespace fennick
